#include "browser/dialogs/browse_button.h"

#include <QPushButton>

namespace norvane {

QPushButton *browseButton(const QString &objectName, const QString &accessibleName)
{
    auto *button = new QPushButton(QStringLiteral("..."));
    button->setObjectName(objectName);
    button->setAccessibleName(accessibleName);
    button->setMaximumWidth(button->sizeHint().height() * 3 / 2);
    return button;
}

} // namespace norvane
