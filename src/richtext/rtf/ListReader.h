#pragma once

#include "richtext/rtf/FontTable.h"
#include "richtext/rtf/Tokenizer.h"
#include "richtext/rtf/control_words.h"
#include "richtext/rtf/lists.h"

#include <QHash>
#include <QVector>
#include <optional>

namespace norvane::rtf {

/// Text of a mark as it stands in a file: bytes, which a font's character set explains, and Unicode.
class MarkText
{
public:
    void addBytes(QByteArrayView bytes);
    void addUnit(char16_t unit);
    void clear() { m_units.clear(); }
    bool isEmpty() const { return m_units.isEmpty(); }
    /// @param withNumbers the text of a level: its first byte counts the others, of which those from
    /// 0 to 8 stand for numbers
    QString text(const Font *font, CodePages &codePages, bool withNumbers) const;

private:
    void add(int unit);

    QVector<int> m_units; ///< UTF-16; a byte as -1 and what it is below that
};

/// The marks that paragraphs state themselves, one after the other.
class MarkReader
{
public:
    MarkReader(const FontTable &fonts, CodePages &codePages) : m_fonts(fonts), m_codePages(codePages) {}

    void begin();
    void handle(ControlWord word, const Token &token);
    MarkText &before() { return m_before; }
    MarkText &after() { return m_after; }
    /// What the mark makes of its paragraph; equal marks share their list.
    ListItem end();

private:
    const FontTable &m_fonts;
    CodePages &m_codePages;
    MarkText m_before;
    MarkText m_after;
    int m_font = kNoFont;
    int m_style = kArabic;
    int m_start = 1;
    QHash<QString, std::shared_ptr<const List>> m_known;
};

/// The table of lists and the table of their overrides.
class ListReader
{
public:
    ListReader(const FontTable &fonts, CodePages &codePages) : m_fonts(fonts), m_codePages(codePages) {}

    void handle(ControlWord word, const Token &token);
    /// The text of the level that is being read.
    MarkText *levelText();
    /// The list of that number; nullptr if there is none.
    std::shared_ptr<const List> list(int number);

private:
    struct Level
    {
        ListLevel format;
        MarkText text;
        int font = kNoFont;
        bool startStated = false;
    };
    struct Override
    {
        int number = 0;
        int identity = 0;
        /// Levels that are not the list's own; at most a start if the level has no text.
        QHash<int, Level> levels;
    };

    Level *currentLevel();
    void handleLevelWord(ControlWord word, const Token &token, Level &level);
    ListLevel finished(const Level &level) const;

    const FontTable &m_fonts;
    CodePages &m_codePages;
    QHash<int, std::vector<Level>> m_lists; ///< by identity
    std::vector<Level> m_levels;            ///< of the list whose identity has not come
    std::optional<Override> m_override;
    int m_overriddenLevel = -1;
    QHash<int, Override> m_overrides; ///< by number
    QHash<int, std::shared_ptr<const List>> m_finished;
};

} // namespace norvane::rtf
