#pragma once

#include <QPushButton>

namespace norvane {

/// A button, check box or the like with its object name and its caption.
template <typename Button = QPushButton>
Button *namedButton(const QString &objectName, const QString &caption)
{
    auto *button = new Button(caption);
    button->setObjectName(objectName);
    return button;
}

} // namespace norvane
