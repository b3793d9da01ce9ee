#pragma once

#include "richtext/rtf/operations.h"

#include <QSet>

namespace norvane::rtf {

/// Fonts, colours and lists of a document that is written, numbered in the order of their use.
class WriterTables
{
public:
    explicit WriterTables(const Document &document);

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
    /// Of the table of lists: each with the number and identity that it is written with.
    const std::vector<List> &lists() const { return m_lists; }
    const QString &defaultFont() const { return m_defaultFont; }

    /// @param name empty: the default font
    int font(const QString &name, bool symbol);
    /// 0 is the automatic colour.
    int color(std::optional<quint32> color);
    int listNumber(const std::shared_ptr<const List> &list) const { return m_listNumbers.value(list.get()); }
    QByteArray written(const QByteArray &piece);

private:
    void use(const CharacterFormat &format);
    void use(const ParagraphFormat &format);
    void use(const RowFormat &format);
    void use(const Borders &borders);
    void useText(const Document &document);
    void useMarks(const Document &document);
    void usePieces(const Document &document);
    void addList(const std::shared_ptr<const List> &list);

    QString m_defaultFont;
    std::vector<bool> m_isWrapperUsed;
    QVector<Font> m_fonts;
    QHash<Font, int> m_fontNumbers;
    QVector<quint32> m_colors;
    QHash<quint32, int> m_colorNumbers;
    std::vector<List> m_lists;
    QHash<const List *, int> m_listNumbers;
    QSet<int> m_usedNumbers;
    QHash<int, size_t> m_identities; ///< the first of m_lists with that identity
};

} // namespace norvane::rtf
