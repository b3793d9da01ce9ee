#include "richtext/rtf/writer.h"

#include <optional>

namespace norvane::rtf {
namespace {

constexpr char kLineEnd[] = "\r\n";
constexpr qsizetype kHexPerLine = 64; ///< bytes of a picture in a line

QByteArray hexByte(char16_t value)
{
    return QByteArray::number(value, 16).rightJustified(2, '0');
}

/// Fonts and colours of the document, numbered in the order in which they are used.
class Tables
{
public:
    explicit Tables(const Document &document)
    {
        m_defaultFont = document.defaultFont.isEmpty() ? QStringLiteral("Arial") : document.defaultFont;
        fontNumber({m_defaultFont, false});
        for (const Operation &operation : document.operations)
            std::visit([&](const auto &value) { use(document.characterFormats.at(value.format)); },
                       operation);
        for (const Operation &operation : document.operations) {
            const auto *end = std::get_if<ParagraphEnd>(&operation);
            if (end && document.paragraphFormats.at(end->paragraphFormat).bullet) {
                m_bulletFont = fontNumber({QStringLiteral("Symbol"), true});
                break;
            }
        }
    }

    int font(const CharacterFormat &format)
    {
        return fontNumber({format.font.isEmpty() ? m_defaultFont : format.font, format.symbol});
    }
    /// 0 is the automatic colour.
    int color(std::optional<quint32> color)
    {
        if (!color)
            return 0;
        const auto known = m_colorNumbers.constFind(*color);
        if (known != m_colorNumbers.constEnd())
            return *known;
        m_colors.append(*color);
        const int number = int(m_colors.size());
        m_colorNumbers.insert(*color, number);
        return number;
    }
    int bulletFont() const { return m_bulletFont; }

    struct Font
    {
        QString name;
        bool symbol = false;

        bool operator==(const Font &) const = default;
        friend size_t qHash(const Font &font, size_t seed = 0)
        {
            return qHashMulti(seed, font.name, font.symbol);
        }
    };
    const QVector<Font> &fonts() const { return m_fonts; }
    const QVector<quint32> &colors() const { return m_colors; }

private:
    void use(const CharacterFormat &format)
    {
        font(format);
        color(format.color);
        color(format.background);
    }
    int fontNumber(const Font &font)
    {
        const auto known = m_fontNumbers.constFind(font);
        if (known != m_fontNumbers.constEnd())
            return *known;
        const int number = int(m_fonts.size());
        m_fonts.append(font);
        m_fontNumbers.insert(font, number);
        return number;
    }

    QString m_defaultFont;
    QVector<Font> m_fonts;
    QHash<Font, int> m_fontNumbers;
    QVector<quint32> m_colors;
    QHash<quint32, int> m_colorNumbers;
    int m_bulletFont = 0;
};

class Writer
{
public:
    explicit Writer(const Document &document) : m_document(document), m_tables(document) {}

    QByteArray run()
    {
        header();
        const auto &operations = m_document.operations;
        // A paragraph's format is known at its end, and written at its begin.
        for (size_t begin = 0; begin < operations.size();) {
            size_t end = begin;
            while (end < operations.size() && !std::holds_alternative<ParagraphEnd>(operations[end]))
                ++end;
            if (end == operations.size())
                beginParagraph({});
            else
                beginParagraph(
                    m_document.paragraphFormats.at(std::get<ParagraphEnd>(operations[end]).paragraphFormat));
            const size_t next = qMin(end + 1, operations.size());
            for (; begin < next; ++begin)
                std::visit([this](const auto &value) { add(value); }, operations[begin]);
        }
        m_out += "}";
        m_out += kLineEnd;
        return m_out;
    }

private:
    void header()
    {
        m_out = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl";
        int number = 0;
        for (const Tables::Font &font : m_tables.fonts()) {
            m_out += "{\\f" + QByteArray::number(number++) + "\\fnil\\fcharset" + (font.symbol ? "2 " : "0 ");
            QString name = font.name;
            text(name.remove(u';'), false);
            m_out += ";}";
        }
        m_out += "}";
        m_out += kLineEnd;
        if (!m_tables.colors().isEmpty()) {
            m_out += "{\\colortbl ;";
            for (const quint32 color : m_tables.colors())
                m_out += "\\red" + QByteArray::number(color >> 16 & 0xFF) + "\\green" +
                         QByteArray::number(color >> 8 & 0xFF) + "\\blue" + QByteArray::number(color & 0xFF) +
                         ";";
            m_out += "}";
            m_out += kLineEnd;
        }
        m_out += "\\viewkind4\\uc1";
    }

