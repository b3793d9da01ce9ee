#pragma once

#include "platform/Prompts.h"
#include "richtext/EditServices.h"
#include "richtext/RichTextBox.h"

#include <QWidget>
#include <memory>

namespace norvane {

class EditMenu;
class EditToolBar;

/// The program's one rich text editor: a RichTextBox (`RichTextBox1`), a tool bar (`li`) with two
/// font combos, and a context menu. It keeps one document in memory and knows neither notes nor the
/// database.
///
/// The enabled state of the tool bar's `C_SAVE` is the save state: the host enables it on Change()
/// and clears it after saving; the control never sets it by itself. The visibility of `li` is the
/// state of ToolBar.
///
/// Change() is raised for every edit, for formatting, and for programmatic loads: a host that must
/// tell a load from an edit holds a flag of its own.
///
/// Members forward to the box of the same name unless they say otherwise; see RichTextBox for
/// units, nulls (std::nullopt over a mixed selection) and errors. Owned by its parent widget.
class NV_RTFEdit : public QWidget
{
    Q_OBJECT

public:
    explicit NV_RTFEdit(const EditServices &services, QWidget *parent = nullptr);
    ~NV_RTFEdit() override;

    /// The box itself, for hosts that search or measure.
    RichTextBox *box() const { return m_box; }

    // Document
    QString Text() const { return m_box->Text(); }
    void setText(const QString &text) { m_box->setText(text); }
    QByteArray TextRTF() const { return m_box->TextRTF(); }
    /// Writing runs the layout again. Empty clears the document. Raises 321.
    void setTextRTF(const QByteArray &rtf);
    void SaveFile(const QString &name, int format) const { m_box->SaveFile(name, format); }
    void LoadFile(const QString &name, int format) { m_box->LoadFile(name, format); }
    bool Locked() const { return m_box->Locked(); }
    void setLocked(bool locked) { m_box->setLocked(locked); }

    // Selection
    QString SelText() const { return m_box->SelText(); }
    void setSelText(const QString &text) { m_box->setSelText(text); }
    QByteArray SelRTF() const { return m_box->SelRTF(); }
    void setSelRTF(const QByteArray &rtf) { m_box->setSelRTF(rtf); }
    int SelStart() const { return m_box->SelStart(); }
    void setSelStart(int position) { m_box->setSelStart(position); }
    int SelLength() const { return m_box->SelLength(); }
    void setSelLength(int length) { m_box->setSelLength(length); }

    /// Prints the selection, or the whole document when nothing is selected.
    void SelPrint(QPagedPaintDevice &device) const { m_box->SelPrint(device); }

    // Format of the selection
    std::optional<int> SelAlignment() const { return m_box->SelAlignment(); }
    void setSelAlignment(int alignment) { m_box->setSelAlignment(alignment); }
    std::optional<bool> SelBold() const { return m_box->SelBold(); }
    void setSelBold(bool on) { m_box->setSelBold(on); }
    std::optional<bool> SelBullet() const { return m_box->SelBullet(); }
    void setSelBullet(bool on) { m_box->setSelBullet(on); }
    std::optional<quint32> SelColor() const { return m_box->SelColor(); }
    void setSelColor(quint32 color) { m_box->setSelColor(color); }
    std::optional<QString> SelFontName() const { return m_box->SelFontName(); }
    void setSelFontName(const QString &name) { m_box->setSelFontName(name); }
    std::optional<double> SelFontSize() const { return m_box->SelFontSize(); }
    void setSelFontSize(double points) { m_box->setSelFontSize(points); }
    std::optional<bool> SelItalic() const { return m_box->SelItalic(); }
    void setSelItalic(bool on) { m_box->setSelItalic(on); }
    std::optional<bool> SelProtected() const { return m_box->SelProtected(); }
    void setSelProtected(bool on) { m_box->setSelProtected(on); }
    std::optional<int> SelRightIndent() const { return m_box->SelRightIndent(); }
    void setSelRightIndent(int twips) { m_box->setSelRightIndent(twips); }
    std::optional<bool> SelStrikeThru() const { return m_box->SelStrikeThru(); }
    void setSelStrikeThru(bool on) { m_box->setSelStrikeThru(on); }
    std::optional<bool> SelUnderline() const { return m_box->SelUnderline(); }
    void setSelUnderline(bool on) { m_box->setSelUnderline(on); }

    // Look
    quint32 BackColor() const { return m_box->BackColor(); }
    void setBackColor(quint32 color);
    bool Enabled() const { return m_box->isEnabled(); }
    /// The box alone; the tool bar stays as it is.
    void setEnabled(bool enabled) { m_box->setEnabled(enabled); }
    QFont Font() const { return m_box->Font(); }
    void setFont(const QFont &font) { m_box->setFont(font); }
    QString ToolTipText() const { return m_box->toolTip(); }
    void setToolTipText(const QString &text) { m_box->setToolTip(text); }
    int MousePointer() const { return m_box->MousePointer(); }
    void setMousePointer(int pointer) { m_box->setMousePointer(pointer); }
    int BorderStyle() const { return m_box->BorderStyle(); }
    void setBorderStyle(int style) { m_box->setBorderStyle(style); }
    /// The native window that shows the box; the box has none of its own.
    WindowHandle hWnd() const { return m_box->effectiveWinId(); }

