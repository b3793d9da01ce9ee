// The format properties of RichTextBox: reading what a selection has in common, changing it.

#include "richtext/RichTextBox.h"
#include "richtext/format_conversion.h"
#include "richtext/format_properties.h"
#include "richtext/paper_colors.h"

#include <QTextBlock>
#include <QVector>

namespace norvane {
namespace {

/// Sets or takes away a flag: a format without the property is the plain one.
void setFlag(QTextCharFormat &format, int property, bool on)
{
    if (on)
        format.setProperty(property, true);
    else
        format.clearProperty(property);
}

constexpr quint32 kLinkColor = 0xFF0000; // pure blue, in blue-green-red

void setColor(QTextCharFormat &format, quint32 color)
{
    format.clearProperty(kBlackProperty);
    if (color == 0 || color & 0x80000000)
        format.clearForeground();
    else
        format.setForeground(colorFromBlueGreenRed(color));
}

void setUnderline(QTextCharFormat &format, bool on)
{
    format.clearProperty(QTextFormat::FontUnderline);
    format.clearProperty(kUnderlineProperty);
    if (on)
        format.setUnderlineStyle(QTextCharFormat::SingleUnderline);
    else
        format.clearProperty(QTextFormat::TextUnderlineStyle);
}

} // namespace

const SelectionFormat &RichTextBox::selectionFormat() const
{
    // One change of the selection is told of several times, and asked about by several properties.
    const QTextCursor cursor = textCursor();
    const QTextCharFormat typing = currentCharFormat();
    if (!m_selectionFormat || m_selectionFormat->anchor != cursor.anchor() ||
        m_selectionFormat->position != cursor.position() || m_selectionFormat->typing != typing)
        m_selectionFormat = {cursor.anchor(), cursor.position(), typing, selectionFormatOf(cursor, typing)};
    return m_selectionFormat->format;
}

void RichTextBox::changeCharacters(const CharacterChange &change)
{
    m_selectionFormat.reset();
    QTextCursor cursor = textCursor();
    if (!cursor.hasSelection()) {
        QTextCharFormat typing = currentCharFormat();
        change(typing);
        setCurrentCharFormat(typing);
        return;
    }

    changeCharacters(selectedRanges(cursor), change);
}

void RichTextBox::changeCharacters(const QVector<Range> &ranges, const CharacterChange &change)
{
    m_selectionFormat.reset();
    struct Part
    {
        int from;
        int to;
        QTextCharFormat format;
    };
    QVector<Part> parts;
    QVector<QTextBlock> emptyParagraphs;
    // One way through the document, however many ranges stand in one paragraph.
    QTextBlock block;
    QTextBlock::iterator part;
    for (const Range &range : ranges) {
        if (!block.isValid() || range.from >= block.position() + block.length()) {
            block = document()->findBlock(range.from);
            part = block.begin();
        }
        while (block.isValid() && block.position() < range.to) {
            if (block.length() == 1)
                emptyParagraphs.append(block);
            for (; !part.atEnd(); ++part) {
                const QTextFragment fragment = part.fragment();
                const int begin = qMax(range.from, fragment.position());
                const int end = qMin(range.to, fragment.position() + fragment.length());
                if (begin < end)
                    parts.append({begin, end, fragment.charFormat()});
                if (fragment.position() + fragment.length() >= range.to)
                    break;
            }
            if (!part.atEnd())
                break;
            block = block.next();
            part = block.begin();
        }
    }

    QTextCursor edit(document());
    bool edited = false;
    const auto begin = [&] {
        if (!edited)
            edit.beginEditBlock();
        edited = true;
    };
    for (const Part &changed : std::as_const(parts)) {
        QTextCharFormat format = changed.format;
        change(format);
        if (format == changed.format)
            continue;
        begin();
        edit.setPosition(changed.from);
        edit.setPosition(changed.to, QTextCursor::KeepAnchor);
        edit.setCharFormat(format);
    }
    for (const QTextBlock &empty : std::as_const(emptyParagraphs)) {
        edit.setPosition(empty.position());
        const QTextCharFormat before = edit.blockCharFormat();
        QTextCharFormat format = before;
        change(format);
        if (format == before)
            continue;
        begin();
        edit.setBlockCharFormat(format);
    }
    if (edited)
        edit.endEditBlock();
}

void RichTextBox::applyLinkLook(const QVector<links::Span> &spans)
{
    QVector<Range> ranges;
    ranges.reserve(spans.size());
    for (const links::Span &span : spans) {
        const int end = int(qMin(qint64(span.from) + span.length, qint64(textLength())));
        ranges.append({documentPosition(*document(), span.from), documentPosition(*document(), end)});
    }
    changeCharacters(ranges, [](QTextCharFormat &format) {
        setColor(format, kLinkColor);
        setUnderline(format, true);
    });
}

void RichTextBox::changeParagraphs(const ParagraphChange &change)
{
    m_selectionFormat.reset();
    QTextCursor edit = textCursor();
    const QVector<Range> ranges = selectedRanges(edit);
    edit.beginEditBlock();
    for (const Range &range : ranges) {
        QTextBlock block = document()->findBlock(range.from);
        do {
            rtf::ParagraphFormat format = paragraphFormat(block);
            change(format);
            applyParagraphFormat(block, format);
            block = block.next();
        } while (block.isValid() && block.position() < range.to);
    }
    edit.endEditBlock();
    m_selectionFormat.reset();
}

std::optional<int> RichTextBox::SelAlignment() const
{
    return selectionFormat().alignment;
}

void RichTextBox::setSelAlignment(int alignment)
{
    changeParagraphs([alignment](rtf::ParagraphFormat &format) {
        if (alignment == 1)
            format.alignment = rtf::Alignment::Right;
        else if (alignment == 2)
            format.alignment = rtf::Alignment::Center;
        else if (alignment == 3)
            format.alignment = rtf::Alignment::Justify;
        else
            format.alignment = format.rightToLeft ? rtf::Alignment::Left : rtf::Alignment::Leading;
    });
}

std::optional<bool> RichTextBox::SelBold() const
{
    return selectionFormat().bold;
}

void RichTextBox::setSelBold(bool on)
{
    changeCharacters([on](QTextCharFormat &format) {
        if (on)
            format.setFontWeight(QFont::Bold);
        else
            format.clearProperty(QTextFormat::FontWeight);
    });
}

std::optional<bool> RichTextBox::SelBullet() const
{
    return selectionFormat().bullet;
}

void RichTextBox::setSelBullet(bool on)
{
    changeParagraphs([on, indent = m_bulletIndent](rtf::ParagraphFormat &format) {
        const bool standard = format.leftIndent == indent && format.firstIndent == -indent;
        if (on && !format.item.list && format.leftIndent == 0 && format.firstIndent == 0) {
            format.leftIndent = indent;
            format.firstIndent = -indent;
        } else if (!on && format.isBullet() && standard) {
            format.leftIndent = 0;
            format.firstIndent = 0;
        }
        if (on != format.isBullet())
            format.setBullet(on);
    });
}

std::optional<int> RichTextBox::SelCharOffset() const
{
    return selectionFormat().charOffset;
}

void RichTextBox::setSelCharOffset(int twips)
{
    changeCharacters([twips](QTextCharFormat &format) {
        if (twips == 0)
            format.clearProperty(QTextFormat::TextVerticalAlignment);
        else
            format.setVerticalAlignment(twips > 0 ? QTextCharFormat::AlignSuperScript
                                                  : QTextCharFormat::AlignSubScript);
    });
}

std::optional<quint32> RichTextBox::SelColor() const
{
    return selectionFormat().color;
}

void RichTextBox::setSelColor(quint32 color)
{
    changeCharacters([color](QTextCharFormat &format) { setColor(format, color); });
}

std::optional<QString> RichTextBox::SelFontName() const
{
    return selectionFormat().fontName;
}

void RichTextBox::setSelFontName(const QString &name)
{
    changeCharacters([&name](QTextCharFormat &format) {
        format.setFontFamilies({name});
        format.clearProperty(kSymbolProperty); // signs are characters that any font may have
    });
}

std::optional<double> RichTextBox::SelFontSize() const
{
    return selectionFormat().fontSize;
}

void RichTextBox::setSelFontSize(double points)
{
    if (!(points > 0)) // also not a number
        return;
    changeCharacters([points](QTextCharFormat &format) {
        format.clearProperty(QTextFormat::FontPixelSize);
        format.clearProperty(QTextFormat::FontSizeAdjustment);
        if (format.boolProperty(kHiddenProperty))
            format.setProperty(kHiddenSizeProperty, points);
        else
            format.setFontPointSize(points);
    });
}

std::optional<bool> RichTextBox::SelItalic() const
{
    return selectionFormat().italic;
}

void RichTextBox::setSelItalic(bool on)
{
    changeCharacters([on](QTextCharFormat &format) { setFlag(format, QTextFormat::FontItalic, on); });
}

std::optional<bool> RichTextBox::SelProtected() const
{
    return selectionFormat().isProtected;
}

void RichTextBox::setSelProtected(bool on)
{
    changeCharacters([on](QTextCharFormat &format) { setFlag(format, kProtectedProperty, on); });
}

std::optional<int> RichTextBox::SelRightIndent() const
{
    return selectionFormat().rightIndent;
}

void RichTextBox::setSelRightIndent(int twips)
{
    changeParagraphs([twips](rtf::ParagraphFormat &format) { format.rightIndent = twips; });
}

std::optional<bool> RichTextBox::SelStrikeThru() const
{
    return selectionFormat().strikeThru;
}

void RichTextBox::setSelStrikeThru(bool on)
{
    changeCharacters([on](QTextCharFormat &format) { setFlag(format, QTextFormat::FontStrikeOut, on); });
}

std::optional<int> RichTextBox::SelTabCount() const
{
    return selectionFormat().tabCount;
}

void RichTextBox::setSelTabCount(int count)
{
    constexpr int kLeastTabs = 0;
    constexpr int kMostTabs = 32;
    constexpr int kHalfInch = 720;
    const int wanted = qBound(kLeastTabs, count, kMostTabs);
    changeParagraphs([wanted](rtf::ParagraphFormat &format) {
        while (format.tabs.size() > wanted)
            format.tabs.removeLast();
        while (format.tabs.size() < wanted) {
            const int last = format.tabs.isEmpty() ? 0 : format.tabs.last().position;
            format.tabs.append({last + kHalfInch, rtf::TabKind::Left});
        }
    });
}

std::optional<bool> RichTextBox::SelUnderline() const
{
    return selectionFormat().underline;
}

void RichTextBox::setSelUnderline(bool on)
{
    changeCharacters([on](QTextCharFormat &format) { setUnderline(format, on); });
}

} // namespace norvane
