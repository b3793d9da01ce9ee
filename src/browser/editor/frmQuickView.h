#pragma once

#include "browser/BrowserServices.h"
#include "shell/Forms.h"
#include "watcher/NotePreview.h"

#include <QWidget>

class QSizeGrip;
class QToolButton;

namespace norvane {

class RichTextBox;
class TitleStrip;

/// The Note Preview: a small panel that floats inside the browser's window and shows the text of one
/// note, to be read only. Its strip moves it, the grip in its corner sizes it; its place is kept in the
/// settings.
///
/// The browser owns it, fills it, and keeps the flag that it is open.
class frmQuickView : public QWidget, public Form, public NotePreview
{
    Q_OBJECT

public:
    /// Adds itself to the forms, and comes up hidden at its kept place.
    frmQuickView(const BrowserServices &services, QWidget *browser);
    ~frmQuickView() override;

    /// Shows a note. A body file that is not there is an empty note on pale yellow paper; of one that
    /// cannot be read, or that is too large to be looked at in passing, nothing is shown. Raises nothing.
    /// @param BackColor of the note's row
    void showNote(const QString &title, int ID, const QString &bodyFile, quint32 BackColor);
    /// There is no note to be shown.
    void showNothing();

    /// Follows a new size of the browser and stays above everything in it.
    /// @param clientWidth, statusBarTop pixels
    void keepInside(int clientWidth, int statusBarTop);

    // Form
    QString formName() const override { return QStringLiteral("frmQuickView"); }
    /// kNoWindow: it is none of the desktop's.
    WindowHandle hWnd() const override { return kNoWindow; }
    /// Keeps the place. The browser is told by unloaded().
    void unload() override;

    int previewedNote() const override { return m_id; }
    RichTextBox *RTF_View() const { return m_view; }

signals:
    /// It goes: the flag that it is open is to be cleared, the button to say "Show Preview".
    void unloaded();
    /// `ARButton2`: `RunGridMenu` "EDIT".
    void editRequested();
    /// `ARButton3`: `RunGridMenu` "OPEN".
    void openRequested();

protected:
    void showEvent(QShowEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void setTitle(const QString &title);
    void loadBody(const QString &bodyFile);
    void empty();

    const BrowserServices &m_services;
    TitleStrip *m_title;
    RichTextBox *m_view;
    QSizeGrip *m_grip;
    QToolButton *m_edit = nullptr; ///< `ARButton2`
    QToolButton *m_open = nullptr; ///< `ARButton3`
    int m_id = 0;
    QPoint m_dragStart;
    QPoint m_dragPlace;
    bool m_dragging = false;
    bool m_unloaded = false;
};

} // namespace norvane
