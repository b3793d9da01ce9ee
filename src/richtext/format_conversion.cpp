#include "richtext/format_conversion.h"

#include "richtext/format_properties.h"
#include "shell/Twips.h"

#include <QBrush>
#include <QGuiApplication>
#include <QScreen>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QTextOption>

namespace norvane {
namespace {

/// Room that a bullet needs at the left of its text, in twips.
constexpr int kBulletRoom = 300;
constexpr double kHiddenPoints = 0.5;

QTextCharFormat::UnderlineStyle underlineStyle(rtf::Underline underline)
{
    switch (underline) {
    case rtf::Underline::None:
        return QTextCharFormat::NoUnderline;
    case rtf::Underline::Dotted:
        return QTextCharFormat::DotLine;
    case rtf::Underline::Dash:
        return QTextCharFormat::DashUnderline;
    case rtf::Underline::DashDot:
        return QTextCharFormat::DashDotLine;
    case rtf::Underline::DashDotDot:
        return QTextCharFormat::DashDotDotLine;
    case rtf::Underline::Wave:
        return QTextCharFormat::WaveUnderline;
    case rtf::Underline::Single:
    case rtf::Underline::Words:
    case rtf::Underline::Double:
    case rtf::Underline::Thick:
        break;
    }
    return QTextCharFormat::SingleUnderline;
}

rtf::Underline underlineOf(const QTextCharFormat &format)
{
    // The property tells which kind was meant, as long as the text is underlined as it was then.
    const auto meant = rtf::Underline(format.intProperty(kUnderlineProperty));
    switch (format.underlineStyle()) {
    case QTextCharFormat::NoUnderline:
        return rtf::Underline::None;
    case QTextCharFormat::DotLine:
        return rtf::Underline::Dotted;
    case QTextCharFormat::DashUnderline:
        return rtf::Underline::Dash;
    case QTextCharFormat::DashDotLine:
        return rtf::Underline::DashDot;
    case QTextCharFormat::DashDotDotLine:
        return rtf::Underline::DashDotDot;
    case QTextCharFormat::WaveUnderline:
    case QTextCharFormat::SpellCheckUnderline:
        return rtf::Underline::Wave;
    case QTextCharFormat::SingleUnderline:
        break;
    }
    return format.hasProperty(kUnderlineProperty) ? meant : rtf::Underline::Single;
}

QTextOption::TabType tabType(rtf::TabKind kind)
{
    switch (kind) {
    case rtf::TabKind::Right:
        return QTextOption::RightTab;
    case rtf::TabKind::Center:
        return QTextOption::CenterTab;
    case rtf::TabKind::Decimal:
        return QTextOption::DelimiterTab;
    case rtf::TabKind::Left:
        break;
    }
    return QTextOption::LeftTab;
}

rtf::TabKind tabKind(QTextOption::TabType type)
{
    switch (type) {
    case QTextOption::RightTab:
        return rtf::TabKind::Right;
    case QTextOption::CenterTab:
        return rtf::TabKind::Center;
    case QTextOption::DelimiterTab:
        return rtf::TabKind::Decimal;
    case QTextOption::LeftTab:
        break;
    }
    return rtf::TabKind::Left;
}

void setAlignment(QTextBlockFormat &block, const rtf::ParagraphFormat &format)
{
    // An absolute side holds whatever direction the text has. Left without a direction stays free,
    // so that a paragraph of Hebrew begins at the right by itself.
    switch (format.alignment) {
    case rtf::Alignment::Leading:
        break;
    case rtf::Alignment::Left:
        if (format.rightToLeft)
            block.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
        break;
    case rtf::Alignment::Right:
        block.setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
        break;
    case rtf::Alignment::Center:
        block.setAlignment(Qt::AlignHCenter);
        break;
    case rtf::Alignment::Justify:
        block.setAlignment(Qt::AlignJustify);
        break;
    }
}

rtf::Alignment alignmentOf(const QTextBlockFormat &block)
{
    if (!block.hasProperty(QTextFormat::BlockAlignment))
        return rtf::Alignment::Leading;
    const Qt::Alignment alignment = block.alignment();
    if (alignment & Qt::AlignHCenter)
        return rtf::Alignment::Center;
    if (alignment & Qt::AlignJustify)
        return rtf::Alignment::Justify;
    if (alignment & Qt::AlignRight)
        return rtf::Alignment::Right;
    return block.layoutDirection() == Qt::RightToLeft ? rtf::Alignment::Left : rtf::Alignment::Leading;
}

void setLineSpacing(QTextBlockFormat &block, const rtf::ParagraphFormat &format)
{
    if (format.lineSpacing == 0)
        return;
    if (format.lineSpacingMultiple)
        block.setLineHeight(qAbs(format.lineSpacing) / 2.4, QTextBlockFormat::ProportionalHeight);
    else if (format.lineSpacing > 0)
        block.setLineHeight(format.lineSpacing / twipsPerPixel(), QTextBlockFormat::MinimumHeight);
    else
        block.setLineHeight(-format.lineSpacing / twipsPerPixel(), QTextBlockFormat::FixedHeight);
}

void readLineSpacing(const QTextBlockFormat &block, rtf::ParagraphFormat &format)
{
    switch (block.lineHeightType()) {
    case QTextBlockFormat::ProportionalHeight:
        format.lineSpacing = qRound(block.lineHeight() * 2.4);
        format.lineSpacingMultiple = true;
        break;
    case QTextBlockFormat::MinimumHeight:
        format.lineSpacing = qRound(block.lineHeight() * twipsPerPixel());
        break;
    case QTextBlockFormat::FixedHeight:
        format.lineSpacing = -qRound(block.lineHeight() * twipsPerPixel());
        break;
    default:
        break;
    }
}

} // namespace

double twipsPerPixel()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? Twips(screen->logicalDotsPerInchX(), screen->logicalDotsPerInchY()).perPixelX()
                  : Twips().perPixelX();
}

