#pragma once

#include "watcher/NoteGridView.h"
#include "watcher/NoteViews.h"
#include "watcher/Notices.h"

namespace norvane {

class ShellForms;

/// The shell's windows as the watcher knows them: short notices, and what shows the notes.
class ProgramViews : public Notices, public NoteGridView, public NoteViews
{
public:
    /// @p forms must outlive this object.
    explicit ProgramViews(ShellForms &forms) : m_forms(forms) {}

    // Notices
    void showStandingText() override;
    void show(const QString &text) override;

    // NoteGridView
    /// Until there is a grid, the tray menu is what shows notes.
    void Refresh_Grid() override;
    void refreshAround() override {}
    void refreshPreview() override {}
    int category() const override;

    // NoteViews: none of them is there yet.
    bool has(View) const override { return false; }
    void showNewNote() override {}
    void showEditor(int, const QString &, const QString &) override {}
    void ShowPropertyPage(int) override {}
    void ShowPropertyPage(NoteGrid &) override {}
    void showSearch(int) override {}
    void showCategories() override {}
    void SendNorvane(int) override {}
    void AddToFavorites(const QString &, const QString &) override {}
    void showOpenNote(NV_RTFEdit &, const QString &) override {}
    void exportToOutlook(const QString &) override {}

private:
    ShellForms &m_forms;
};

} // namespace norvane