    // Tool bar, context menu, state
    /// Shows or hides `li` and runs the layout again. Initially shown.
    void ShowToolbar(bool visible);
    bool ToolBar() const;
    void setToolBar(bool visible) { ShowToolbar(visible); }
    /// Whether the tool bar lies on the box's paper, in its colours, and not on the window. Initially
    /// false.
    void setToolBarOnPaper(bool on);
    /// Whether the right mouse button opens the context menu. Initially true.
    void ContextMenu(bool enabled) { m_contextMenu = enabled; }
    /// Fills `Combo1` with the installed font families, in the system's order, and shows the
    /// selection's font in both combos. Runs by itself when the tool bar is first seen.
    void In_SetFonts();
    /// Brings combos and tool bar in line with the selection. Runs on every selection change.
    void RefreshControls();
    /// The enabled state of `C_SAVE`: the control's save state. Initially true.
    bool EnableSaveButton() const;
    void setEnableSaveButton(bool enabled);
    /// Whether links are detected and active. Initially false. Switching it on gives the links of
    /// the document the look of links, which is an edit; switching it off leaves their look.
    bool AutoURLDetect() const { return mAutoURLDetect; }
    void setAutoURLDetect(bool on);
    /// Runs the command of `C_OPEN`: a dialog for a file, rich or plain text by its extension, which takes
    /// the document's place. A file of another kind and one that cannot be read are told to the user.
    void openDocument();
    /// Gives the selection, and what is typed next where there is none, the look of a new document:
    /// upright, black, at the left and in no list; the pointer becomes the usual one.
    /// @param points  size of the font
    void resetLook(double points);
    /// Runs the `mnu_Paste` command.
    void Command_Pate() { mnu_Paste(); }
    /// Runs the `mnu_Print` command: a printer dialog, and the selection or the whole document.
    void NV_Print() { mnu_Print(); }
    /// Focus to the box.
    void SetFocus() { m_box->setFocus(); }

signals:
    /// `C_SAVE` was pressed. The control does not save: the host does.
    void SaveMe();
    /// @param KeyCode virtual key code  @param Shift 1 Shift, 2 Ctrl, 4 Alt
    void KeyDown(int KeyCode, int Shift);
    /// Before the key takes effect. A handler may change the UTF-16 unit; 0 drops the key.
    void KeyPress(int &KeyAscii);
    /// Declared and never raised: a selection change only runs RefreshControls().
    void SelChange();
    void Click();
    void DblClick();
    /// @param Button 1 left, 2 right, 4 middle (of a move: the sum of those held)
    /// @param X, Y   twips from the box's upper left corner
    void MouseDown(int Button, int Shift, double X, double Y);
    void MouseMove(int Button, int Shift, double X, double Y);
    /// Before the context menu.
    void MouseUp(int Button, int Shift, double X, double Y);
    void Change();
    void KeyUp(int KeyCode, int Shift);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void layOut();
    void prepareToolBar();
    void connectBox();

    // Commands
    bool formatKey(const QKeyEvent &event);
    void toolBarClick(const QString &key);
    void menuClick(const QString &name);
    void popUpMenu(const QPoint &position);
    /// Runs a command that asks something: not before the event that brought it is done with.
    void askLater(void (NV_RTFEdit::*command)());
    void newDocument();
    void chooseColor();
    void toggleBullet();
    void mnu_Cut();
    void mnu_Paste();
    void replaceSelection(const QString &text);
    void align(int alignment);
    void mnu_insert_obj();
    void openLater(const std::shared_ptr<const rtf::EmbeddedObject> &object);
    void mnu_Find();
    void mnu_Font();
    void mnu_Print();

    // Links
    void boxKeyDown(int code, int shift);
    void boxKeyPress(int &key);
    void boxMouseMove(int button, int shift, double x, double y);
    void boxMouseUp(int button, int shift, double x, double y);
    void boxClick();
    void checkTypedWord();
    QString wordUnderPointer(double x, double y);

    EditServices m_services;
    RichTextBox *m_box = nullptr;
    EditToolBar *m_toolBar = nullptr;
    EditMenu *m_menu = nullptr;
    FontChoice m_dialogFont; ///< what the font dialog showed last
    QString m_storedLink;    ///< address that the document itself gives to the text under the pointer
    bool m_contextMenu = true;
    bool m_toolBarOnPaper = false;
    bool m_fontsFilled = false;
    bool mAutoURLDetect = false;
};

} // namespace norvane
