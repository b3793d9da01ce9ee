#pragma once

#include "browser/BrowserServices.h"
#include "shell/Forms.h"

#include <QWidget>
#include <optional>

class QAction;
class QToolButton;

namespace norvane {

class NV_RTFEdit;
class NoteRescue;
class StatusPanel;
class TitleStrip;

/// The Note Editor: the text of one note with the whole tool bar. It reads and writes the note by its
/// ID and knows nothing of other windows of the same note: who saves last, wins.
///
/// The enabled state of `cmdSave` is the one record of unsaved changes. Whoever closes the window is
/// asked first when there are some. unload() asks nothing, and writes them to a rescue file.
class frmEditor : public QWidget, public Form
{
    Q_OBJECT

public:
    enum class Kind {
        FrameChild, ///< "frmEditor": to be handed to mdiMain::addChild()
        Free,       ///< "frmEditor2": a window of its own
    };

    /// Adds itself to the forms. Everything must outlive it. It deletes itself when it is closed or
    /// unloaded.
    frmEditor(const BrowserServices &services, NoteRescue &rescue, Kind kind);
    ~frmEditor() override;

    /// Reads the note's row and body file; there need be no body file. Raises 3021 when there is no such
    /// row, 91 when no database is open, and what engine and file system raise.
    /// @param title, location as the list shows them
    void load(int ID, const QString &title, const QString &location);

    // Form
    QString formName() const override;
    /// kNoWindow for a child of the frame.
    WindowHandle hWnd() const override;
    void unload() override;

    int ID() const { return m_id; }
    /// The note's rich text file, whether it is there or not.
    QString RTFFileName() const { return m_bodyFile; }
    bool isDirty() const;
    /// Closes the window as its close button does, with the question.
    /// @return false when the answer was No
    bool closeWindow();
    /// Asks, if there are unsaved changes, whether to close without them. The window stays in any case.
    /// @return false when the answer was No
    bool mayClose();
    /// Unsaved changes up to now are not to be rescued.
    void dropChanges() { m_settled = m_changes; }
    /// Writes unsaved changes to a rescue file, once. Raises nothing.
    void rescueChanges();
    /// Brings the window to the front and gives it the keyboard.
    void bringUp();

    NV_RTFEdit *RTFEdit1() const { return m_text; }

    QSize sizeHint() const override;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void makeActions();
    void textChanged();
    void setDirty(bool dirty);
    void save();
    void leave();
    QWidget *outerWindow();

    const BrowserServices &m_services;
    NoteRescue &m_rescue;
    Kind m_kind;
    TitleStrip *m_title;
    NV_RTFEdit *m_text;
    StatusPanel *m_location;       ///< first panel of `ST1`
    QToolButton *m_save = nullptr; ///< `cmdSave`
    int m_id = 0;
    QString m_bodyFile;
    quint64 m_changes = 0;
    std::optional<quint64> m_settled; ///< the changes that were given up or rescued
    bool m_asking = false;
    bool m_left = false;
};

} // namespace norvane
