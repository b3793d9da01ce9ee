#pragma once

#include "options/settings/OptionsHost.h"
#include "options/windows/OptionsServices.h"
#include "options/windows/frmSetting.h"
#include "store/NoteDatabaseSwitch.h"

#include <functional>
#include <memory>

namespace norvane {

class ShellForms;
struct SharedState;

/// The Options window of the program, and what follows from it elsewhere.
class ProgramOptions : public OptionsHost
{
public:
    /// All must outlive this object; @p forms need not be made yet.
    /// @param endProgram ends the program when control is back at the event loop
    ProgramOptions(SharedState &state, const BrowserServices &services, HotKeyModel &hotKeys,
                   ShellForms &forms, std::function<void()> endProgram);

    /// Shows the window and waits for its end; nothing before start-up is over.
    void show(frmSetting::Page page);
    /// Shows the dialog with the proposed categories, and waits. @return the chosen ones
    QStringList chooseCategories();

    // OptionsHost
    WindowHandle hotKeyOwner() const override;
    void databaseChanged() override;
    void Refresh_tbCAT() override;
    void setShowCategoryBar(bool shown) override;
    void hotKeysRegistered(const QVector<HotKeyId> &refused) override;

private:
    QWidget *owner() const;

    SharedState &m_state;
    const BrowserServices &m_services;
    HotKeyModel &m_hotKeys;
    ShellForms &m_forms;
    NoteDatabaseSwitch m_databases;
    std::unique_ptr<OptionsServices> m_options;
};

} // namespace norvane
