#include "browser/dialogs/NoteDialog.h"

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
