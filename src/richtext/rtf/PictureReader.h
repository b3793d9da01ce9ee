#pragma once

#include "richtext/rtf/Tokenizer.h"
#include "richtext/rtf/control_words.h"
#include "richtext/rtf/operations.h"

namespace norvane::rtf {

/// Collects one picture after the other from their groups.
class PictureReader
{
public:
    void begin();
    void handle(ControlWord word, const Token &token);
    void addHex(QByteArrayView digits);
    void addBytes(QByteArrayView bytes);
    /// The picture that began last, or nothing when it is empty, of no known kind, or beyond the
    /// limits.
    std::optional<Picture> end();

private:
    Picture m_picture;
    bool m_hasKind = false;
    bool m_tooLarge = false;
    int m_scaleX = 100;
    int m_scaleY = 100;
    int m_highDigit = -1; ///< first half of a byte whose second half has not come
    qsizetype m_total = 0;
};

} // namespace norvane::rtf
