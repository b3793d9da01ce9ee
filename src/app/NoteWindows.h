#pragma once

#include "watcher/NoteViews.h"

namespace norvane {

class NoteRescue;
class ProgramOptions;
class ShellForms;
struct BrowserServices;

/// Opens the windows that other windows lead to.
class NoteWindows : public NoteViews
{
public:
    /// All must outlive this object; they need not be made yet.
    NoteWindows(const BrowserServices &services, NoteRescue &rescue, ShellForms &forms,
                ProgramOptions &options)
        : m_services(services), m_rescue(rescue), m_forms(forms), m_options(options)
    {
    }

    /// Mail and the organizer are still to come.
    bool has(View view) const override;
    void showNewNote() override;
    void showEditor(int ID, const QString &title, const QString &location) override;
    void ShowPropertyPage(int ID) override;
    void ShowPropertyPage(NoteGrid &rows) override;
    void showSearch(std::optional<int> category) override;
    void showCategories() override;
    QStringList chooseCategories() override;
    void SendNorvane(int) override {}
    void AddToFavorites(const QString &title, const QString &location) override;
    void showOpenNote(NV_RTFEdit &RTFObj, const QString &caption) override;
    void exportToOutlook(const QString &) override {}

private:
    const BrowserServices &m_services;
    NoteRescue &m_rescue;
    ShellForms &m_forms;
    ProgramOptions &m_options;
};

} // namespace norvane
