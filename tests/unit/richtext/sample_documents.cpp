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
    return format;
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
    format.bullet = oneIn(3);
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
    return format;
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
    }
    if (picture.kind == PictureKind::Wmf)
        picture.mapMode = random.bounded(1, 9);
    picture.bytes = samplePng();
    return picture;
}

QString describe(const CharacterFormat &format)
{
    QString text = QStringLiteral("%1 %2").arg(format.font).arg(format.halfPoints);
    const auto add = [&text](bool condition, const QString &word) {
        if (condition)
            text += u' ' + word;
    };
    add(format.bold, QStringLiteral("bold"));
    add(format.italic, QStringLiteral("italic"));
    add(format.strikeOut, QStringLiteral("strike"));
    add(format.isProtected, QStringLiteral("protected"));
    add(format.hidden, QStringLiteral("hidden"));
    add(format.symbol, QStringLiteral("symbol"));
    add(format.underline != Underline::None, QStringLiteral("underline%1").arg(int(format.underline)));
    add(format.script != Script::Normal, QStringLiteral("script%1").arg(int(format.script)));
    add(format.capitals != Capitals::Normal, QStringLiteral("capitals%1").arg(int(format.capitals)));
    add(format.color.has_value(),
        QStringLiteral("color=%1").arg(format.color.value_or(0), 6, 16, QChar(u'0')));
    add(format.background.has_value(),
        QStringLiteral("background=%1").arg(format.background.value_or(0), 6, 16, QChar(u'0')));
    return text;
}

QString describe(const ParagraphFormat &format)
{
    static const QStringList kAlignments = {QString(), QStringLiteral(" left"), QStringLiteral(" right"),
                                            QStringLiteral(" center"), QStringLiteral(" justify")};
    QString text = kAlignments.at(int(format.alignment));
    const auto add = [&text](const char *name, int value) {
        if (value != 0)
            text += QStringLiteral(" %1=%2").arg(QLatin1StringView(name)).arg(value);
    };
    add("li", format.leftIndent);
    add("ri", format.rightIndent);
    add("fi", format.firstIndent);
    add("sb", format.spaceBefore);
    add("sa", format.spaceAfter);
    add("sl", format.lineSpacing);
    add("slmult", format.lineSpacingMultiple);
    add("rtl", format.rightToLeft);
    add("bullet", format.bullet);
    add("pagebreak", format.pageBreakBefore);
    for (const Tab &tab : format.tabs)
        text += QStringLiteral(" tab%1=%2").arg(int(tab.kind)).arg(tab.position);
    return text;
}

struct Describer
{
    const Document &document;

    QString operator()(const TextRun &run) const
    {
        return QStringLiteral("text \"%1\" (%2)\n")
            .arg(run.text, describe(document.characterFormats.at(run.format)));
    }
    QString operator()(const ParagraphEnd &end) const
    {
        return QStringLiteral("end%1\n").arg(describe(document.paragraphFormats.at(end.paragraphFormat)));
    }
    QString operator()(const PictureRun &run) const
    {
        const Picture &picture = run.picture;
        return QStringLiteral("picture kind=%1 mode=%2 %3x%4 shown %5x%6 %7%8\n")
            .arg(int(picture.kind))
            .arg(picture.kind == PictureKind::Wmf ? picture.mapMode : 0)
            .arg(picture.width)
            .arg(picture.height)
            .arg(picture.displayWidth)
            .arg(picture.displayHeight)
            .arg(QString::fromLatin1(picture.bytes.toHex()),
                 picture.original.isEmpty()
                     ? QString()
                     : QStringLiteral(" for ") + QString::fromLatin1(picture.original));
    }
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
    QRandomGenerator random(seed);
    Document document;
    document.defaultFont = QStringLiteral("Arial");
    int lastFormat = -1;
    for (int paragraph = random.bounded(1, 12); paragraph > 0; --paragraph) {
        for (int part = random.bounded(0, 6); part > 0; --part) {
            const int format = document.characterFormats.indexOf(randomCharacters(random));
            if (random.bounded(8) == 0)
                document.operations.emplace_back(PictureRun{randomPicture(random), format});
            else if (format != lastFormat)
                document.operations.emplace_back(TextRun{kTexts.at(random.bounded(kTexts.size())), format});
            lastFormat = format;
        }
        if (lastFormat < 0)
            lastFormat = document.characterFormats.indexOf(randomCharacters(random));
        document.operations.emplace_back(
            ParagraphEnd{document.paragraphFormats.indexOf(randomParagraph(random)), lastFormat});
    }
    return document;
}

QString describe(const Document &document)
{
    QString text;
    for (const Operation &operation : document.operations)
        text += std::visit(Describer{document}, operation);
    return text;
}

} // namespace norvane::rtf
