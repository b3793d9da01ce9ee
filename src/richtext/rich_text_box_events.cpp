// The events of RichTextBox: keys, mouse, clipboard, and what a document may load.

#include "richtext/RichTextBox.h"
#include "richtext/document_builder.h"
#include "richtext/edit_mime_data.h"
#include "richtext/format_conversion.h"
#include "richtext/format_properties.h"
#include "richtext/html_document.h"
#include "richtext/rtf/read.h"
#include "richtext/virtual_keys.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QTextBlock>

namespace norvane {

/// Raises KeyPress for each unit of the text; false when nothing of it is left.
bool RichTextBox::keyPressed(QString &text)
{
    QString kept;
    for (const QChar unit : std::as_const(text)) {
        int key = unit.unicode();
        emit KeyPress(key);
        if (key != 0)
            kept += QChar(char16_t(key));
    }
    text = kept;
    return !kept.isEmpty();
}

void RichTextBox::keyPressEvent(QKeyEvent *event)
{
    constexpr auto kPlainPaste = Qt::ControlModifier | Qt::ShiftModifier;
    emit KeyDown(virtualKeyCode(*event), shiftState(event->modifiers()));
    QString text = event->text();
    if (!text.isEmpty() && !keyPressed(text)) {
        event->accept();
        return;
    }
    if (wouldChangeProtected(*event)) {
        event->accept();
        return;
    }
    if (event->key() == Qt::Key_V && event->modifiers() == kPlainPaste) {
        pastePlainText();
        event->accept();
    } else if (text == event->text()) {
        QTextEdit::keyPressEvent(event);
    } else {
        QKeyEvent changed(event->type(), 0, Qt::NoModifier, text, event->isAutoRepeat());
        QTextEdit::keyPressEvent(&changed);
        event->setAccepted(changed.isAccepted());
    }
}

void RichTextBox::keyReleaseEvent(QKeyEvent *event)
{
    emit KeyUp(virtualKeyCode(*event), shiftState(event->modifiers()));
    QTextEdit::keyReleaseEvent(event);
}

void RichTextBox::inputMethodEvent(QInputMethodEvent *event)
{
    QString text = event->commitString();
    const QTextCursor cursor = textCursor();
    const int from = cursor.selectionStart() + event->replacementStart();
    if (isProtected(from, qMax(cursor.selectionEnd(), from + event->replacementLength()))) {
        event->accept();
        return;
    }
    if (text.isEmpty()) {
        QTextEdit::inputMethodEvent(event);
        return;
    }
    keyPressed(text);
    QInputMethodEvent committed(event->preeditString(), event->attributes());
    committed.setCommitString(text, event->replacementStart(), event->replacementLength());
    QTextEdit::inputMethodEvent(&committed);
    event->setAccepted(committed.isAccepted());
}

/// Whether text between two positions is protected, or a place between two protected characters.
bool RichTextBox::isProtected(int from, int to) const
{
    const auto at = [this](int position) {
        QTextCursor cursor(document());
        cursor.setPosition(qBound(0, position + 1, document()->characterCount() - 1));
        return cursor.charFormat().boolProperty(kProtectedProperty);
    };
    if (from >= to)
        return from > 0 && at(from - 1) && at(from) && document()->characterCount() - 1 > from;
    for (QTextBlock block = document()->findBlock(from); block.isValid() && block.position() < to;
         block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            if (fragment.position() < to && fragment.position() + fragment.length() > from &&
                fragment.charFormat().boolProperty(kProtectedProperty))
                return true;
        }
    }
    return false;
}

bool RichTextBox::mayChangeSelection() const
{
    const Range selected = selectedRange(textCursor());
    return !isReadOnly() && !isProtected(selected.from, selected.to);
}

bool RichTextBox::wouldChangeProtected(const QKeyEvent &event) const
{
    QTextCursor cursor = textCursor();
    if (!cursor.hasSelection()) {
        if (event.matches(QKeySequence::DeleteStartOfWord))
            cursor.movePosition(QTextCursor::PreviousWord, QTextCursor::KeepAnchor);
        else if (event.matches(QKeySequence::DeleteEndOfWord))
            cursor.movePosition(QTextCursor::NextWord, QTextCursor::KeepAnchor);
        else if (event.matches(QKeySequence::DeleteEndOfLine))
            cursor.movePosition(QTextCursor::EndOfLine, QTextCursor::KeepAnchor);
        else if (event.key() == Qt::Key_Backspace)
            cursor.movePosition(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor);
        else if (event.key() == Qt::Key_Delete)
            cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    }
    const bool edits = event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete ||
                       event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter ||
                       event.matches(QKeySequence::Cut) || event.matches(QKeySequence::Paste) ||
                       event.matches(QKeySequence::DeleteEndOfLine) ||
                       (!event.text().isEmpty() && event.text().at(0).isPrint()) || event.text() == u"\t";
    const Range selected = selectedRange(cursor);
    return edits && isProtected(selected.from, selected.to);
}