    void word(const char *letters)
    {
        m_out += letters;
        m_needsBlank = true;
    }
    void word(const char *letters, int parameter)
    {
        m_out += letters;
        m_out += QByteArray::number(parameter);
        m_needsBlank = true;
    }
    void wordUnless0(const char *letters, int parameter)
    {
        if (parameter != 0)
            word(letters, parameter);
    }

    void beginParagraph(const ParagraphFormat &format)
    {
        const bool isNew = !m_paragraph || *m_paragraph != format;
        if (isNew)
            word("\\pard");
        if (format.bullet)
            bullet(isNew);
        if (!isNew)
            return;
        m_paragraph = format;
        if (format.rightToLeft)
            word("\\rtlpar");
        if (format.pageBreakBefore)
            word("\\pagebb");
        wordUnless0("\\fi", format.firstIndent);
        wordUnless0("\\li", format.leftIndent);
        wordUnless0("\\ri", format.rightIndent);
        wordUnless0("\\sb", format.spaceBefore);
        wordUnless0("\\sa", format.spaceAfter);
        if (format.lineSpacing != 0) {
            word("\\sl", format.lineSpacing);
            word("\\slmult", format.lineSpacingMultiple ? 1 : 0);
        }
        switch (format.alignment) {
        case Alignment::Leading:
            break;
        case Alignment::Left:
            word("\\ql");
            break;
        case Alignment::Right:
            word("\\qr");
            break;
        case Alignment::Center:
            word("\\qc");
            break;
        case Alignment::Justify:
            word("\\qj");
            break;
        }
        for (const Tab &tab : format.tabs) {
            if (tab.kind == TabKind::Right)
                word("\\tqr");
            else if (tab.kind == TabKind::Center)
                word("\\tqc");
            else if (tab.kind == TabKind::Decimal)
                word("\\tqdec");
            word("\\tx", tab.position);
        }
    }

    void bullet(bool isNew)
    {
        const QByteArray font = QByteArray::number(m_tables.bulletFont());
        m_out += "{\\pntext\\f" + font + "\\'B7\\tab}";
        if (isNew)
            m_out += "{\\*\\pn\\pnlvlblt\\pnf" + font + "\\pnindent0{\\pntxtb\\'B7}}";
        m_needsBlank = false;
    }

    void characters(int index)
    {
        if (index == m_characters)
            return;
        const CharacterFormat &to = m_document.characterFormats.at(index);
        const CharacterFormat from =
            m_characters < 0 ? CharacterFormat() : m_document.characterFormats.at(m_characters);
        const bool first = std::exchange(m_characters, index) < 0;

        if (const int color = m_tables.color(to.color); color != m_tables.color(from.color))
            word("\\cf", color);
        if (const int color = m_tables.color(to.background); color != m_tables.color(from.background))
            word("\\highlight", color);
        if (const int font = m_tables.font(to); first || font != m_tables.font(from))
            word("\\f", font);
        if (first || to.halfPoints != from.halfPoints)
            word("\\fs", to.halfPoints);
        toggle("\\b", from.bold, to.bold);
        toggle("\\i", from.italic, to.italic);
        toggle("\\strike", from.strikeOut, to.strikeOut);
        toggle("\\protect", from.isProtected, to.isProtected);
        toggle("\\v", from.hidden, to.hidden);
        if (to.underline != from.underline)
            underline(to.underline);
        if (to.script != from.script)
            word(to.script == Script::Normal        ? "\\nosupersub"
                 : to.script == Script::Superscript ? "\\super"
                                                    : "\\sub");
        if (to.capitals != from.capitals) {
            toggle("\\caps", from.capitals == Capitals::All, to.capitals == Capitals::All);
            toggle("\\scaps", from.capitals == Capitals::Small, to.capitals == Capitals::Small);
            if (to.capitals == Capitals::All && from.capitals == Capitals::Small)
                word("\\caps"); // the last word counts
        }
    }

