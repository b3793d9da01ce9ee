#include "richtext/rtf/Tokenizer.h"

#include <array>
#include <limits>

namespace norvane::rtf {
namespace {

constexpr bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

constexpr int hexValue(char c)
{
    if (isDigit(c))
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

/// Bytes that end a run of plain text.
constexpr std::array<bool, 256> kEndsText = [] {
    std::array<bool, 256> ends{};
    for (const char c : {'\\', '{', '}', '\r', '\n'})
        ends[static_cast<unsigned char>(c)] = true;
    return ends;
}();

} // namespace

Token Tokenizer::next()
{
    if (m_binarySize >= 0)
        return binary();
    while (m_position < m_bytes.size() && (m_bytes[m_position] == '\r' || m_bytes[m_position] == '\n'))
        ++m_position; // line ends in the file mean nothing

    Token token;
    token.position = m_position;
    if (m_position >= m_bytes.size())
        return token;
    switch (m_bytes[m_position]) {
    case '{':
        ++m_position;
        token.kind = Token::Kind::GroupBegin;
        return token;
    case '}':
        ++m_position;
        token.kind = Token::Kind::GroupEnd;
        return token;
    case '\\':
        return control();
    default:
        break;
    }
    qsizetype end = m_position + 1;
    while (end < m_bytes.size() && !kEndsText[static_cast<unsigned char>(m_bytes[end])])
        ++end;
    token.kind = Token::Kind::Text;
    token.bytes = m_bytes.sliced(m_position, end - m_position);
    m_position = end;
    return token;
}

Token Tokenizer::control()
{
    Token token;
    token.position = m_position;
    const char c = at(m_position + 1);
    if (isLetter(c))
        return word();
    if (m_position + 1 >= m_bytes.size()) {
        m_position = m_bytes.size();
        return token;
    }
    m_position += 2;
    if (c == '\'') {
        const int high = hexValue(at(m_position));
        const int low = hexValue(at(m_position + 1));
        if (high < 0 || low < 0)
            return next(); // no byte: the sign is dropped, what follows stands for itself
        m_position += 2;
        token.kind = Token::Kind::Hex;
        token.value = high * 16 + low;
        return token;
    }
    token.kind = Token::Kind::Symbol;
    token.value = static_cast<unsigned char>(c);
    if (c == '\r') {
        token.value = '\n';
        if (at(m_position) == '\n')
            ++m_position;
    }
    return token;
}

Token Tokenizer::word()
{
    Token token;
    token.kind = Token::Kind::Word;
    token.position = m_position;
    qsizetype end = m_position + 1;
    while (isLetter(at(end)))
        ++end;
    token.bytes = m_bytes.sliced(m_position + 1, end - m_position - 1);

    const bool negative = at(end) == '-' && isDigit(at(end + 1));
    if (negative)
        ++end;
    qint64 number = 0;
    for (; isDigit(at(end)); ++end) {
        token.hasParameter = true;
        number = qMin(number * 10 + (at(end) - '0'), qint64(std::numeric_limits<int>::max()));
    }
    token.parameter = int(negative ? -number : number);
    if (at(end) == ' ')
        ++end; // the blank belongs to the word
    m_position = end;
    if (token.bytes == "bin" && token.parameter > 0)
        m_binarySize = token.parameter;
    return token;
}

Token Tokenizer::binary()
{
    Token token;
    token.kind = Token::Kind::Binary;
    token.position = m_position;
    token.bytes = m_bytes.sliced(m_position, qMin(m_binarySize, m_bytes.size() - m_position));
    m_position += token.bytes.size();
    m_binarySize = -1;
    return token;
}

} // namespace norvane::rtf
