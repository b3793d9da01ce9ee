#pragma once

#include "richtext/rtf/code_pages.h"

#include <QHash>
#include <limits>

namespace norvane::rtf {

/// A number that no font has.
inline constexpr int kNoFont = std::numeric_limits<int>::min();

struct Font
{
    QString name;
    int codePage = 0; ///< 0: the document's

    bool isSymbol() const { return codePage == kSymbolCodePage; }
};

/// The fonts of a document, collected from its font table; each with or without a group around it.
class FontTable
{
public:
    explicit FontTable(CodePages &codePages) : m_codePages(codePages) {}

    void beginFont(int number);
    void setCharset(int charset);
    void setCodePage(int codePage);
    void addBytes(QByteArrayView bytes);
    void addUnit(char16_t unit);
    /// A name ends at its ";" or where its group ends.
    void endName();

    /// The font of that number, or nullptr.
    const Font *font(int number) const;

private:
    void decodeBytes();

    CodePages &m_codePages;
    QHash<int, Font> m_fonts;
    int m_current = kNoFont; ///< number of the font whose name is being read
    QByteArray m_bytes;      ///< of the name, until its code page is known
};

} // namespace norvane::rtf
