#include "richtext/rtf/kept_pieces.h"

#include "richtext/rtf/Tokenizer.h"
#include "richtext/rtf/control_words.h"

#include <algorithm>
#include <vector>

namespace norvane::rtf {
namespace {

// A word whose parameter is named instead of numbered: begin, letters, separator, name, end.
constexpr char kFontBegin = '\x01';
constexpr char kSymbolFontBegin = '\x02';
constexpr char kColorBegin = '\x03';
constexpr char kSeparator = '\x04';
constexpr char kEnd = '\x05';

bool isReference(char byte)
{
    return byte >= kFontBegin && byte <= kColorBegin;
}

/// Writes tokens in one way, whatever way they were written in before.
class Transcriber
{
public:
    explicit Transcriber(const KeptContext &context)
        : m_context(context), m_state{context.font, context.unicodeSkip}
    {
    }

    std::optional<QByteArray> run(QByteArrayView groups)
    {
        Tokenizer tokenizer(groups);
        while (m_possible) {
            const Token token = tokenizer.next();
            if (token.kind != Token::Kind::Text && token.kind != Token::Kind::Hex)
                flush();
            if (token.kind == Token::Kind::End)
                break;
            add(token);
        }
        if (!m_possible || !m_outer.empty())
            return std::nullopt;
        return m_out;
    }

private:
    struct State
    {
        int font = kNoFont;
        int unicodeSkip = 1;
        bool holdsDigits = false; ///< the destination is data in hexadecimal digits
    };

    void add(const Token &token)
    {
        switch (token.kind) {
        case Token::Kind::GroupBegin:
            m_toSkip = 0;
            m_outer.push_back(m_state);
            put("{");
            break;
        case Token::Kind::GroupEnd:
            m_toSkip = 0;
            if (m_outer.empty()) {
                m_possible = false;
                break;
            }
            m_state = m_outer.back();
            m_outer.pop_back();
            put("}");
            break;
        case Token::Kind::Word:
            addWord(token);
            break;
        case Token::Kind::Symbol:
            addSymbol(token);
            break;
        case Token::Kind::Hex: {
            const char byte = char(token.value);
            addBytes(QByteArrayView(&byte, 1));
            break;
        }
        case Token::Kind::Text:
            addBytes(token.bytes);
            break;
        case Token::Kind::Binary:
            if (m_state.holdsDigits) {
                putText(token.bytes.toByteArray().toHex());
            } else {
                m_possible = token.bytes.isEmpty();
            }
            break;
        case Token::Kind::End:
            break;
        }
    }

    void addSymbol(const Token &token)
    {
        const char symbol = char(token.value);
        if (symbol == '\n')
            m_toSkip = 0;
        else if (symbol != '*')
            skip();
        if (symbol == '\n')
            putWord("\\par");
        else if (symbol == '\t')
            putWord("\\tab");
        else if (symbol >= 0x20 && symbol < 0x7F)
            put(QByteArray("\\") + symbol);
    }

    void addWord(const Token &token)
    {
        countSkipped(token);
        if (token.bytes == "bin")
            return; // its data comes as digits
        if (token.bytes == "pict" || token.bytes == "objdata")
            m_state.holdsDigits = true;
        else if (token.bytes == "uc")
            m_state.unicodeSkip = token.hasParameter ? qBound(0, token.parameter, 16) : 1;
        else if (token.bytes == "plain")
            m_state.font = kNoFont;
        else if (token.bytes == "f")
            m_state.font = token.parameter;

        if (namesFont(token.bytes) && token.hasParameter) {
            const Font *font = m_context.fonts.font(token.parameter);
            if (!font)
                return;
            reference(font->isSymbol() ? kSymbolFontBegin : kFontBegin, token.bytes, font->name.toUtf8());
        } else if (namesColor(token.bytes) && token.hasParameter) {
            const std::optional<quint32> color = m_context.colors.color(token.parameter);
            reference(kColorBegin, token.bytes, color ? QByteArray::number(*color, 16) : QByteArray());
        } else {
            m_out += '\\';
            m_out += token.bytes;
            if (token.hasParameter)
                m_out += QByteArray::number(token.parameter);
        }
        m_afterWord = true;
    }

    /// What follows a \u stands for it, and is left as much as it is.
    void countSkipped(const Token &token)
    {
        const Word word = controlWord(token.bytes).word;
        if (word == Word::Character)
            skip();
        else if (word != Word::UnicodeSkip && (word != Word::Unicode || token.hasParameter))
            m_toSkip = word == Word::Unicode ? m_state.unicodeSkip : 0;
    }