    void toggle(const char *letters, bool from, bool to)
    {
        if (from == to)
            return;
        word(letters);
        if (!to)
            m_out += '0';
    }

    void underline(Underline kind)
    {
        static constexpr const char *kWords[] = {"\\ulnone",   "\\ul",    "\\ulw",    "\\uldb",
                                                 "\\ulth",     "\\uld",   "\\uldash", "\\uldashd",
                                                 "\\uldashdd", "\\ulwave"};
        word(kWords[size_t(kind)]);
    }

    void add(const TextRun &run)
    {
        characters(run.format);
        text(run.text, m_document.characterFormats.at(run.format).symbol);
    }

    void add(const ParagraphEnd &end)
    {
        characters(end.format);
        m_out += "\\par";
        m_out += kLineEnd;
        m_needsBlank = false;
    }

    void add(const PictureRun &run)
    {
        characters(run.format);
        picture(run.picture);
        m_needsBlank = false;
    }

    void picture(const Picture &picture)
    {
        if (!picture.original.isEmpty()) {
            m_out += picture.original;
            return;
        }
        static constexpr const char *kWords[] = {"\\pngblip",   "\\jpegblip", "\\dibitmap0",
                                                 "\\wmetafile", "\\emfblip",  "\\macpict"};
        m_out += "{\\pict";
        m_out += kWords[size_t(picture.kind)];
        if (picture.kind == PictureKind::Wmf)
            m_out += QByteArray::number(picture.mapMode);
        wordUnless0("\\picw", picture.width);
        wordUnless0("\\pich", picture.height);
        wordUnless0("\\picwgoal", picture.displayWidth);
        wordUnless0("\\pichgoal", picture.displayHeight);
        for (qsizetype i = 0; i < picture.bytes.size(); i += kHexPerLine) {
            m_out += kLineEnd;
            m_out += picture.bytes.mid(i, kHexPerLine).toHex();
        }
        m_out += "}";
    }

    void text(const QString &text, bool isSymbol)
    {
        for (const QChar character : text)
            unit(character.unicode(), isSymbol);
    }

    void unit(char16_t unit, bool isSymbol)
    {
        const bool isPlain = unit >= 0x20 && unit < 0x7F && (!isSymbol || unit == u' ');
        if (isPlain && unit != u'\\' && unit != u'{' && unit != u'}') {
            if (m_needsBlank)
                m_out += ' ';
            m_out += char(unit);
        } else if (isPlain) {
            m_out += '\\';
            m_out += char(unit);
        } else if (unit == u'\t') {
            word("\\tab");
            return;
        } else if (unit == QChar::LineSeparator) {
            word("\\line");
            return;
        } else if (unit == QChar::Nbsp && !isSymbol) {
            m_out += "\\~";
        } else if (unit == QChar::SoftHyphen && !isSymbol) {
            m_out += "\\-";
        } else if (unit == u'\u2011') {
            m_out += "\\_";
        } else if (isSymbol && unit > 0xF020 && unit <= 0xF0FF) {
            m_out += "\\'" + hexByte(unit & 0xFF);
        } else if (unit > 0xA0 && unit <= 0xFF && !isSymbol) {
            m_out += "\\'" + hexByte(unit); // the same in Unicode and in the code page of the file
        } else if (unit >= 0x20) {
            m_out += "\\u" + QByteArray::number(qint16(unit)) + '?';
        } else {
            return; // a control character: nothing is written
        }
        m_needsBlank = false;
    }

    const Document &m_document;
    Tables m_tables;
    QByteArray m_out;
    bool m_needsBlank = false; ///< a word was written last: text needs a blank before it
    int m_characters = -1;     ///< index of the format in force
    std::optional<ParagraphFormat> m_paragraph;
};

} // namespace

QByteArray write(const Document &document)
{
    return Writer(document).run();
}

} // namespace norvane::rtf
