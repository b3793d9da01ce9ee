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

/// Room that a mark needs at least before its text, in twips.
constexpr int kMarkRoom = 300;
constexpr double kHiddenPoints = 0.5;
/// What a step of QTextBlockFormat::indent() is.
constexpr double kIndentPixels = 40;
/// Percent of a line that a raise by the size of the font is.
constexpr double kLineHeightShare = 85;

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

/// The mark of a list out of HTML.
rtf::ListItem itemOf(const QTextListFormat &list)
{
    rtf::ListLevel level;
    switch (list.style()) {
    case QTextListFormat::ListDecimal:
        level.style = rtf::kArabic;
        break;
    case QTextListFormat::ListLowerAlpha:
        level.style = rtf::kLowerLetters;
        break;
    case QTextListFormat::ListUpperAlpha:
        level.style = rtf::kUpperLetters;
        break;
    case QTextListFormat::ListLowerRoman:
        level.style = rtf::kLowerRoman;
        break;
    case QTextListFormat::ListUpperRoman:
        level.style = rtf::kUpperRoman;
        break;
    default:
        return rtf::ListItem::bullet();
    }
    const bool hasSuffix = list.hasProperty(QTextFormat::ListNumberSuffix);
    level.text = list.numberPrefix() + QChar(1) + (hasSuffix ? list.numberSuffix() : u"."_qs);
    if (list.hasProperty(kListStartProperty))
        level.start = list.intProperty(kListStartProperty);
    rtf::List made;
    made.levels.push_back(level);
    return {std::make_shared<const rtf::List>(std::move(made)), 0};
}

} // namespace

double twipsPerPixel()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? Twips(screen->logicalDotsPerInchX(), screen->logicalDotsPerInchY()).perPixelX()
                  : Twips().perPixelX();
}

int firstLineRoom(int firstIndent)
{
    return qMax(-firstIndent, kMarkRoom);
}

bool isShownByOthers(const QString &font, bool isSymbol)
{
    return isSymbol && font.compare(u"Symbol", Qt::CaseInsensitive) == 0;
}

QTextCharFormat textFormat(const rtf::CharacterFormat &format)
{
    QTextCharFormat text;
    if (!format.font.isEmpty() && !isShownByOthers(format.font, format.symbol))
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
    if (format.underlineColor)
        text.setUnderlineColor(QColor(QRgb(*format.underlineColor)));
    if (format.raise != 0) {
        text.setProperty(kRaiseProperty, format.raise);
        text.setBaselineOffset(kLineHeightShare * format.raise / format.halfPoints);
    }
    if (format.spacing != 0) {
        text.setFontLetterSpacingType(QFont::AbsoluteSpacing);
        text.setFontLetterSpacing(format.spacing / twipsPerPixel());
    }
    if (format.language != 0)
        text.setProperty(kLanguageProperty, format.language);
    if (!format.kept.isEmpty())
        text.setProperty(kKeptWordsProperty, format.kept);
    if (!format.link.isEmpty()) {
        text.setAnchor(true);
        text.setAnchorHref(format.link);
        if (!format.linkTip.isEmpty())
            text.setToolTip(format.linkTip);
    }
    if (format.isProtected)
        text.setProperty(kProtectedProperty, true);
    if (format.symbol)
        text.setProperty(kSymbolProperty, format.font);
    if (format.hidden) {
        text.setProperty(kHiddenProperty, true);
        text.setProperty(kHiddenSizeProperty, format.halfPoints / 2.0);
        text.setFontPointSize(kHiddenPoints);
    }
    return text;
}

