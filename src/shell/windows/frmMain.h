#pragma once

#include "shell/Forms.h"
#include "shell/Twips.h"

#include <QWidget>
#include <QWindow>

class QMdiSubWindow;
class QTabBar;
class QToolButton;

namespace norvane {

namespace dao {
class Recordset;
}

class KeyHints;
class SettingsStore;
class StatusPanel;
class TrayHost;
class TrayIcon;
class mdiMain;

/// The note browser, a child window of the frame. It carries the tray icon and the window to which
/// the system-wide hot keys belong. Closing it hides it.
class frmMain : public QWidget, public Form
{
    Q_OBJECT

public:
    /// Adds itself to @p forms and to @p frame, which owns it from then on. All must outlive it.
    frmMain(FormList &forms, SettingsStore &settings, mdiMain &frame, TrayHost &trayHost, Twips twips);
    ~frmMain() override;

    QString formName() const override;
    /// The window that owns the hot keys: never on the screen, and the same for the form's life.
    WindowHandle hWnd() const override;
    /// Writes the place of the window, hides the tray icon, and goes.
    void unload() override;

    /// Brings the browser up within its frame and gives it the keyboard.
    void bringUp();
    /// Writes panel "ROW": "Row: ", the current row of the list, " of ", their number.
    void showRow();

    /// Fills the category bar: all categories, each category, none. The first tab is selected then.
    /// @param categories by name; its current record changes. nullptr: there are none.
    void Refresh_tbCAT(dao::Recordset *categories);
    int categoryTabCount() const;
    /// @param number from 1; another number than that of a tab changes nothing
    void selectCategoryTab(int number);
    /// The filter value of the selected tab: 0 all, -1 none, else the category's ID.
    int selectedCategory() const;

    /// Sets `ARButton10`, which shows and hides the preview, to pressed.
    void pressPreviewButton();

    /// What the hot keys are called, for the page that explains them.
    void setHotKeyTexts(const QString &attach, const QString &detach, const QString &remove,
                        const QString &browser);

    TrayIcon *trayIcon() const { return m_trayIcon; }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void addCategoryTab(const QString &caption, const QString &key);
    void restorePlace();
    void savePlace();

    FormList &m_forms;
    SettingsStore &m_settings;
    Twips m_twips;
    QWindow m_hotKeyWindow;
    QMdiSubWindow *m_window = nullptr;
    KeyHints *m_hints;
    QTabBar *m_categoryBar;
    QToolButton *m_previewButton;
    StatusPanel *m_rowPanel;
    TrayIcon *m_trayIcon;
};

} // namespace norvane
