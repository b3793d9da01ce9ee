#pragma once

#include "browser/dialogs/NewNoteDialogs.h"
#include "exchange/drops/DropRoutine.h"
#include "watcher/NoteViews.h"

namespace norvane {

class Mail;
class NoteRescue;
class OutlookNotes;
class ProgramOptions;
class ShellForms;
struct BrowserServices;

/// Opens the windows that other windows lead to.
class NoteWindows : public NoteViews
{
public:
    /// All must outlive this object; they need not be made yet.
    NoteWindows(const BrowserServices &services, NoteRescue &rescue, ShellForms &forms,
                ProgramOptions &options, Mail &mail, OutlookNotes &outlook);

    void showNewNote() override;
    void showEditor(int ID, const QString &title, const QString &location) override;
    void ShowPropertyPage(int ID) override;
    void ShowPropertyPage(NoteGrid &rows) override;
    void showSearch(std::optional<int> category) override;
    void showCategories() override;
    QStringList chooseCategories() override;
    void SendNorvane(int ID) override;
    void AddToFavorites(const QString &title, const QString &location) override;
    void showOpenNote(NV_RTFEdit &RTFObj, const QString &caption) override;
    void exportToOutlook(const QString &text) override;
    void dropItems(const QStringList &files, const QString &text) override;

private:
    const BrowserServices &m_services;
    NoteRescue &m_rescue;
    ShellForms &m_forms;
    ProgramOptions &m_options;
    Mail &m_mail;
    OutlookNotes &m_outlook;
    NewNoteDialogs m_newNotes;
    std::optional<DropRoutine> m_drops; ///< once something was dropped
};

} // namespace norvane