QString fontFamilyOf(const QTextCharFormat &format, const QFont &base)
{
    const QString symbolFont = format.stringProperty(kSymbolProperty);
    if (!symbolFont.isEmpty())
        return symbolFont;
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
    // What is typed into an empty cell of a table takes over the cell's format.
    const bool isOfCell = format.hasProperty(kCellProperty);
    rtf::CharacterFormat character;
    character.font = fontFamilyOf(format, base);
    character.halfPoints = qMax(1, qRound(pointSizeOf(format, base) * 2));
    character.bold = format.fontWeight() >= QFont::DemiBold;
    character.italic = format.fontItalic();
    character.strikeOut = format.fontStrikeOut();
    character.underline = underlineOf(format);
    if (isOfCell)
        character.script = rtf::Script::Normal;
    else if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript)
        character.script = rtf::Script::Superscript;
    else if (format.verticalAlignment() == QTextCharFormat::AlignSubScript)
        character.script = rtf::Script::Subscript;
    if (format.fontCapitalization() == QFont::AllUppercase)
        character.capitals = rtf::Capitals::All;
    else if (format.fontCapitalization() == QFont::SmallCaps)
        character.capitals = rtf::Capitals::Small;
    character.color = colorOf(format);
    if (!isOfCell && format.background().style() != Qt::NoBrush && format.background().color().alpha() != 0)
        character.background = format.background().color().rgb() & 0xFFFFFF;
    if (format.hasProperty(QTextFormat::TextUnderlineColor))
        character.underlineColor = format.underlineColor().rgb() & 0xFFFFFF;
    character.raise = format.intProperty(kRaiseProperty);
    if (format.fontLetterSpacingType() == QFont::AbsoluteSpacing)
        character.spacing = qRound(format.fontLetterSpacing() * twipsPerPixel());
    character.language = format.intProperty(kLanguageProperty);
    character.kept = format.property(kKeptWordsProperty).toByteArray();
    if (format.isAnchor()) {
        character.link = format.anchorHref();
        if (!character.link.isEmpty())
            character.linkTip = format.toolTip();
    }
    character.isProtected = format.boolProperty(kProtectedProperty);
    character.symbol = !format.stringProperty(kSymbolProperty).isEmpty();
    character.hidden = format.boolProperty(kHiddenProperty);
    return character;
}

QTextBlockFormat blockFormat(const rtf::ParagraphFormat &format)
{
    const double pixel = twipsPerPixel();
    QTextBlockFormat block;
    int firstIndent = format.firstIndent;
    if (const rtf::ListLevel *level = format.item.format()) {
        // The mark stands where the first line begins, its text as far as the mark needs it.
        block.setProperty(kListItemProperty, QVariant::fromValue(format.item));
        block.setProperty(kFirstIndentProperty, format.firstIndent);
        if (!level->text.isEmpty())
            firstIndent = firstLineRoom(format.firstIndent) + format.firstIndent;
    }
    if (format.leftIndent != 0)
        block.setLeftMargin(format.leftIndent / pixel);
    if (firstIndent != 0)
        block.setTextIndent(firstIndent / pixel);
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
    if (format.background)
        block.setBackground(QColor(QRgb(*format.background)));
    if (format.borders != rtf::Borders())
        block.setProperty(kBordersProperty, QVariant::fromValue(format.borders));
    if (!format.kept.isEmpty())
        block.setProperty(kKeptWordsProperty, format.kept);
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
    format.leftIndent = qRound((block.leftMargin() + block.indent() * kIndentPixels) * pixel);
    format.firstIndent = qRound(block.textIndent() * pixel);
    if (block.hasProperty(kListItemProperty)) {
        format.item = block.property(kListItemProperty).value<rtf::ListItem>();
        format.firstIndent = block.intProperty(kFirstIndentProperty);
    } else if (const QTextList *list = textBlock.textList()) { // out of HTML: its indent counts levels
        const int level = qMax(1, list->format().indent() + block.indent());
        format.item = itemOf(list->format());
        format.leftIndent = level * kDefaultBulletIndent;
        format.firstIndent = -kDefaultBulletIndent;
    }
    if (block.background().style() != Qt::NoBrush)
        format.background = block.background().color().rgb() & 0xFFFFFF;
    format.borders = block.property(kBordersProperty).value<rtf::Borders>();
    format.kept = block.property(kKeptWordsProperty).toByteArray();
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

void applyParagraphFormat(const QTextBlock &block, const rtf::ParagraphFormat &format)
{
    QTextBlockFormat text = blockFormat(format);
    if (const QVariant kept = block.blockFormat().property(kKeptPieceProperty); kept.isValid())
        text.setProperty(kKeptPieceProperty, kept);
    QTextCursor(block).setBlockFormat(text);
}

} // namespace norvane
