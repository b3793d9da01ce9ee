#include "browser/dialogs/dialog_parts.h"

#include <QLabel>
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

QLabel *caption(const QString &text, QWidget *buddy)
{
    auto *label = new QLabel(text);
    label->setBuddy(buddy);
    return label;
}

} // namespace norvane
