#pragma once

#include "browser/BrowserServices.h"
#include "shell/windows/FormWindow.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QPushButton;

namespace norvane {

class NV_RTFEdit;
class NoteGrid;
class RichTextBox;

/// The picker of notes: its buttons put the text of the picked note into the editor that asked. Not
/// modal; it stays until a button or its own close button ends it. Writes nothing to the database.
class frmOpen : public FormWindow<QWidget>
{
    Q_OBJECT

public:
    /// Adds itself to the forms and lists all notes. Raises what the engine raises.
    explicit frmOpen(const BrowserServices &services);

    /// The editor that asked; not owned, and it may go at any time.
    void setRTFObj(NV_RTFEdit *editor);
    /// Lists the notes as they are now. Raises what the engine raises.
    void listNotes();
    /// Brings the window to the front and gives the list the keyboard.
    void bringUp();

protected:
    void unloading() override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void makeButtons();
    void rowChanged(int ID);
    void insert(void (NV_RTFEdit::*write)(const QByteArray &));
    void enableButtons();

    const BrowserServices &m_services;
    NoteGrid *m_notes;
    RichTextBox *m_picked; ///< `RichTextBox1`: never shown
    QLabel *m_fault;
    QPushButton *m_replace = nullptr; ///< `Command1`
    QPushButton *m_inset = nullptr;   ///< `Command3`
    QPointer<NV_RTFEdit> m_editor;    ///< `RTFObj`
    bool m_isReadable = true;
};

/// Shows the picker for an editor: the one that is open, or a new one. A fault is shown in a box, and no
/// window is left by it.
void ShowOpenNote(const BrowserServices &services, NV_RTFEdit &RTFObj, const QString &caption);

} // namespace norvane
