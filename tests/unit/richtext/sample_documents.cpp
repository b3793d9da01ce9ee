#include "sample_documents.h"

#include <QRandomGenerator>

namespace norvane::rtf {
namespace {

const QStringList kTexts = {
    QStringLiteral("plain"),
    QStringLiteral(" blanks around "),
    QStringLiteral("{braces} and \\slashes\\"),
    QStringLiteral("tab\tand\u2028line"),
    QStringLiteral("café – “quoted” …"),
    QStringLiteral("Привет"),
    QStringLiteral("שלום"),
    QStringLiteral("日本語"),
    QStringLiteral("😀 𝄞"),
    QStringLiteral("no\u00A0break\u2011hyphen\u00ADsoft"),
    QStringLiteral("-1"),
    QStringLiteral("7"),
};
const QStringList kFonts = {QStringLiteral("Arial"), QStringLiteral("Times New Roman"),
                            QStringLiteral("明朝"), QStringLiteral("Courier New")};

CharacterFormat randomCharacters(QRandomGenerator &random)
{
    const auto oneIn = [&random](int n) { return random.bounded(n) == 0; };
    CharacterFormat format;
    format.font = kFonts.at(random.bounded(kFonts.size()));
    format.halfPoints = random.bounded(2, 145);
    if (oneIn(3))
        format.color = random.bounded(0x1000000);
    if (oneIn(5))
        format.background = random.bounded(0x1000000);
    if (oneIn(3))
        format.underline = Underline(random.bounded(10));
    if (oneIn(5))
        format.script = Script(random.bounded(3));
    if (oneIn(6))
        format.capitals = Capitals(random.bounded(3));
    format.bold = oneIn(3);
    format.italic = oneIn(3);
    format.strikeOut = oneIn(6);
    format.isProtected = oneIn(8);
    format.hidden = oneIn(10);
    if (oneIn(9))
        format.underlineColor = random.bounded(0x1000000);
    if (oneIn(9))
        format.raise = random.bounded(-12, 12);
    if (oneIn(9))
        format.spacing = random.bounded(-20, 60);
    if (oneIn(4))
        format.language = 1031 + random.bounded(2);
    if (oneIn(9))
        format.kept = oneIn(2) ? "\\outl" : "\\charscalex80\\shad";
    if (oneIn(7)) {
        format.link = oneIn(2) ? QStringLiteral("http://example.org/?a=\\b\"c") : QStringLiteral("#place");
        if (oneIn(2))
            format.linkTip = QStringLiteral("tip");
    }
    return format;
}

/// A list of the table: levels that number each other, signs, prefixes.
std::shared_ptr<const List> numberedList(int number)
{
    List list;
    list.number = number;
    list.identity = 70 + number / 2;
    for (int level = 0; level < 3; ++level) {
        ListLevel format;
        format.style = level == 2 ? int(kBulletSign) : list.identity % 2 * 2 + level * 2;
        format.start = 1 + level;
        format.text = level == 0   ? QStringLiteral("\x01.")
                      : level == 1 ? QStringLiteral("(\x01–\x02)")
                                   : QStringLiteral("→");
        if (level == 2) {
            format.font = QStringLiteral("Symbol");
            format.symbol = true;
        }
        format.follow = level % 3;
        format.leftIndent = 360 * (level + 1);
        format.firstIndent = -360;
        list.levels.push_back(format);
    }
    return std::make_shared<const List>(list);
}

/// A mark that a paragraph states itself.
std::shared_ptr<const List> ownMark(int style)
{
    List list;
    ListLevel level;
    level.style = style;
    level.start = style + 1;
    level.text = QStringLiteral("{\x01)");
    level.font = QStringLiteral("Arial");
    list.levels.push_back(level);
    return std::make_shared<const List>(list);
}

Border randomBorder(QRandomGenerator &random)
{
    Border border;
    border.style = BorderStyle(random.bounded(1, 13));
    border.width = random.bounded(1, 60);
    border.space = random.bounded(0, 40);
    if (random.bounded(2) == 0)
        border.color = random.bounded(0x1000000);
    return border;
}

ParagraphFormat randomParagraph(QRandomGenerator &random)
{
    const auto oneIn = [&random](int n) { return random.bounded(n) == 0; };
    ParagraphFormat format;
    if (oneIn(2))
        return format;
    format.alignment = Alignment(random.bounded(5));
    format.rightToLeft = oneIn(6);
    if (format.alignment == Alignment::Left && !format.rightToLeft)
        format.alignment = Alignment::Leading;
    if (oneIn(5))
        format.setBullet(true);
    else if (oneIn(5))
        format.item = {ownMark(random.bounded(5)), 0};
    else if (oneIn(3))
        format.item = {numberedList(random.bounded(1, 5)), random.bounded(3)};
    format.leftIndent = random.bounded(0, 2000);
    format.firstIndent = random.bounded(-500, 500);
    format.rightIndent = random.bounded(0, 2000);
    format.spaceBefore = random.bounded(0, 400);
    format.spaceAfter = random.bounded(0, 400);
    if (oneIn(3)) {
        format.lineSpacingMultiple = oneIn(2);
        format.lineSpacing = random.bounded(1, 600) * (oneIn(3) && !format.lineSpacingMultiple ? -1 : 1);
    }
    format.pageBreakBefore = oneIn(9);
    for (int i = random.bounded(4); i > 0; --i)
        format.tabs.append({random.bounded(1, 9000), TabKind(random.bounded(4))});
    if (oneIn(4))
        format.background = random.bounded(0x1000000);
    for (const Side side : kSides) {
        if (oneIn(8))
            format.borders[side] = randomBorder(random);
    }
    if (oneIn(6))
        format.kept = "\\keepn\\outlinelevel2";
    return format;
}

RowFormat randomRow(QRandomGenerator &random)
{
    const auto oneIn = [&random](int n) { return random.bounded(n) == 0; };
    RowFormat row;
    row.left = 100 * random.bounded(-2, 4);
    row.gap = random.bounded(0, 120);
    row.header = oneIn(5);
    row.alignment = RowAlignment(random.bounded(3));
    row.rightToLeft = oneIn(8);
    if (oneIn(3))
        row.height = random.bounded(-900, 900);
    if (oneIn(4))
        row.padding[Side::Top] = random.bounded(0, 200);
    if (oneIn(4))
        row.kept = "\\trkeep";
    int right = row.left;
    for (int cells = random.bounded(1, 5); cells > 0; --cells) {
        CellFormat cell;
        cell.right = right += 100 * random.bounded(4, 30);
        cell.alignment = VerticalAlignment(random.bounded(3));
        if (oneIn(3))
            cell.background = random.bounded(0x1000000);
        for (const Side side : kSides) {
            if (oneIn(2))
                cell.borders[side] = randomBorder(random);
            if (oneIn(9))
                cell.padding[side] = random.bounded(0, 300);
        }
        if (oneIn(7))
            cell.kept = "\\clNoWrap";
        row.cells.append(cell);
    }
    return row;
}

Picture randomPicture(QRandomGenerator &random)
{
    Picture picture;
    picture.kind = PictureKind(random.bounded(6));
    picture.width = random.bounded(1, 500);
    picture.height = random.bounded(1, 500);
    if (random.bounded(2) == 0) {
        picture.displayWidth = random.bounded(15, 9000);
        picture.displayHeight = random.bounded(15, 9000);
        if (random.bounded(3) == 0)
            picture.crop[Side::Left] = random.bounded(1, 300);
    }
    if (picture.kind == PictureKind::Wmf)
        picture.mapMode = random.bounded(1, 9);
    picture.bytes = samplePng();
    if (random.bounded(4) == 0) {
        EmbeddedObject object;
        object.className = QStringLiteral("Package");
        object.data = QByteArray("\x01\x05\0\0data", 8);
        object.words = "\\objemb\\objh300\\objw500";
        object.kept = "{\\*\\objname a b}";
        picture.object = std::make_shared<const EmbeddedObject>(object);
    }
    return picture;
}

/// Fills a document with random parts.
class Maker
{
public:
    explicit Maker(quint32 seed) : m_random(seed) {}

