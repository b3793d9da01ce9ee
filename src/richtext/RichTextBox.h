#pragma once

#include "platform/FileSystem.h"
#include "platform/WindowHandle.h"
#include "richtext/ParagraphPainter.h"
#include "richtext/PictureStore.h"
#include "richtext/links/word_checks.h"
#include "richtext/selection_format.h"
#include "richtext/text_positions.h"

#include <QTextEdit>
#include <functional>
#include <optional>

class QPagedPaintDevice;

namespace norvane {

/// The desktop's own window colour as a value of BackColor.
inline constexpr quint32 kSystemWindowColor = 0x80000005;

/// A text box with the members of a rich edit control.
///
/// Positions and lengths are UTF-16 units of Text, in which a paragraph ends with CR LF: both count.
/// Colours are in blue-green-red byte order (0xFF0000 is blue). A format property reads as
/// std::nullopt over a selection that mixes its values; with nothing selected it is the format that
/// the next typed character gets. Writing a format property changes the selection, or that format.
///
/// Nothing in a document is fetched or run: pictures are those that the document carries.
class RichTextBox : public QTextEdit
{
    Q_OBJECT

public:
    enum FileFormat { kRichText = 0, kPlainText = 1 };
    enum FindOption { kWholeWord = 2, kMatchCase = 4, kNoHighlight = 8 };

    /// @param files where LoadFile and SaveFile read and write; must outlive the box
    explicit RichTextBox(FileSystem &files, QWidget *parent = nullptr);
    ~RichTextBox() override;

    QString Text() const;
    /// Replaces the document; the format is that of Font.
    void setText(const QString &text);
    /// The whole document as rich text: plain ASCII.
    QByteArray TextRTF() const;
    /// Replaces the document and forgets what could be undone. Empty clears it. What is not rich
    /// text raises 321, and the old text stays.
    void setTextRTF(const QByteArray &rtf);

    /// Replaces the document. Raises what the file system raises; 321 when format is kRichText and
    /// the file is not rich text (the old text stays); 5 when there is no such format.
    void LoadFile(const QString &name, int format);
    /// Writes the file whole or not at all; plain text as UTF-8. Raises what the file system
    /// raises; 5 when there is no such format.
    void SaveFile(const QString &name, int format) const;

    QString SelText() const;
    /// Replaces the selection; the caret goes behind the new text.
    void setSelText(const QString &text);
    QByteArray SelRTF() const;
    /// Replaces the selection. Raises 321, and the old text stays.
    void setSelRTF(const QByteArray &rtf);

    int SelStart() const;
    /// Puts the caret there, with nothing selected; beyond the end is the end. Raises 5 below 0.
    void setSelStart(int position);
    int SelLength() const;
    /// Selects as much from SelStart on; beyond the end is the end. Raises 5 below 0.
    void setSelLength(int length);

    /// 0 left, 1 right, 2 centre; 3 for justified text from elsewhere.
    std::optional<int> SelAlignment() const;
    void setSelAlignment(int alignment);
    std::optional<bool> SelBold() const;
    void setSelBold(bool on);
    std::optional<bool> SelBullet() const;
    void setSelBullet(bool on);
    /// Twips above the line; negative: below. A document keeps only whether text is raised or
    /// lowered: it reads as a third of the text's size.
    std::optional<int> SelCharOffset() const;
    void setSelCharOffset(int twips);
    /// Text in the automatic colour reads as 0, and 0 makes it automatic: the paper's ink.
    std::optional<quint32> SelColor() const;
    void setSelColor(quint32 color);
    std::optional<QString> SelFontName() const;
    void setSelFontName(const QString &name);
    /// Points.
    std::optional<double> SelFontSize() const;
    void setSelFontSize(double points);
    std::optional<bool> SelItalic() const;
    void setSelItalic(bool on);
    /// Protected text cannot be changed by the user.
    std::optional<bool> SelProtected() const;
    void setSelProtected(bool on);
    /// Twips.
    std::optional<int> SelRightIndent() const;
    void setSelRightIndent(int twips);
    std::optional<bool> SelStrikeThru() const;
    void setSelStrikeThru(bool on);
    /// Tab stops of the paragraphs. Stops that are added stand half an inch apart behind the last.
    std::optional<int> SelTabCount() const;
    void setSelTabCount(int count);
    std::optional<bool> SelUnderline() const;
    void setSelUnderline(bool on);

    /// Finds and selects text between two positions (-1: from the selection's end, to the text's
    /// end).
    /// @param options sum of FindOption
    /// @return its position, or -1: then the selection is as it was
    int Find(const QString &text, int start = -1, int end = -1, int options = 0);

    /// The position of the character at a point of the viewport. A point beside the text of its line,
    /// or below the text, is on the end of the paragraph: its CR, or the end of the text.
    int CharFromPos(const QPoint &point) const;
    /// The paragraph of a position: with the CR LF before it, and with a CR behind it even where it is
    /// the last one.
    links::Piece paragraphAround(int position) const;
    /// From the begin of the paragraph before that of a position to @p behind units behind it.
    links::Piece textBefore(int position, int behind) const;
    /// The address that a document itself links a character to; empty if it does not.
    QString storedLinkAt(int position) const;
    /// Gives stretches of the text, in ascending order, the look of a link: blue and underlined. One
    /// edit in all; what already looks so is no edit.
    void applyLinkLook(const QVector<links::Span> &spans);