QTextCharFormat textFormat(const rtf::CharacterFormat &format)
{
    QTextCharFormat text;
    if (!format.font.isEmpty())
        text.setFontFamilies({format.font});
    text.setFontPointSize(format.halfPoints / 2.0);
    if (format.bold)
        text.setFontWeight(QFont::Bold);
    if (format.italic)
        text.setFontItalic(true);
    if (format.strikeOut)
        text.setFontStrikeOut(true);
    if (format.underline != rtf::Underline::None) {
        text.setUnderlineStyle(underlineStyle(format.underline));
        if (format.underline == rtf::Underline::Words || format.underline == rtf::Underline::Double ||
            format.underline == rtf::Underline::Thick)
            text.setProperty(kUnderlineProperty, int(format.underline));
    }
    if (format.script != rtf::Script::Normal)
        text.setVerticalAlignment(format.script == rtf::Script::Superscript
                                      ? QTextCharFormat::AlignSuperScript
                                      : QTextCharFormat::AlignSubScript);
    if (format.capitals != rtf::Capitals::Normal)
        text.setFontCapitalization(format.capitals == rtf::Capitals::All ? QFont::AllUppercase
                                                                         : QFont::SmallCaps);
    if (format.color) {
        if (*format.color == 0)
            text.setProperty(kBlackProperty, true);
        else
            text.setForeground(QColor(QRgb(*format.color)));
    }
    if (format.background)
        text.setBackground(QColor(QRgb(*format.background)));
    if (format.isProtected)
        text.setProperty(kProtectedProperty, true);
    if (format.symbol)
        text.setProperty(kSymbolProperty, true);
    if (format.hidden) {
        text.setProperty(kHiddenProperty, true);
        text.setProperty(kHiddenSizeProperty, format.halfPoints / 2.0);
        text.setFontPointSize(kHiddenPoints);
    }
    return text;
}

QString fontFamilyOf(const QTextCharFormat &format, const QFont &base)
{
    const QStringList families = format.fontFamilies().toStringList();
    return families.isEmpty() || families.first().isEmpty() ? base.family() : families.first();
}

double pointSizeOf(const QTextCharFormat &format, const QFont &base)
{
    if (format.boolProperty(kHiddenProperty))
        return format.doubleProperty(kHiddenSizeProperty);
    if (format.hasProperty(QTextFormat::FontPointSize))
        return format.fontPointSize();
    if (format.hasProperty(QTextFormat::FontPixelSize))
        return format.intProperty(QTextFormat::FontPixelSize) * twipsPerPixel() / 20.0;
    // Steps of HTML's font sizes, relative to the document's own.
    static constexpr double kSteps[] = {0.7, 0.8, 1.0, 1.2, 1.5, 2.0, 2.4};
    const int step = qBound(-2, format.intProperty(QTextFormat::FontSizeAdjustment), 4);
    return base.pointSizeF() * kSteps[step + 2];
}

std::optional<quint32> colorOf(const QTextCharFormat &format)
{
    if (format.boolProperty(kBlackProperty))
        return 0;
    if (format.foreground().style() == Qt::NoBrush)
        return std::nullopt;
    return format.foreground().color().rgb() & 0xFFFFFF;
}

