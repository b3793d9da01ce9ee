#pragma once

#include <QByteArrayView>

namespace norvane::rtf {

struct Token
{
    enum class Kind {
        GroupBegin,
        GroupEnd,
        Word,   ///< control word: `bytes` are its letters
        Symbol, ///< control symbol: `value` is its character; a line end is '\n'
        Hex,    ///< a byte written as hexadecimal digits: `value`
        Text,   ///< bytes that stand for themselves, without line ends
        Binary, ///< the data of `\bin`
        End,
    };

    Kind kind = Kind::End;
    bool hasParameter = false;
    int parameter = 0; ///< of a word; clamped to what an int holds
    int value = 0;
    QByteArrayView bytes;
    qsizetype position = 0; ///< of the token's first byte
};

/// Cuts rich text into tokens, one pass, no state but its place. Refers to the bytes that it is
/// given.
class Tokenizer
{
public:
    explicit Tokenizer(QByteArrayView bytes) : m_bytes(bytes) {}

    Token next();
    qsizetype position() const { return m_position; }

private:
    Token control();
    Token word();
    Token binary();
    char at(qsizetype position) const { return position < m_bytes.size() ? m_bytes[position] : '\0'; }

    QByteArrayView m_bytes;
    qsizetype m_position = 0;
    qsizetype m_binarySize = -1; ///< data that follows; -1 if none
};

} // namespace norvane::rtf
