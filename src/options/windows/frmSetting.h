#pragma once

#include "browser/dialogs/NoteDialog.h"

class QPushButton;
class QTabWidget;

namespace norvane {

class CategoryPage;
class DatabasePage;
class HotKeyPage;
struct OptionsServices;

/// The Options window. As long as it is loaded the watch timer is off and the system-wide hot keys are
/// withdrawn.
class frmSetting : public NoteDialog
{
    Q_OBJECT

public:
    /// Numbers of the pages, from 0.
    enum Page { kDatabase, kCategories, kHotKeys, kAbout, kPrograms };

    /// Shows the window and waits for its end; one that is loaded already comes to the front.
    static void ShowOptions(const OptionsServices &services, Page page, QWidget *parent);

    /// Adds itself to the forms.
    frmSetting(const OptionsServices &services, QWidget *parent);
    ~frmSetting() override;

    void showPage(Page page);
    /// Enables "&OK" and "&Apply" with 1, disables them with any other value.
    void SaveMode(int Mode);

    /// Registers the hot keys again, with their present values, and starts the timer.
    void unload() override;

private:
    void arrange();
    /// @return false when the program ends
    bool apply();

    const OptionsServices &m_options;
    WindowHandle m_hotKeyOwner;
    QTabWidget *m_tabs;
    DatabasePage *m_database;
    CategoryPage *m_categories;
    HotKeyPage *m_hotKeys;
    QPushButton *m_ok;
    QPushButton *m_apply;
    QPushButton *m_close;
    bool m_withdrawn = true; ///< the hot keys
};

} // namespace norvane