rtf::CharacterFormat characterFormat(const QTextCharFormat &format, const QFont &base)
{
    rtf::CharacterFormat character;
    character.font = fontFamilyOf(format, base);
    character.halfPoints = qMax(1, qRound(pointSizeOf(format, base) * 2));
    character.bold = format.fontWeight() >= QFont::DemiBold;
    character.italic = format.fontItalic();
    character.strikeOut = format.fontStrikeOut();
    character.underline = underlineOf(format);
    if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript)
        character.script = rtf::Script::Superscript;
    else if (format.verticalAlignment() == QTextCharFormat::AlignSubScript)
        character.script = rtf::Script::Subscript;
    if (format.fontCapitalization() == QFont::AllUppercase)
        character.capitals = rtf::Capitals::All;
    else if (format.fontCapitalization() == QFont::SmallCaps)
        character.capitals = rtf::Capitals::Small;
    character.color = colorOf(format);
    if (format.background().style() != Qt::NoBrush && format.background().color().alpha() != 0)
        character.background = format.background().color().rgb() & 0xFFFFFF;
    character.isProtected = format.boolProperty(kProtectedProperty);
    character.symbol = format.boolProperty(kSymbolProperty);
    character.hidden = format.boolProperty(kHiddenProperty);
    return character;
}

QTextBlockFormat blockFormat(const rtf::ParagraphFormat &format)
{
    const double pixel = twipsPerPixel();
    QTextBlockFormat block;
    if (format.bullet) {
        // A bullet is drawn in the margin before its text: the text begins at the left indent.
        block.setLeftMargin(qMax(format.leftIndent, kBulletRoom) / pixel);
        block.setProperty(kLeftIndentProperty, format.leftIndent);
        block.setProperty(kFirstIndentProperty, format.firstIndent);
    } else {
        if (format.leftIndent != 0)
            block.setLeftMargin(format.leftIndent / pixel);
        if (format.firstIndent != 0)
            block.setTextIndent(format.firstIndent / pixel);
    }
    if (format.rightIndent != 0)
        block.setRightMargin(format.rightIndent / pixel);
    if (format.spaceBefore != 0)
        block.setTopMargin(format.spaceBefore / pixel);
    if (format.spaceAfter != 0)
        block.setBottomMargin(format.spaceAfter / pixel);
    if (format.rightToLeft)
        block.setLayoutDirection(Qt::RightToLeft);
    if (format.pageBreakBefore)
        block.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    setAlignment(block, format);
    setLineSpacing(block, format);
    if (!format.tabs.isEmpty()) {
        QList<QTextOption::Tab> tabs;
        for (const rtf::Tab &tab : format.tabs)
            tabs.append(QTextOption::Tab(tab.position / pixel, tabType(tab.kind), u'.'));
        block.setTabPositions(tabs);
    }
    return block;
}

rtf::ParagraphFormat paragraphFormat(const QTextBlock &textBlock)
{
    const double pixel = twipsPerPixel();
    const QTextBlockFormat block = textBlock.blockFormat();
    rtf::ParagraphFormat format;
    format.bullet = textBlock.textList() != nullptr;
    if (format.bullet && block.hasProperty(kLeftIndentProperty)) {
        format.leftIndent = block.intProperty(kLeftIndentProperty);
        format.firstIndent = block.intProperty(kFirstIndentProperty);
    } else if (format.bullet) { // a list out of HTML: its indent counts levels
        const int level = qMax(1, textBlock.textList()->format().indent() + block.indent());
        format.leftIndent = level * kDefaultBulletIndent;
        format.firstIndent = -kDefaultBulletIndent;
    } else {
        format.leftIndent = qRound((block.leftMargin() + block.indent() * 40) * pixel);
        format.firstIndent = qRound(block.textIndent() * pixel);
    }
    format.rightIndent = qRound(block.rightMargin() * pixel);
    format.spaceBefore = qRound(block.topMargin() * pixel);
    format.spaceAfter = qRound(block.bottomMargin() * pixel);
    format.rightToLeft =
        block.hasProperty(QTextFormat::LayoutDirection) && block.layoutDirection() == Qt::RightToLeft;
    format.pageBreakBefore = block.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore;
    format.alignment = alignmentOf(block);
    readLineSpacing(block, format);
    const QList<QTextOption::Tab> tabs = block.tabPositions();
    for (const QTextOption::Tab &tab : tabs)
        format.tabs.append({qRound(tab.position * pixel), tabKind(tab.type)});
    return format;
}

QTextListFormat bulletListFormat()
{
    QTextListFormat list;
    list.setStyle(QTextListFormat::ListDisc);
    list.setIndent(0);
    return list;
}

void applyParagraphFormat(const QTextBlock &block, const rtf::ParagraphFormat &format)
{
    QTextCursor cursor(block);
    cursor.beginEditBlock();
    QTextBlockFormat text = blockFormat(format);
    if (format.bullet) {
        QTextList *list = block.textList() ? block.textList() : block.previous().textList();
        if (list)
            text.setObjectIndex(list->objectIndex());
        cursor.setBlockFormat(text);
        if (!list)
            cursor.createList(bulletListFormat());
    } else {
        cursor.setBlockFormat(text);
    }
    cursor.endEditBlock();
}

} // namespace norvane