    bool skip()
    {
        const bool isSkipped = m_toSkip > 0;
        m_toSkip -= int(isSkipped);
        return isSkipped;
    }

    void reference(char begin, QByteArrayView letters, const QByteArray &name)
    {
        m_out += begin;
        m_out += letters;
        m_out += kSeparator;
        for (const char byte : name) {
            if (byte < 0 || byte >= 0x20)
                m_out += byte;
        }
        m_out += kEnd;
    }

    void addBytes(QByteArrayView bytes)
    {
        for (const char byte : bytes) {
            if (skip()) {
                putText(QByteArray(1, byte >= 0x20 && byte < 0x7F ? byte : '?'));
            } else if (byte < 0 || byte == 0x7F) {
                m_encoded += byte;
            } else {
                // The second byte of a character may be ASCII; the sequence is decoded whole.
                if (!m_encoded.isEmpty() && needsSecondByte()) {
                    m_encoded += byte;
                    continue;
                }
                flush();
                addAscii(byte);
            }
        }
    }

    void addAscii(char byte)
    {
        if (byte == '{' || byte == '}' || byte == '\\')
            put(QByteArray("\\") + byte);
        else if (byte == '\t')
            putWord("\\tab");
        else if (byte == 0)
            putText(" "); // as it is read in a text
        else if (byte >= 0x20)
            putText(QByteArray(1, byte));
    }

    /// Whether the encoded bytes so far end in the first half of a character.
    bool needsSecondByte() const
    {
        const int page = codePage();
        const bool twoBytes = page == 932 || page == 936 || page == 949 || page == 950 || page == 1361;
        return twoBytes && m_encoded.size() % 2 == 1;
    }

    void flush()
    {
        if (m_encoded.isEmpty())
            return;
        QString text;
        m_context.codePages.decode(std::exchange(m_encoded, {}), codePage(), text);
        for (const QChar character : text) {
            m_out += "\\u" + QByteArray::number(qint16(character.unicode()));
            m_afterWord = true;
            if (m_state.unicodeSkip > 0)
                putText(QByteArray(m_state.unicodeSkip, '?'));
        }
    }

    int codePage() const
    {
        const Font *font = m_context.fonts.font(m_state.font);
        return font && font->codePage > 0 ? font->codePage : m_context.documentCodePage;
    }

    void put(const QByteArray &bytes)
    {
        m_out += bytes;
        m_afterWord = false;
    }

    void putWord(const QByteArray &word)
    {
        m_out += word;
        m_afterWord = true;
    }

    void putText(const QByteArray &text)
    {
        if (m_afterWord)
            m_out += ' ';
        put(text);
    }

    const KeptContext &m_context;
    State m_state;
    std::vector<State> m_outer;
    QByteArray m_out;
    QByteArray m_encoded;
    int m_toSkip = 0;         ///< characters that stand for a \u
    bool m_afterWord = false; ///< text needs a blank before it
    bool m_possible = true;
};

} // namespace

std::optional<QByteArray> keptPiece(QByteArrayView groups, const KeptContext &context)
{
    return Transcriber(context).run(groups);
}

QByteArray writtenPiece(const QByteArray &piece, const KeptNumbers &numbers)
{
    if (std::none_of(piece.begin(), piece.end(), isReference))
        return piece;
    QByteArray written;
    written.reserve(piece.size());
    for (qsizetype i = 0; i < piece.size(); ++i) {
        const char begin = piece.at(i);
        if (!isReference(begin)) {
            written += begin;
            continue;
        }
        const qsizetype separator = piece.indexOf(kSeparator, i);
        const qsizetype end = piece.indexOf(kEnd, i);
        if (separator < 0 || end < separator)
            break; // no piece of ours
        written += '\\';
        written += QByteArrayView(piece).sliced(i + 1, separator - i - 1);
        const QByteArray name = piece.mid(separator + 1, end - separator - 1);
        if (begin == kColorBegin)
            written += QByteArray::number(numbers.color(
                name.isEmpty() ? std::nullopt : std::optional<quint32>(name.toUInt(nullptr, 16))));
        else
            written += QByteArray::number(numbers.font(QString::fromUtf8(name), begin == kSymbolFontBegin));
        i = end;
    }
    return written;
}

} // namespace norvane::rtf