    /// How much pictures and objects of a text may take together, in bytes, for an object to go in.
    static constexpr qint64 kLargestEmbedded = qint64(64) << 20;
    qint64 embeddedBytes() const;
    /// Puts an embedded object in place of the selection, the caret behind it. Raises 5 when the
    /// picture shows no object, or the text has no room for it.
    void addOleObject(const rtf::Picture &picture);
    /// The object that is shown at a point of the viewport; nullptr if there is none.
    std::shared_ptr<const rtf::EmbeddedObject> objectAt(const QPoint &point) const;
    /// The object that is all of the selection; nullptr if there is none.
    std::shared_ptr<const rtf::EmbeddedObject> selectedObject() const;

    /// Whether the user may change the selection: the text is not locked, nothing in it protected.
    bool mayChangeSelection() const;
    bool CanUndo() const { return !isReadOnly() && document()->isUndoAvailable(); }
    /// Prints the selection; the whole document when nothing is selected. Text without a colour of
    /// its own is printed black.
    void SelPrint(QPagedPaintDevice &device) const;
    /// Prints the whole document, whatever is selected.
    void printAll(QPagedPaintDevice &device) const;

    /// The paper. Ink, the colour of text without a colour of its own, is dark on light paper and
    /// light on dark paper, whatever the desktop's palette.
    quint32 BackColor() const { return m_backColor; }
    void setBackColor(quint32 color);
    /// Indent that SelBullet gives to paragraphs without one, in twips. Initially 360. Raises 5 below 0.
    int BulletIndent() const { return m_bulletIndent; }
    void setBulletIndent(int twips);
    /// Font of text that names none, and of new documents.
    QFont Font() const;
    void setFont(const QFont &font);
    bool Locked() const { return isReadOnly(); }
    void setLocked(bool locked);
    /// 0 default, 1 arrow, 2 cross, 3 text, 11 hourglass, 99 hand.
    int MousePointer() const { return m_mousePointer; }
    void setMousePointer(int pointer);
    /// 0 none, 1 single line.
    int BorderStyle() const;
    void setBorderStyle(int style);

    /// Runs the layout of the whole text again.
    void layOutAgain();

signals:
    /// Events of the box; numbers and units as in NV_RTFEdit. A press that selects text by dragging is
    /// no Click.
    void KeyDown(int KeyCode, int Shift);
    void KeyPress(int &KeyAscii);
    void KeyUp(int KeyCode, int Shift);
    void SelChange();
    void Click();
    void DblClick();
    /// After DblClick, where it was on an object; never nullptr.
    void ObjectDblClick(const std::shared_ptr<const norvane::rtf::EmbeddedObject> &object);
    void MouseDown(int Button, int Shift, double X, double Y);
    void MouseMove(int Button, int Shift, double X, double Y);
    void MouseUp(int Button, int Shift, double X, double Y);
    void Change();
    /// The keyboard asks for the context menu, at a point of the viewport.
    void MenuKey(const QPoint &position);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void dropEvent(QDropEvent *event) override;

    QVariant loadResource(int type, const QUrl &name) override;
    QMimeData *createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;

private:
    using CharacterChange = std::function<void(QTextCharFormat &)>;
    using MouseSignal = void (RichTextBox::*)(int, int, double, double);
    using ParagraphChange = std::function<void(rtf::ParagraphFormat &)>;

    /// The format of a selection, as long as it stays the same.
    struct KnownFormat
    {
        int anchor = 0;
        int position = 0;
        QTextCharFormat typing;
        SelectionFormat format;
    };

    const QString &plainText() const;
    int textLength() const;
    const SelectionFormat &selectionFormat() const;
    void selectionMayHaveChanged();
    void changeCharacters(const CharacterChange &change);
    void changeCharacters(const QVector<Range> &ranges, const CharacterChange &change);
    void changeParagraphs(const ParagraphChange &change);
    void pastePlainText();
    void replaceDocument(const std::function<void(QTextCursor &)> &fill);
    void loadRichText(const QByteArray &rtf);
    void emitMouse(MouseSignal signal, int button, const QMouseEvent &from);
    bool keyPressed(QString &text);
    bool wouldChangeProtected(const QKeyEvent &event) const;
    bool isProtected(int from, int to) const;
    bool isOnProtectedSelection(const QPoint &point) const;

    FileSystem &m_files;
    PictureStore m_pictures;
    ParagraphPainter m_paragraphPainter;
    quint32 m_backColor = kSystemWindowColor;
    int m_mousePointer = 0;
    int m_bulletIndent = 360;
    bool m_leftPressed = false;
    bool m_keepSelection = false; ///< a press on a selection that may not be dragged away
    QPoint m_pressed;
    mutable std::optional<KnownFormat> m_selectionFormat; ///< nothing after an edit
    mutable std::optional<QString> m_plainText;
};

} // namespace norvane