    Document run()
    {
        m_document.defaultFont = QStringLiteral("Arial");
        m_document.prologue = m_random.bounded(3) == 0 ? "\\paperw11906{\\info{\\title A}}" : "";
        m_document.wrappers = {{"{\\field{\\*\\fldinst TOC}{\\fldrslt", -1},
                               {"{\\field{\\*\\fldinst PAGEREF a}{\\fldrslt", 0}};
        flow(0);
        return m_document;
    }

private:
    void flow(int depth)
    {
        bool afterTable = true; // two tables in a row would be one
        for (int part = m_random.bounded(1, depth == 0 ? 12 : 3); part > 0; --part) {
            if (!afterTable && depth < 3 && m_random.bounded(5) == 0) {
                table(depth + 1);
                afterTable = true;
            } else {
                text(depth == 0);
                endParagraph();
                afterTable = false;
            }
        }
        if (afterTable && depth == 0) // a text document has a paragraph behind a table
            endParagraph();
    }

    void endParagraph()
    {
        if (m_format < 0)
            text(false);
        m_document.operations.emplace_back(ParagraphEnd{paragraph(), m_format});
    }

    void table(int depth)
    {
        m_document.operations.emplace_back(TableBegin{});
        for (int rows = m_random.bounded(1, 4); rows > 0; --rows) {
            const RowFormat row = randomRow(m_random);
            for (qsizetype cell = 0; cell < row.cells.size(); ++cell) {
                if (m_random.bounded(6) == 0)
                    flow(depth);
                text(false);
                m_document.operations.emplace_back(CellEnd{paragraph(), m_format});
            }
            m_document.operations.emplace_back(RowEnd{m_document.rowFormats.indexOf(row)});
        }
        m_document.operations.emplace_back(TableEnd{});
    }

