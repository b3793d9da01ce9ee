#pragma once

#include "shell/Forms.h"
#include "shell/Twips.h"

#include <QVector>
#include <QWidget>
#include <QWindow>
#include <memory>

class QMdiSubWindow;
class QTabBar;

namespace norvane {

class KeyHints;
class SettingsStore;
class StatusPanel;
class TrayHost;
class TrayIcon;
class mdiMain;

/// A tab of the category bar.
struct CategoryTab
{
    QString caption; ///< an access key's "&" is doubled
    QString key;     ///< "K" and the filter value: "K0" all, "K-1" none, else the category's ID
};

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
    /// Panel "ROW": "Row: " row " of " rows.
    void setRow(int row, int rows);

    /// Fills the category bar. The first tab is selected then.
    void setCategoryTabs(const QVector<CategoryTab> &tabs);
    int categoryTabCount() const;
    /// @param number from 1; another number than that of a tab changes nothing
    void selectCategoryTab(int number);
    /// The filter value of the selected tab: 0 all, -1 none, else the category's ID.
    int selectedCategory() const;

    /// What the hot keys are called, for the page that explains them.
    void setHotKeyTexts(const QString &attach, const QString &detach, const QString &remove,
                        const QString &browser);

    TrayIcon *trayIcon() const { return m_trayIcon; }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void restorePlace();
    void savePlace();

    FormList &m_forms;
    SettingsStore &m_settings;
    Twips m_twips;
    QWindow m_hotKeyWindow;
    QMdiSubWindow *m_window = nullptr;
    KeyHints *m_hints;
    QTabBar *m_categoryBar;
    StatusPanel *m_rowPanel;
    TrayIcon *m_trayIcon;
};

} // namespace norvane
