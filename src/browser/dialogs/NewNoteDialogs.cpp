#include "browser/dialogs/NewNoteDialogs.h"

#include "browser/dialogs/frmNewNote.h"

#include <QGuiApplication>
#include <QPointer>
#include <QScopeGuard>
#include <utility>

namespace norvane {

namespace {

void fill(frmNewNote &dialog, const NewNoteForms::Contents &contents)
{
    dialog.setApplyShown(contents.hasApply);
    dialog.setName(contents.name);
    dialog.setLocation(contents.location);
}

} // namespace

NewNoteDialogs::NewNoteDialogs(const BrowserServices &services, std::function<QWidget *()> parent)
    : m_services(services), m_parent(std::move(parent))
{
}

void NewNoteDialogs::setBusy(bool busy)
{
    if (std::exchange(m_isBusy, busy) == busy)
        return;
    if (busy)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

void NewNoteDialogs::show(const Contents &contents, NewNoteDrop &drop)
{
    auto *dialog = new frmNewNote(m_services, m_parent(), &drop);
    fill(*dialog, contents);
    dialog->showModalInFront();
}

void NewNoteDialogs::pressOk(const Contents &contents, NewNoteDrop &drop)
{
    const QPointer<frmNewNote> dialog = new frmNewNote(m_services, nullptr, &drop);
    const auto release = qScopeGuard([&dialog] {
        if (dialog)
            dialog->unload();
    });
    fill(*dialog, contents);
    dialog->SetCatItem(drop.appliedCategory);
    dialog->Command1_Click();
}

} // namespace norvane
