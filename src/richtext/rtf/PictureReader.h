#pragma once

#include "richtext/rtf/HexReader.h"
#include "richtext/rtf/Tokenizer.h"
#include "richtext/rtf/control_words.h"
#include "richtext/rtf/operations.h"

#include <optional>

namespace norvane::rtf {

/// Collects one picture after the other from their groups.
class PictureReader
{
public:
    void begin();
    void handle(ControlWord word, const Token &token);
    HexReader &data() { return m_data; }
    void addKept(const QByteArray &piece) { m_picture.kept += piece; }
    /// The picture that began last, or nothing when it is empty, of no known kind, or beyond the
    /// limits.
    std::optional<Picture> end();

private:
    Picture m_picture;
    HexReader m_data;
    bool m_hasKind = false;
    int m_scaleX = 100;
    int m_scaleY = 100;
    qsizetype m_total = 0;
};

/// Whether pictures of that kind can be shown as they are.
bool isShown(PictureKind kind);

} // namespace norvane::rtf