    int paragraph() { return m_document.paragraphFormats.indexOf(randomParagraph(m_random)); }

    /// Fields lie outside of tables, so that they are not cut at cells.
    void text(bool withFields)
    {
        int last = -1;
        for (int part = m_random.bounded(0, 6); part > 0; --part) {
            CharacterFormat characters = randomCharacters(m_random);
            if (withFields && m_random.bounded(6) == 0)
                characters.wrapper = m_random.bounded(2);
            m_format = m_document.characterFormats.indexOf(characters);
            if (m_random.bounded(12) == 0 &&
                (m_document.operations.empty() ||
                 !std::holds_alternative<KeptPiece>(m_document.operations.back())))
                m_document.operations.emplace_back(KeptPiece{"{\\*\\bkmkstart b}"});
            if (m_random.bounded(8) == 0)
                m_document.operations.emplace_back(
                    PictureRun{std::make_shared<const Picture>(randomPicture(m_random)), m_format});
            else if (m_format != last)
                m_document.operations.emplace_back(
                    TextRun{kTexts.at(m_random.bounded(kTexts.size())), m_format});
            last = m_format;
        }
        CharacterFormat end = m_document.characterFormats.size() > 0 && m_format >= 0
                                  ? m_document.characterFormats.at(m_format)
                                  : randomCharacters(m_random);
        if (!withFields)
            end.wrapper = -1;
        if (last < 0) { // an empty cell's look leaves no room for these
            end.background.reset();
            end.script = Script::Normal;
        }
        m_format = m_document.characterFormats.indexOf(end);
    }

