#include "richtext/rtf/WriterTables.h"

#include "richtext/rtf/kept_pieces.h"

#include <algorithm>

namespace norvane::rtf {
namespace {

/// Calls a function for each format of a pool that the operations refer to, in their order.
template <typename Format, typename Function> class EachOnce
{
public:
    EachOnce(const FormatPool<Format> &pool, Function function)
        : m_pool(pool), m_function(function), m_seen(size_t(pool.size()))
    {
    }
    void operator()(int index)
    {
        if (!m_seen[size_t(index)])
            m_function(m_pool.at(index));
        m_seen[size_t(index)] = true;
    }

private:
    const FormatPool<Format> &m_pool;
    Function m_function;
    std::vector<bool> m_seen;
};

} // namespace

WriterTables::WriterTables(const Document &document)
    : m_defaultFont(document.defaultFont.isEmpty() ? QStringLiteral("Arial") : document.defaultFont),
      m_isWrapperUsed(document.wrappers.size())
{
    font(m_defaultFont, false);
    useText(document);
    useMarks(document);
    usePieces(document);
}

void WriterTables::useText(const Document &document)
{
    EachOnce characters(document.characterFormats, [this](const CharacterFormat &format) { use(format); });
    EachOnce paragraphs(document.paragraphFormats, [this](const ParagraphFormat &format) { use(format); });
    EachOnce rows(document.rowFormats, [this](const RowFormat &format) { use(format); });
    for (const Operation &operation : document.operations) {
        if (const auto *run = std::get_if<TextRun>(&operation)) {
            characters(run->format);
        } else if (const auto *end = std::get_if<ParagraphEnd>(&operation)) {
            characters(end->format);
            paragraphs(end->paragraphFormat);
        } else if (const auto *picture = std::get_if<PictureRun>(&operation)) {
            characters(picture->format);
        } else if (const auto *cell = std::get_if<CellEnd>(&operation)) {
            characters(cell->format);
            paragraphs(cell->paragraphFormat);
        } else if (const auto *row = std::get_if<RowEnd>(&operation)) {
            rows(row->rowFormat);
        }
    }
}

void WriterTables::useMarks(const Document &document)
{
    EachOnce marks(document.paragraphFormats, [this](const ParagraphFormat &format) {
        if (!format.item.list)
            return;
        if (format.item.list->number != 0)
            addList(format.item.list);
        for (const ListLevel &level : format.item.list->levels) {
            if (!level.font.isEmpty())
                font(level.font, level.symbol);
        }
    });
    for (const Operation &operation : document.operations) {
        if (const auto *end = std::get_if<ParagraphEnd>(&operation))
            marks(end->paragraphFormat);
        else if (const auto *cell = std::get_if<CellEnd>(&operation))
            marks(cell->paragraphFormat);
    }
}

void WriterTables::usePieces(const Document &document)
{
    written(document.styles);
    written(document.prologue);
    // Those around text are written, and those around them.
    for (size_t i = document.wrappers.size(); i > 0; --i) {
        const Wrapper &wrapper = document.wrappers[i - 1];
        if (m_isWrapperUsed[i - 1] && wrapper.outer >= 0)
            m_isWrapperUsed[size_t(wrapper.outer)] = true;
    }
    for (size_t i = 0; i < document.wrappers.size(); ++i) {
        if (m_isWrapperUsed[i])
            written(document.wrappers[i].begin);
    }
    for (const Operation &operation : document.operations) {
        if (const auto *piece = std::get_if<KeptPiece>(&operation)) {
            written(piece->bytes);
        } else if (const auto *run = std::get_if<PictureRun>(&operation)) {
            written(run->picture->original);
            written(run->picture->kept);
            if (run->picture->object)
                written(run->picture->object->kept);
        }
    }
}

void WriterTables::use(const CharacterFormat &format)
{
    font(format.font, format.symbol);
    color(format.color);
    color(format.background);
    color(format.underlineColor);
    if (format.wrapper >= 0)
        m_isWrapperUsed[size_t(format.wrapper)] = true;
}

void WriterTables::use(const ParagraphFormat &format)
{
    color(format.background);
    use(format.borders);
}

void WriterTables::use(const RowFormat &format)
{
    for (const CellFormat &cell : format.cells) {
        color(cell.background);
        use(cell.borders);
    }
}

void WriterTables::use(const Borders &borders)
{
    for (const Border &border : borders.values)
        color(border.color);
}

int WriterTables::font(const QString &name, bool symbol)
{
    const Font font{name.isEmpty() ? m_defaultFont : name, symbol};
    const auto known = m_fontNumbers.constFind(font);
    if (known != m_fontNumbers.constEnd())
        return *known;
    const int number = int(m_fonts.size());
    m_fonts.append(font);
    m_fontNumbers.insert(font, number);
    return number;
}

int WriterTables::color(std::optional<quint32> color)
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

QByteArray WriterTables::written(const QByteArray &piece)
{
    return writtenPiece(piece, {[this](const QString &name, bool symbol) { return font(name, symbol); },
                                [this](std::optional<quint32> value) { return color(value); }});
}

/// Gives a list its number, the one that it has where that is free, and an identity that it shares
/// with equal lists alone.
void WriterTables::addList(const std::shared_ptr<const List> &list)
{
    if (m_listNumbers.contains(list.get()))
        return;
    const auto same = std::find_if(m_lists.begin(), m_lists.end(), [&](const List &known) {
        return known.levels == list->levels && known.identity == list->identity &&
               known.number == list->number;
    });
    if (same != m_lists.end()) {
        m_listNumbers.insert(list.get(), same->number);
        return;
    }
    List written = *list;
    const auto firstFree = [](int wanted, const auto &taken) {
        while (taken(wanted))
            wanted = wanted >= 2'000'000'000 ? 1 : wanted + 1;
        return wanted;
    };
    written.number =
        firstFree(qMax(1, list->number), [this](int number) { return m_usedNumbers.contains(number); });
    written.identity = firstFree(list->identity, [&](int identity) {
        const auto known = m_identities.constFind(identity);
        return known != m_identities.constEnd() && m_lists[*known].levels != list->levels;
    });
    if (!m_identities.contains(written.identity))
        m_identities.insert(written.identity, m_lists.size());
    m_usedNumbers.insert(written.number);
    m_listNumbers.insert(list.get(), written.number);
    m_lists.push_back(std::move(written));
}

} // namespace norvane::rtf
