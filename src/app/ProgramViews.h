#pragma once

#include "watcher/NoteGridView.h"
#include "watcher/Notices.h"

namespace norvane {

class ShellForms;

/// The program's windows as the watcher knows them: short notices, and the browser.
class ProgramViews : public Notices, public NoteGridView
{
public:
    /// @p forms must outlive this object; they need not be made yet.
    explicit ProgramViews(ShellForms &forms) : m_forms(forms) {}

    // Notices
    void showStandingText() override;
    void show(const QString &text) override;
    void showModal(const QString &text) override;

    // NoteGridView
    /// The tray menu, which shows notes too, follows.
    void Refresh_Grid() override;
    void refreshAround() override;
    void refreshPreview() override;
    int category() const override;

private:
    ShellForms &m_forms;
};

} // namespace norvane
