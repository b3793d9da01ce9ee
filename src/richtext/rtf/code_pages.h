#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringDecoder>
#include <unordered_map>

namespace norvane::rtf {

inline constexpr int kWesternCodePage = 1252;
inline constexpr int kUtf8CodePage = 65001;
/// Of fonts with signs in place of letters: their bytes are kept as U+F020 to U+F0FF.
inline constexpr int kSymbolCodePage = 42;

/// The code page of a font's character set; 0 when the set is the document's.
int codePageOfCharset(int charset);

/// Decodes bytes of any code page, keeping what it needs for each.
class CodePages
{
public:
    /// Appends the decoded bytes to a text. A code page that is not known reads as Western.
    void decode(QByteArrayView bytes, int codePage, QString &text);

private:
    std::unordered_map<int, QStringDecoder> m_decoders;
};

} // namespace norvane::rtf
