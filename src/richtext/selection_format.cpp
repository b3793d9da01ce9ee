#include "richtext/selection_format.h"

#include "richtext/format_conversion.h"
#include "richtext/format_properties.h"
#include "richtext/text_positions.h"

#include <QTextDocument>

namespace norvane {
namespace {

/// A value that all parts share, as far as they were looked at.
template <typename Value> class Common
{
public:
    void add(const Value &value)
    {
        if (!m_any)
            m_value = value;
        else if (m_value && *m_value != value)
            m_value.reset();
        m_any = true;
    }
    const std::optional<Value> &value() const { return m_value; }

private:
    bool m_any = false;
    std::optional<Value> m_value;
};

quint32 blueGreenRed(quint32 color)
{
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

int alignmentNumber(const rtf::ParagraphFormat &format)
{
    switch (format.alignment) {
    case rtf::Alignment::Leading:
        return format.rightToLeft ? 1 : 0;
    case rtf::Alignment::Left:
        return 0;
    case rtf::Alignment::Right:
        return 1;
    case rtf::Alignment::Center:
        return 2;
    case rtf::Alignment::Justify:
        break;
    }
    return 3;
}

/// Raised and lowered text has no amount of its own: it counts as a third of the text's size.
int charOffset(const QTextCharFormat &format, const QFont &base)
{
    const int third = qRound(pointSizeOf(format, base) * 20 / 3);
    switch (format.verticalAlignment()) {
    case QTextCharFormat::AlignSuperScript:
        return third;
    case QTextCharFormat::AlignSubScript:
        return -third;
    default:
        return 0;
    }
}

struct CommonCharacters
{
    Common<bool> bold, italic, isProtected, strikeThru, underline;
    Common<int> offset;
    Common<quint32> color;
    Common<QString> fontName;
    Common<double> fontSize;

    void add(const QTextCharFormat &format, const QFont &base)
    {
        bold.add(format.fontWeight() >= QFont::DemiBold);
        italic.add(format.fontItalic());
        isProtected.add(format.boolProperty(kProtectedProperty));
        strikeThru.add(format.fontStrikeOut());
        underline.add(format.underlineStyle() != QTextCharFormat::NoUnderline);
        offset.add(charOffset(format, base));
        color.add(blueGreenRed(colorOf(format).value_or(0)));
        fontName.add(fontFamilyOf(format, base));
        fontSize.add(pointSizeOf(format, base));
    }
};

} // namespace

SelectionFormat selectionFormatOf(const QTextCursor &selection, const QTextCharFormat &insertion)
{
    const QTextDocument &document = *selection.document();
    const QFont base = document.defaultFont();

    CommonCharacters characters;
    Common<int> alignment;
    Common<int> rightIndent;
    Common<int> tabCount;
    Common<bool> bullet;
    bool anyText = false;
    for (const auto &[from, to] : selectedRanges(selection)) {
        // A selection that ends at the start of a paragraph does not touch that paragraph.
        QTextBlock block = document.findBlock(from);
        do {
            const rtf::ParagraphFormat paragraph = paragraphFormat(block);
            alignment.add(alignmentNumber(paragraph));
            rightIndent.add(paragraph.rightIndent);
            tabCount.add(int(paragraph.tabs.size()));
            bullet.add(paragraph.isBullet());
            for (auto part = block.begin(); !part.atEnd() && from < to; ++part) {
                const QTextFragment fragment = part.fragment();
                if (fragment.position() >= to)
                    break;
                if (fragment.position() + fragment.length() > from) {
                    characters.add(fragment.charFormat(), base);
                    anyText = true;
                }
            }
            block = block.next();
        } while (block.isValid() && block.position() < to);
    }
    if (!anyText)
        characters.add(insertion, base);

    SelectionFormat format;
    format.alignment = alignment.value();
    format.bold = characters.bold.value();
    format.bullet = bullet.value();
    format.charOffset = characters.offset.value();
    format.color = characters.color.value();
    format.fontName = characters.fontName.value();
    format.fontSize = characters.fontSize.value();
    format.italic = characters.italic.value();
    format.isProtected = characters.isProtected.value();
    format.rightIndent = rightIndent.value();
    format.strikeThru = characters.strikeThru.value();
    format.tabCount = tabCount.value();
    format.underline = characters.underline.value();
    return format;
}

} // namespace norvane