    QRandomGenerator m_random;
    Document m_document;
    int m_format = -1;
};

QString colorText(std::optional<quint32> color)
{
    return color ? QStringLiteral("%1").arg(*color, 6, 16, QChar(u'0')) : QStringLiteral("auto");
}

/// Writes values that are not the usual ones, each behind a name.
class Words
{
public:
    void add(bool condition, const QString &word)
    {
        if (condition)
            text += (text.isEmpty() ? QString() : QStringLiteral(" ")) + word;
    }
    void number(const char *name, int value)
    {
        add(value != 0, QStringLiteral("%1=%2").arg(QLatin1StringView(name)).arg(value));
    }
    void color(const char *name, std::optional<quint32> value)
    {
        add(value.has_value(), QLatin1StringView(name) + u'=' + colorText(value));
    }
    void bytes(const char *name, const QByteArray &value)
    {
        add(!value.isEmpty(), QLatin1StringView(name) + u'=' + QString::fromLatin1(value));
    }
    void borders(const Borders &all)
    {
        for (const Side side : kSides) {
            const Border &border = all[side];
            add(border != Border(), QStringLiteral("border%1=%2/%3/%4/%5")
                                        .arg(int(side))
                                        .arg(int(border.style))
                                        .arg(border.width)
                                        .arg(border.space)
                                        .arg(colorText(border.color)));
        }
    }
    QString text;
};

QString describe(const CharacterFormat &format, const std::vector<Wrapper> &wrappers)
{
    Words words;
    words.text = QStringLiteral("%1 %2").arg(format.font).arg(format.halfPoints);
    words.add(format.bold, QStringLiteral("bold"));
    words.add(format.italic, QStringLiteral("italic"));
    words.add(format.strikeOut, QStringLiteral("strike"));
    words.add(format.isProtected, QStringLiteral("protected"));
    words.add(format.hidden, QStringLiteral("hidden"));
    words.add(format.symbol, QStringLiteral("symbol"));
    words.add(format.underline != Underline::None, QStringLiteral("underline%1").arg(int(format.underline)));
    words.add(format.script != Script::Normal, QStringLiteral("script%1").arg(int(format.script)));
    words.add(format.capitals != Capitals::Normal, QStringLiteral("capitals%1").arg(int(format.capitals)));
    words.color("color", format.color);
    words.color("background", format.background);
    words.color("ulc", format.underlineColor);
    words.number("raise", format.raise);
    words.number("spacing", format.spacing);
    words.number("lang", format.language);
    words.bytes("kept", format.kept);
    words.add(!format.link.isEmpty(), QStringLiteral("link=") + format.link + u'|' + format.linkTip);
    for (int wrapper = format.wrapper; wrapper >= 0; wrapper = wrappers[size_t(wrapper)].outer)
        words.bytes("in", wrappers[size_t(wrapper)].begin);
    return words.text;
}

QString describe(const ListItem &item)
{
    const ListLevel &level = *item.format();
    Words words;
    words.number("number", item.list->number);
    words.number("level", item.level);
    words.number("style", level.style);
    words.number("start", level.start);
    words.add(true, QString(level.text).replace(QChar(1), u"<1>"_qs).replace(QChar(2), u"<2>"_qs));
    words.add(!level.font.isEmpty(), level.font);
    words.number("symbol", level.symbol);
    words.number("follow", level.follow);
    return words.text;
}

QString describe(const ParagraphFormat &format)
{
    static const QStringList kAlignments = {QString(), QStringLiteral("left"), QStringLiteral("right"),
                                            QStringLiteral("center"), QStringLiteral("justify")};
    Words words;
    words.add(format.alignment != Alignment::Leading, kAlignments.at(int(format.alignment)));
    words.number("li", format.leftIndent);
    words.number("ri", format.rightIndent);
    words.number("fi", format.firstIndent);
    words.number("sb", format.spaceBefore);
    words.number("sa", format.spaceAfter);
    words.number("sl", format.lineSpacing);
    words.number("slmult", format.lineSpacingMultiple);
    words.number("rtl", format.rightToLeft);
    words.number("pagebreak", format.pageBreakBefore);
    words.add(format.item.format(), format.item == ListItem::bullet() ? QStringLiteral("bullet=1")
                                    : format.item.list ? u"item<"_qs + describe(format.item) + u'>'
                                                       : QString());
    words.color("background", format.background);
    words.borders(format.borders);
    words.bytes("kept", format.kept);
    for (const Tab &tab : format.tabs)
        words.add(true, QStringLiteral("tab%1=%2").arg(int(tab.kind)).arg(tab.position));
    return words.text.isEmpty() ? QString() : u' ' + words.text;
}

QString describe(const RowFormat &format)
{
    Words words;
    words.number("left", format.left);
    words.number("gap", format.gap);
    words.number("height", format.height);
    words.number("align", int(format.alignment));
    words.number("header", format.header);
    words.number("rtl", format.rightToLeft);
    words.bytes("kept", format.kept);
    const auto padding = [](Words &to, const Sides<std::optional<int>> &values) {
        for (const Side side : kSides)
            to.add(values[side].has_value(),
                   QStringLiteral("padding%1=%2").arg(int(side)).arg(values[side].value_or(0)));
    };
    padding(words, format.padding);
    for (const CellFormat &cell : format.cells) {
        Words inner;
        inner.number("right", cell.right);
        inner.number("merge", int(cell.merge));
        inner.number("valign", int(cell.alignment));
        inner.color("background", cell.background);
        inner.borders(cell.borders);
        padding(inner, cell.padding);
        inner.bytes("kept", cell.kept);
        words.add(true, u'[' + inner.text + u']');
    }
    return words.text;
}

QString describe(const Picture &picture)
{
    Words words;
    words.text = QStringLiteral("kind=%1 mode=%2 %3x%4 shown %5x%6 %7")
                     .arg(int(picture.kind))
                     .arg(picture.kind == PictureKind::Wmf ? picture.mapMode : 0)
                     .arg(picture.width)
                     .arg(picture.height)
                     .arg(picture.displayWidth)
                     .arg(picture.displayHeight)
                     .arg(QString::fromLatin1(picture.bytes.toHex()));
    for (const Side side : kSides)
        words.number("crop", picture.crop[side]);
    words.bytes("kept", picture.kept);
    words.bytes("for", picture.original);
    if (picture.object) {
        words.add(true, u"object "_qs + picture.object->className);
        words.bytes("words", picture.object->words);
        words.bytes("kept", picture.object->kept);
        words.bytes("data", picture.object->data.toHex());
    }
    return words.text;
}

struct Describer
{
    const Document &document;

