#include "options/windows/FolderBox.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace norvane {

FolderBox::FolderBox(const QString &objectName, const QString &accessibleName)
{
    constexpr int kShownCharacters = 30;
    setObjectName(objectName);
    setAccessibleName(accessibleName);
    setEditable(true);
    setInsertPolicy(NoInsert);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(kShownCharacters);
    lineEdit()->setReadOnly(true);
    lineEdit()->setAccessibleName(accessibleName);
    lineEdit()->installEventFilter(this);
    setContextMenuPolicy(Qt::PreventContextMenu);
    connect(this, &QComboBox::editTextChanged, this, [this](const QString &text) {
        setToolTip(text);
        lineEdit()->setCursorPosition(0);
    });
}

void FolderBox::setFolder(const QString &folder)
{
    setEditText(folder);
}

void FolderBox::showPopup()
{
    emit dropDown();
    QComboBox::showPopup();
}

void FolderBox::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_F4:
    case Qt::Key_Space:
        if (count() > 0)
            showPopup();
        break;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        QComboBox::keyPressEvent(event);
        break;
    default:
        event->ignore();
    }
}

void FolderBox::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

bool FolderBox::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == lineEdit() && event->type() == QEvent::MouseButtonPress && isEnabled() && count() > 0) {
        showPopup();
        return true;
    }
    return QComboBox::eventFilter(watched, event);
}

} // namespace norvane
