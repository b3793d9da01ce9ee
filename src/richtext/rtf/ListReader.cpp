#include "richtext/rtf/ListReader.h"

#include "richtext/rtf/clean_text.h"
#include "richtext/rtf/limits.h"
#include "richtext/rtf/symbol_fonts.h"

#include <utility>

namespace norvane::rtf {
namespace {

constexpr int kFirstPrivate = 0xF020;
constexpr int kLastPrivate = 0xF0FF;
const QString kBulletText = QStringLiteral("\u2022");

int length(const Token &token)
{
    return qBound(-kMaximumTwips, token.parameter, kMaximumTwips);
}

} // namespace

void MarkText::add(int unit)
{
    if (m_units.size() < kMaximumMarkLength)
        m_units.append(unit);
}

void MarkText::addBytes(QByteArrayView bytes)
{
    for (const char byte : bytes)
        add(-1 - static_cast<unsigned char>(byte));
}

void MarkText::addUnit(char16_t unit)
{
    if (unit >= 0x20)
        add(unit);
}

QString MarkText::text(const Font *font, CodePages &codePages, bool withNumbers) const
{
    const bool isSymbol = font && font->isSymbol();
    const int codePage = font && font->codePage > 0 ? font->codePage : kWesternCodePage;
    qsizetype begin = 0;
    qsizetype end = m_units.size();
    if (withNumbers && end > 0) {
        const int count = -1 - m_units.first();
        begin = 1;
        if (count >= 0)
            end = qMin(end, begin + count);
    }
    QString text;
    QString part; ///< of the text, that has not been cleaned
    for (qsizetype i = begin; i < end; ++i) {
        const int unit = m_units.at(i);
        const int byte = -1 - unit;
        if (byte >= 0 && withNumbers && byte <= kDeepestLevel) {
            text += cleanedText(std::exchange(part, {})) + QChar(byte + 1);
        } else if (byte >= 0x20 && !isSymbol) {
            const char encoded = char(byte);
            codePages.decode(QByteArrayView(&encoded, 1), codePage, part);
        } else if (byte >= 0x20) {
            part += QChar(symbolCharacter(font->name, static_cast<unsigned char>(byte)));
        } else if (isSymbol && unit >= kFirstPrivate && unit <= kLastPrivate) {
            part += QChar(symbolCharacter(font->name, static_cast<unsigned char>(unit & 0xFF)));
        } else if (unit >= 0x20) {
            part += QChar(char16_t(unit));
        }
    }
    return text + cleanedText(part);
}

void MarkReader::begin()
{
    m_before.clear();
    m_after.clear();
    m_font = kNoFont;
    m_style = kArabic;
    m_start = 1;
}

void MarkReader::handle(ControlWord word, const Token &token)
{
    if (word.word == Word::MarkStyle && word.argument != kUnchangedMark)
        m_style = word.argument;
    else if (word.word == Word::MarkFont)
        m_font = token.parameter;
    else if (word.word == Word::MarkStart)
        m_start = qBound(0, token.parameter, kMaximumStart);
}

ListItem MarkReader::end()
{
    if (m_style == kNoMark)
        return {};
    const Font *font = m_fonts.font(m_font);
    ListLevel level;
    level.style = m_style;
    level.start = m_start;
    if (font) {
        level.font = font->name;
        level.symbol = font->isSymbol();
    }
    const QString before = m_before.text(font, m_codePages, false);
    const QString after = m_after.text(font, m_codePages, false);
    if (m_style == kBulletSign)
        level.text = before.isEmpty() && after.isEmpty() ? kBulletText : before + after;
    else
        level.text = before + QChar(1) + after;

    const QString key = QString::number(level.style) + u' ' + QString::number(level.start) + u' ' +
                        QString::number(level.symbol) + level.font + QChar(0) + level.text;
    auto known = m_known.constFind(key);
    if (known == m_known.constEnd()) {
        if (m_known.size() >= kMaximumLists)
            return {};
        List list;
        list.levels.push_back(level);
        known = m_known.insert(key, std::make_shared<const List>(std::move(list)));
    }
    return {*known, 0};
}

ListReader::Level *ListReader::currentLevel()
{
    if (m_override) {
        const auto level = m_override->levels.find(m_overriddenLevel);
        return level == m_override->levels.end() ? nullptr : &*level;
    }
    return m_levels.empty() ? nullptr : &m_levels.back();
}

MarkText *ListReader::levelText()
{
    Level *level = currentLevel();
    return level ? &level->text : nullptr;
}

void ListReader::handle(ControlWord word, const Token &token)
{
    switch (word.word) {
    case Word::List:
        m_levels.clear();
        m_override.reset();
        break;
    case Word::ListIdentity:
        if (m_override)
            m_override->identity = token.parameter;
        else if (!m_levels.empty() && m_lists.size() < kMaximumLists)
            m_lists.insert(token.parameter, std::exchange(m_levels, {}));
        break;
    case Word::ListOverride:
        m_override = Override();
        m_overriddenLevel = -1;
        break;
    case Word::LevelOverride:
        if (m_override && m_overriddenLevel < kDeepestLevel)
            m_override->levels.insert(++m_overriddenLevel, {});
        break;
    case Word::ListNumber:
        if (m_override && m_overrides.size() < kMaximumLists) {
            m_override->number = token.parameter;
            m_overrides.insert(token.parameter, *std::exchange(m_override, std::nullopt));
        }
        break;
    case Word::ListLevel:
        if (!m_override && m_levels.size() <= size_t(kDeepestLevel))
            m_levels.emplace_back();
        break;
    default:
        if (Level *level = currentLevel())
            handleLevelWord(word, token, *level);
        break;
    }
}

void ListReader::handleLevelWord(ControlWord word, const Token &token, Level &level)
{
    switch (word.word) {
    case Word::LevelStyle:
        level.format.style = qBound(0, token.parameter, int(kNoNumber));
        break;
    case Word::LevelStart:
        level.format.start = qBound(0, token.parameter, kMaximumStart);
        level.startStated = true;
        break;
    case Word::LevelFollow:
        level.format.follow = qBound(0, token.parameter, 2);
        break;
    case Word::LevelAlignment:
        level.format.alignment = qBound(0, token.parameter, 2);
        break;
    case Word::Font:
        level.font = token.parameter;
        break;
    case Word::LeftIndent:
        level.format.leftIndent = length(token);
        break;
    case Word::FirstIndent:
        level.format.firstIndent = length(token);
        break;
    default:
        break;
    }
}

ListLevel ListReader::finished(const Level &level) const
{
    ListLevel format = level.format;
    const Font *font = m_fonts.font(level.font);
    if (font) {
        format.font = font->name;
        format.symbol = font->isSymbol();
    }
    format.text = level.text.text(font, m_codePages, true);
    return format;
}

std::shared_ptr<const List> ListReader::list(int number)
{
    const auto known = m_finished.constFind(number);
    if (known != m_finished.constEnd())
        return *known;
    const auto found = m_overrides.constFind(number);
    if (found == m_overrides.constEnd() || number <= 0)
        return nullptr;
    const auto levels = m_lists.constFind(found->identity);
    if (levels == m_lists.constEnd())
        return nullptr;

    List list;
    list.number = number;
    list.identity = found->identity;
    for (const Level &level : *levels)
        list.levels.push_back(finished(level));
    for (auto own = found->levels.begin(); own != found->levels.end(); ++own) {
        if (size_t(own.key()) >= list.levels.size())
            continue;
        ListLevel &level = list.levels[size_t(own.key())];
        if (!own->text.isEmpty())
            level = finished(*own);
        else if (own->startStated)
            level.start = own->format.start;
    }
    auto shared = std::make_shared<const List>(std::move(list));
    m_finished.insert(number, shared);
    return shared;
}

} // namespace norvane::rtf
