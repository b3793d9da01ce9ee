#include "browser/dialogs/NoteDialog.h"

#include "platform/WindowSystem.h"

#include <utility>

namespace norvane {

NoteDialog::NoteDialog(const BrowserServices &services, const QString &name, QWidget *parent)
    : QDialog(parent), m_services(services), m_pause(services.timer)
{
    setObjectName(name);
}

NoteDialog::~NoteDialog()
{
    m_services.forms.remove(this);
}

void NoteDialog::showModal()
{
    exec();
}

void NoteDialog::showModalInFront()
{
    m_comesToFront = true;
    exec();
}

/// Painted for the first time, it is a window that can be asked for.
void NoteDialog::paintEvent(QPaintEvent *event)
{
    QDialog::paintEvent(event);
    if (std::exchange(m_comesToFront, false))
        QMetaObject::invokeMethod(this, &NoteDialog::bringToFront, Qt::QueuedConnection);
}

void NoteDialog::bringToFront()
{
    if (m_unloaded)
        return;
    raise();
    m_services.windows.setForegroundWindow(hWnd());
}

void NoteDialog::unload()
{
    if (m_unloaded)
        return;
    m_unloaded = true;
    m_pause.reset();
    m_services.forms.remove(this);
    hide();
    deleteLater();
}

} // namespace norvane
