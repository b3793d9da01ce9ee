#include "richtext/rtf/operations.h"

#include <QHashFunctions>

namespace norvane::rtf {
namespace {

constexpr quint32 kNoColor = 0xFFFFFFFF;

} // namespace

size_t qHash(const CharacterFormat &format, size_t seed) noexcept
{
    // Hashed once for each change of format: the fields that tell formats apart most often.
    const quint32 flags =
        quint32(format.underline) | quint32(format.script) << 4 | quint32(format.capitals) << 6 |
        quint32(format.bold) << 8 | quint32(format.italic) << 9 | quint32(format.strikeOut) << 10 |
        quint32(format.isProtected) << 11 | quint32(format.hidden) << 12 | quint32(format.symbol) << 13;
    return qHashMulti(seed, format.font, format.halfPoints, format.color.value_or(kNoColor),
                      format.background.value_or(kNoColor), flags, format.raise, format.spacing,
                      format.language, format.link, format.wrapper);
}

size_t qHash(const ParagraphFormat &format, size_t seed) noexcept
{
    const quint32 flags = quint32(format.alignment) | quint32(format.rightToLeft) << 4 |
                          quint32(format.pageBreakBefore) << 6 | quint32(format.lineSpacingMultiple) << 7;
    const int list = format.item.list ? format.item.list->number : -1;
    size_t hash = qHashMulti(seed, format.leftIndent, format.rightIndent, format.firstIndent,
                             format.spaceBefore, format.spaceAfter, format.lineSpacing, flags, list,
                             format.item.level, format.background.value_or(kNoColor), format.kept);
    for (const Tab &tab : format.tabs)
        hash = qHashMulti(hash, tab.position, int(tab.kind));
    return hash;
}

size_t qHash(const RowFormat &format, size_t seed) noexcept
{
    size_t hash = qHashMulti(seed, format.left, format.gap, format.height, format.kept);
    for (const CellFormat &cell : format.cells)
        hash = qHashMulti(hash, cell.right, int(cell.merge), cell.background.value_or(kNoColor));
    return hash;
}

bool Picture::operator==(const Picture &other) const
{
    const bool sameObject = object == other.object || (object && other.object && *object == *other.object);
    return sameObject && kind == other.kind && mapMode == other.mapMode && width == other.width &&
           height == other.height && displayWidth == other.displayWidth &&
           displayHeight == other.displayHeight && crop == other.crop && bytes == other.bytes &&
           kept == other.kept && original == other.original;
}

QString Document::plainText() const
{
    QString text;
    for (const Operation &operation : operations) {
        if (const auto *run = std::get_if<TextRun>(&operation))
            text += run->text;
        else if (std::holds_alternative<ParagraphEnd>(operation) ||
                 std::holds_alternative<CellEnd>(operation))
            text += u'\n';
    }
    return text;
}

} // namespace norvane::rtf
