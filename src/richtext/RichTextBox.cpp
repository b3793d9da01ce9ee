#include "richtext/RichTextBox.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "richtext/SmoothPictures.h"
#include "richtext/document_builder.h"
#include "richtext/document_reader.h"
#include "richtext/format_conversion.h"
#include "richtext/format_properties.h"
#include "richtext/paper_colors.h"
#include "richtext/plain_text_file.h"
#include "richtext/rtf/read.h"
#include "richtext/rtf/writer.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTextList>

namespace norvane {
namespace {

const QString kSource = QStringLiteral("RichTextBox");

QFont standardFont()
{
    return QFont(QStringLiteral("Arial"), 10);
}

rtf::Document documentFrom(const QByteArray &rtf)
{
    std::optional<rtf::Document> document = rtf::read(rtf);
    if (!document)
        throw RuntimeError(kErrorFileFormat, QStringLiteral("This is not a rich text document."), kSource);
    return std::move(*document);
}

/// Text with any kind of line end for a text cursor, which begins a paragraph at "\n".
QString forCursor(QString text)
{
    return text.replace(u"\r\n"_qs, u"\n"_qs).replace(u'\r', u'\n').replace(u'\v', QChar::LineSeparator);
}

} // namespace

RichTextBox::RichTextBox(FileSystem &files, QWidget *parent) : QTextEdit(parent), m_files(files)
{
    setAcceptRichText(true);
    setFrameShape(QFrame::NoFrame);
    setTabChangesFocus(false);
    viewport()->setMouseTracking(true);
    setFont(standardFont());
    setMousePointer(0);
    SmoothPictures::takeOver(*document()->documentLayout());

    connect(document(), &QTextDocument::contentsChanged, this, [this] {
        m_plainText.reset();
        m_selectionFormat.reset();
        emit Change();
    });
    connect(this, &QTextEdit::selectionChanged, this, &RichTextBox::selectionMayHaveChanged);
    connect(this, &QTextEdit::cursorPositionChanged, this, &RichTextBox::selectionMayHaveChanged);
    connect(this, &QTextEdit::currentCharFormatChanged, this, &RichTextBox::selectionMayHaveChanged);
}

RichTextBox::~RichTextBox() = default;

void RichTextBox::selectionMayHaveChanged()
{
    emit SelChange();
}

const QString &RichTextBox::plainText() const
{
    if (!m_plainText)
        m_plainText = textBetween(*document(), 0, document()->characterCount() - 1);
    return *m_plainText;
}

QString RichTextBox::Text() const
{
    return plainText();
}

void RichTextBox::replaceDocument(const std::function<void(QTextCursor &)> &fill)
{
    // What could be undone belongs to the old text. As one edit, hosts hear of one change.
    document()->setUndoRedoEnabled(false);
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
    cursor.setBlockFormat({});
    fill(cursor);
    cursor.endEditBlock();
    document()->setUndoRedoEnabled(true);

    QTextCursor caret(document());
    setTextCursor(caret);
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
}

void RichTextBox::setText(const QString &text)
{
    replaceDocument([&text](QTextCursor &cursor) {
        cursor.setCharFormat({});
        cursor.setBlockCharFormat({});
        cursor.insertText(forCursor(text), {});
    });
    setCurrentCharFormat({});
}

QByteArray RichTextBox::TextRTF() const
{
    return rtf::write(readDocument(*document()));
}

void RichTextBox::setTextRTF(const QByteArray &rtf)
{
    if (rtf.isEmpty()) {
        // An empty document has no format of its own: the one that was to be typed in stays.
        const QTextCharFormat typing = currentCharFormat();
        replaceDocument([](QTextCursor &) {});
        setCurrentCharFormat(typing);
        return;
    }
    loadRichText(rtf);
}

void RichTextBox::loadRichText(const QByteArray &rtf)
{
    const rtf::Document source = documentFrom(rtf);
    replaceDocument([&](QTextCursor &cursor) {
        cursor.setBlockCharFormat({});
        m_pictures = PictureStore();
        buildDocument(source, cursor, m_pictures, Extent::WholeDocument);
    });
    QTextCursor caret(document());
    if (caret.block().length() > 1)
        setCurrentCharFormat(caret.block().begin().fragment().charFormat());
}

void RichTextBox::LoadFile(const QString &name, int format)
{
    if (format == kRichText)
        loadRichText(m_files.read(name));
    else if (format == kPlainText)
        setText(textOfFile(m_files.read(name)));
    else
        throw RuntimeError(kErrorInvalidCall, QStringLiteral("There is no such file format."), kSource);
}

void RichTextBox::SaveFile(const QString &name, int format) const
{
    if (format == kRichText)
        m_files.write(name, TextRTF());
    else if (format == kPlainText)
        m_files.write(name, fileOfText(plainText()));
    else
        throw RuntimeError(kErrorInvalidCall, QStringLiteral("There is no such file format."), kSource);
}

QString RichTextBox::SelText() const
{
    const Range selected = selectedRange(textCursor());
    return textBetween(*document(), selected.from, selected.to);
}

void RichTextBox::setSelText(const QString &text)
{
    QTextCursor cursor = textCursor();
    cursor.insertText(forCursor(text));
    setTextCursor(cursor);
}

QByteArray RichTextBox::SelRTF() const
{
    const QTextCursor cursor = textCursor();
    return rtf::write(readDocument(*document(), cursor.selectionStart(), cursor.selectionEnd(), false));
}

void RichTextBox::setSelRTF(const QByteArray &rtf)
{
    const rtf::Document source = documentFrom(rtf);
    QTextCursor cursor = textCursor();
    buildDocument(source, cursor, m_pictures, Extent::Piece);
    setTextCursor(cursor);
}

void RichTextBox::setBackColor(quint32 color)
{
    m_backColor = color;
    // A system colour follows the desktop's palette, any other is the paper's own.
    setPalette(color & 0x80000000 ? QPalette() : paperPalette(QPalette(), colorFromBlueGreenRed(color)));
}

void RichTextBox::setBulletIndent(int twips)
{
    if (twips < 0)
        throw RuntimeError(kErrorInvalidCall, QStringLiteral("An indent is not below 0."), kSource);
    m_bulletIndent = twips;
}

QFont RichTextBox::Font() const
{
    return document()->defaultFont();
}

void RichTextBox::setFont(const QFont &font)
{
    QTextEdit::setFont(font); // of the widget: the document follows it
    m_selectionFormat.reset();
}

void RichTextBox::setLocked(bool locked)
{
    // A locked text can still be walked through, selected and copied.
    setReadOnly(locked);
    if (locked)
        setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setMousePointer(m_mousePointer);
}

void RichTextBox::setMousePointer(int pointer)
{
    m_mousePointer = pointer;
    switch (pointer) {
    case 1:
        viewport()->setCursor(Qt::ArrowCursor);
        break;
    case 2:
        viewport()->setCursor(Qt::CrossCursor);
        break;
    case 11:
        viewport()->setCursor(Qt::WaitCursor);
        break;
    case 99:
        viewport()->setCursor(Qt::PointingHandCursor);
        break;
    default:
        viewport()->setCursor(Qt::IBeamCursor);
        break;
    }
}

int RichTextBox::BorderStyle() const
{
    return frameShape() == QFrame::NoFrame ? 0 : 1;
}

void RichTextBox::setBorderStyle(int style)
{
    setFrameShape(style == 0 ? QFrame::NoFrame : QFrame::StyledPanel);
}

void RichTextBox::layOutAgain()
{
    document()->markContentsDirty(0, document()->characterCount());
}

} // namespace norvane
