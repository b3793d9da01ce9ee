#pragma once

#include "controls/menuview/NVPopupMenu.h"
#include "sticky/NoteFrame.h"
#include "sticky/StickyServices.h"
#include "sticky/note_paper.h"
#include "watcher/StickyNote.h"

#include <QWidget>
#include <optional>

class QAction;

namespace norvane {

class NoteStrip;
class NV_RTFEdit;

/// The live form of one active note: a small piece of paper inside the window that the note is
/// attached to. It lives as long as the note is shown there.
///
/// The enabled state of `mnuFile_Save` is the one record of unsaved changes. The watch cycle makes
/// and fills notes; unload() is their one end, whatever brings it, and saves first if it should.
class frmSticky : public QWidget, public StickyNote
{
    Q_OBJECT

public:
    explicit frmSticky(const StickyServices &services);
    ~frmSticky() override;

    // Form
    QString formName() const override { return QStringLiteral("frmSticky"); }
    WindowHandle hWnd() const override { return m_handle; }
    /// Saves if `AutoSave` is set and the note is dirty; a note that cannot be saved then is
    /// written to the rescue folder. Takes the note from the registry and from the screen.
    void unload() override;

    // StickyNote
    void setParentWindow(WindowHandle target) override;
    void setTextBackColor(quint32 color) override;
    void setToolBar(bool shown) override;
    void setAutoURLDetect(bool on) override;
    void moveTwips(const QRectF &rect) override;
    /// Place and size that were loaded, each as long as nobody has changed it since.
    QRectF rectTwips() const override;
    void movePixels(const QPoint &position) override;
    QSize sizePixels() const override;
    void setCaption(const QString &caption) override;
    QString caption() const override;
    void clearText() override;
    void loadBody(const QString &path) override;
    void SetSaveMode(bool enabled) override;
    void resetSaveState() override;
    bool isDirty() const override;
    void showNote() override;
    void nudge() override;
    void mnuFile_Close_Click() override;
    /// Writes row and body file. An error ends it quietly: the note stays dirty.
    void SaveNote() override;
    void saveAtExit() override;

    NV_RTFEdit *Text1() const { return m_text; }
    /// The note's whole menu, which the pin opens.
    NVPopupMenu &File_Menu() { return m_menu; }
    /// The font that a cleared document has.
    static QFont formFont();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    void makeActions();
    void makeMenu();
    void popUpMenu();
    int save();
    void rescueAfter(int error);
    /// Both raise what store and file system raise.
    void writeRow();
    void writeBody();
    void moveTo(const QRect &place);
    QPoint insideTarget(const QPoint &point) const;
    void textChanged();
    /// A move or resize by hand begins: geometry counts as an edit.
    void geometryEdited();
    void targetDestroyed();
    void showGrip(NoteGrip grip);

    const StickyServices &m_services;
    WindowHandle m_handle = kNoWindow;
    NoteStrip *m_strip;
    NV_RTFEdit *m_text;
    QAction *m_save = nullptr;  ///< `mnuFile_Save`
    QAction *m_close = nullptr; ///< `mnuFile_Close`
    NVPopupMenu m_menu;         ///< `File_Menu`
    NotePaper m_paper;
    QRect m_place; ///< in the target, pixels; still there when the target is gone
    QRectF m_loadedTwips;
    QRect m_loadedPixels; ///< where m_loadedTwips stands on the screen
    quint64 m_changes = 0;
    std::optional<quint64> m_rescued; ///< the changes that went into a rescue file, or nowhere
    NoteGrip m_grip = NoteGrip::None;
    QPoint m_dragStart;
    QRect m_dragRect;
    bool m_unloaded = false;
};

} // namespace norvane