    QString characters(int index) const
    {
        return describe(document.characterFormats.at(index), document.wrappers);
    }
    QString operator()(const TextRun &run) const
    {
        return QStringLiteral("text \"%1\" (%2)\n").arg(run.text, characters(run.format));
    }
    QString operator()(const ParagraphEnd &end) const
    {
        return QStringLiteral("end%1\n").arg(describe(document.paragraphFormats.at(end.paragraphFormat)));
    }
    QString operator()(const PictureRun &run) const
    {
        return u"picture "_qs + describe(*run.picture) + u'\n';
    }
    QString operator()(const KeptPiece &piece) const
    {
        return u"kept "_qs + QString::fromLatin1(piece.bytes) + u'\n';
    }
    QString operator()(const TableBegin &) const { return u"table\n"_qs; }
    QString operator()(const CellEnd &end) const
    {
        return QStringLiteral("cell%1\n").arg(describe(document.paragraphFormats.at(end.paragraphFormat)));
    }
    QString operator()(const RowEnd &end) const
    {
        return QStringLiteral("row %1\n").arg(describe(document.rowFormats.at(end.rowFormat)));
    }
    QString operator()(const TableEnd &) const { return u"table end\n"_qs; }
};

} // namespace

QByteArray samplePng()
{
    return QByteArray::fromBase64(
        "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mP8z8BQDwAEhQGAhKmMIQ"
        "AAAABJRU5ErkJggg==");
}

Document sampleDocument(quint32 seed)
{
    return Maker(seed).run();
}

QString describe(const Document &document)
{
    QString text;
    if (!document.styles.isEmpty())
        text += u"styles "_qs + QString::fromLatin1(document.styles) + u'\n';
    if (!document.prologue.isEmpty())
        text += u"prologue "_qs + QString::fromLatin1(document.prologue) + u'\n';
    for (const Operation &operation : document.operations)
        text += std::visit(Describer{document}, operation);
    return text;
}

QString firstDifference(const Document &left, const Document &right)
{
    const QStringList leftLines = describe(left).split(u'\n');
    const QStringList rightLines = describe(right).split(u'\n');
    for (qsizetype line = 0; line < qMax(leftLines.size(), rightLines.size()); ++line) {
        const QString one = leftLines.value(line, u"nothing"_qs);
        const QString other = rightLines.value(line, u"nothing"_qs);
        if (one != other)
            return QStringLiteral("%1: %2\nbut %3").arg(line).arg(one, other);
    }
    return {};
}

} // namespace norvane::rtf
