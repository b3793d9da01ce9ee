#pragma once

#include "browser/BrowserServices.h"
#include "browser/CategoryCommands.h"
#include "browser/CategoryMenu.h"
#include "shell/Forms.h"

#include <QPointer>
#include <QWidget>
#include <QWindow>

class QMdiSubWindow;

namespace norvane {

class CategoryBar;
class NoteGrid;
class SideStrip;
class StatusPanel;
class TrayHost;
class TrayIcon;
class frmQuickView;
class mdiMain;

/// The note browser, a child window of the frame: the list of notes with the buttons and the category bar
/// around it, and the floating preview. It carries the tray icon and the window to which the system-wide
/// hot keys belong. Closing it hides it.
class frmMain : public QWidget, public Form
{
    Q_OBJECT

public:
    /// Adds itself to the forms and to @p frame, which owns it from then on. All must outlive it. The list
    /// is empty until Refresh_Grid().
    frmMain(const BrowserServices &services, mdiMain &frame, TrayHost &trayHost);
    ~frmMain() override;

    QString formName() const override;
    /// The window that owns the hot keys: never on the screen, and the same for the form's life.
    WindowHandle hWnd() const override;
    /// Closes the preview, writes the place of the window, hides the tray icon, and goes.
    void unload() override;

    NoteGrid *grid() const { return m_grid; }
    /// Reads the notes anew. What the engine raises is told, once for each kind of fault.
    void Refresh_Grid();
    /// Brings the browser up within its frame and gives the list the keyboard.
    void bringUp();
    /// Writes panel "ROW": "Row: ", the current row of the list, " of ", their number.
    void showRow();
    /// Enables the buttons that can do something now.
    void MakeupButtons();
    /// What follows every change of the list: status text, buttons, preview.
    void GRD_Refresh(int Row);

    /// Fills the category bar from the categories as they are now.
    void Refresh_tbCAT();
    /// Shows or hides the category bar and the list's category caption, and shows all categories.
    void setShowCategoryBar(bool shown);
    /// Shows the notes of the database that is open now, or none.
    void followDatabase();
    int categoryTabCount() const;
    /// @param number from 1; another number than that of a tab changes nothing
    void selectCategoryTab(int number);
    /// The filter value of the selected tab: 0 all, -1 none, else the category's ID.
    int selectedCategory() const;

    bool PreviewOpen() const { return m_previewOpen; }
    /// Shows a row of the list in the open preview; 0 empties it. Faults show as an empty preview.
    void RefreshPreviewWindow(int Row);
    /// Closes the preview if it is open.
    void unloadPreview();
    /// Shows or hides the preview: a click on `ARButton10`.
    void togglePreview();
    /// Shows the preview, if it is not open: now, or as soon as the browser is seen.
    void pressPreviewButton();

    /// Text of the hot key that attaches a note, for the hint over an empty list.
    void setAttachKey(const QString &text);

    TrayIcon *trayIcon() const { return m_trayIcon; }

protected:
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void layOut();
    void showPreview();
    void keepPreviewInside();
    void connectParts();
    void tabClick();
    void rowChanged(int row);
    void sideButton(const QString &name);
    void showCategoryMenu(const QPoint &screenPosition, bool selectOnly);
    void changeBarStyle();
    /// Runs a command of the category menu; a fault ends it without a word.
    void categoryCommand(const std::function<void()> &command);
    void restorePlace();
    void savePlace();

    const BrowserServices &m_services;
    QWindow m_hotKeyWindow;
    QMdiSubWindow *m_window = nullptr;
    SideStrip *m_strip;
    NoteGrid *m_grid;
    CategoryBar *m_categoryBar;
    StatusPanel *m_rowPanel;
    StatusPanel *m_categoryPanel;
    TrayIcon *m_trayIcon;
    CategoryCommands m_categories;
    CategoryMenu m_categoryMenu;
    QPointer<frmQuickView> m_preview;
    bool m_previewOpen = false;
    int m_toldError = 0;
};

} // namespace norvane
