#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace norvane::dao {

/// A text with each character folded by Unicode, in UTF-8.
class FoldedText
{
public:
    /// @param text UTF-8; what is none stands as U+FFFD
    explicit FoldedText(std::string_view text);

    std::string_view bytes() const { return m_bytes; }
    bool isAscii() const { return m_isAscii; }
    QString text() const { return QString::fromStdString(m_bytes); }

private:
    bool append(std::string_view text);

    std::string m_bytes;
    bool m_isAscii = true;
};

QString folded(const QString &text);

bool isAsciiText(std::string_view text);

} // namespace norvane::dao