void RichTextBox::emitMouse(MouseSignal signal, int button, const QMouseEvent &from)
{
    const double twips = twipsPerPixel();
    emit(this->*signal)(button, shiftState(from.modifiers()), from.position().x() * twips,
                        from.position().y() * twips);
}

void RichTextBox::mousePressEvent(QMouseEvent *event)
{
    emitMouse(&RichTextBox::MouseDown, buttonNumber(event->button()), *event);
    m_leftPressed = event->button() == Qt::LeftButton;
    m_pressed = event->position().toPoint();
    m_keepSelection = m_leftPressed && isOnProtectedSelection(m_pressed);
    QTextEdit::mousePressEvent(event);
}

/// Whether a press there would take hold of the selection, and of protected text with it.
bool RichTextBox::isOnProtectedSelection(const QPoint &point) const
{
    const QTextCursor selection = textCursor();
    const int position = cursorForPosition(point).position();
    return !isReadOnly() && position >= selection.selectionStart() && position < selection.selectionEnd() &&
           isProtected(selection.selectionStart(), selection.selectionEnd());
}

void RichTextBox::mouseMoveEvent(QMouseEvent *event)
{
    emitMouse(&RichTextBox::MouseMove, buttonNumber(event->buttons()), *event);
    // Without a button the base class would look for check boxes to point at, paragraph by paragraph.
    if (!m_keepSelection && event->buttons() != Qt::NoButton)
        QTextEdit::mouseMoveEvent(event);
    // It has its own idea of the pointer over links.
    setMousePointer(m_mousePointer);
}

void RichTextBox::mouseReleaseEvent(QMouseEvent *event)
{
    QTextEdit::mouseReleaseEvent(event);
    const QPoint released = event->position().toPoint();
    const bool dragged = (released - m_pressed).manhattanLength() >= QApplication::startDragDistance();
    const bool click = m_leftPressed && event->button() == Qt::LeftButton &&
                       viewport()->rect().contains(released) && !(dragged && textCursor().hasSelection());
    m_leftPressed = false;
    m_keepSelection = false;
    emitMouse(&RichTextBox::MouseUp, buttonNumber(event->button()), *event);
    if (click)
        emit Click();
}

void RichTextBox::mouseDoubleClickEvent(QMouseEvent *event)
{
    const std::shared_ptr<const rtf::EmbeddedObject> object = objectAt(event->position().toPoint());
    QTextEdit::mouseDoubleClickEvent(event);
    if (event->button() != Qt::LeftButton)
        return;
    const QPointer<RichTextBox> self(this);
    emit DblClick();
    if (object && self)
        emit ObjectDblClick(object);
}

void RichTextBox::contextMenuEvent(QContextMenuEvent *event)
{
    // The host opens its menu: on MouseUp for the mouse, by MenuKey for the keyboard.
    event->accept();
    if (event->reason() == QContextMenuEvent::Keyboard)
        emit MenuKey(cursorRect().bottomLeft());
}

void RichTextBox::dropEvent(QDropEvent *event)
{
    const int place = cursorForPosition(event->position().toPoint()).position();
    if (!isReadOnly() && !isProtected(place, place)) {
        QTextEdit::dropEvent(event);
        return;
    }
    // The base class would take the text away from where it was before it finds no place for it.
    QDragLeaveEvent leave;
    dragLeaveEvent(&leave);
    event->ignore();
}

QVariant RichTextBox::loadResource(int type, const QUrl &name)
{
    // Only what the document carries. An empty answer would let the base class look for files.
    if (type == QTextDocument::ImageResource)
        return m_pictures.image(name.toString());
    return QString(u""_qs);
}

QMimeData *RichTextBox::createMimeDataFromSelection() const
{
    return mimeDataOf(textCursor()).release();
}

bool RichTextBox::canInsertFromMimeData(const QMimeData *source) const
{
    return canInsertMimeData(*source);
}

void RichTextBox::insertFromMimeData(const QMimeData *source)
{
    if (!mayChangeSelection())
        return;
    QTextCursor cursor = textCursor();
    const QByteArray rtf = richTextOf(*source);
    const std::optional<rtf::Document> document = rtf::read(rtf);
    if (document) {
        buildDocument(*document, cursor, m_pictures, Extent::Piece);
    } else if (source->hasHtml() && !(source->hasImage() && isPictureAlone(source->html()))) {
        buildDocument(documentOfHtml(source->html(), Font(), viewport()->width()), cursor, m_pictures,
                      Extent::Piece);
    } else if (const std::optional<rtf::Picture> picture = pictureOf(*source)) {
        cursor.insertImage(m_pictures.add(*picture));
    } else if (source->hasText()) {
        cursor.insertText(source->text());
    }
    setTextCursor(cursor);
    ensureCursorVisible();
}

void RichTextBox::pastePlainText()
{
    const QMimeData *source = QApplication::clipboard()->mimeData();
    if (!source || !source->hasText() || !mayChangeSelection())
        return;
    QTextCursor cursor = textCursor();
    cursor.insertText(source->text());
    setTextCursor(cursor);
    ensureCursorVisible();
}

} // namespace norvane
