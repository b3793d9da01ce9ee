#include "richtext/rtf/Tokenizer.h"

#include <gtest/gtest.h>
#include <string>

using namespace norvane::rtf;

namespace {

/// The tokens in a short notation: { } w:word=parameter s:c h:byte t:text b:data
std::string tokens(QByteArrayView rtf)
{
    std::string all;
    Tokenizer tokenizer(rtf);
    for (Token token = tokenizer.next(); token.kind != Token::Kind::End; token = tokenizer.next()) {
        const std::string bytes(token.bytes.data(), size_t(token.bytes.size()));
        switch (token.kind) {
        case Token::Kind::GroupBegin:
            all += "{";
            break;
        case Token::Kind::GroupEnd:
            all += "}";
            break;
        case Token::Kind::Word:
            all += "w:" + bytes + (token.hasParameter ? "=" + std::to_string(token.parameter) : "");
            break;
        case Token::Kind::Symbol:
            all += token.value == '\n' ? std::string("s:LF") : std::string("s:") + char(token.value);
            break;
        case Token::Kind::Hex:
            all += "h:" + std::to_string(token.value);
            break;
        case Token::Kind::Text:
            all += "t:" + bytes;
            break;
        case Token::Kind::Binary:
            all += "b:" + bytes;
            break;
        case Token::Kind::End:
            break;
        }
        all += " ";
    }
    return all;
}

struct Row
{
    const char *rtf;
    const char *expected;
};

} // namespace

TEST(RtfTokenizer, CutsIntoTokens)
{
    const Row rows[] = {
        {"{\\b bold}", "{ w:b t:bold } "},
        {"\\b  two", "w:b t: two "}, // one blank belongs to the word
        {"\\fs24x", "w:fs=24 t:x "},
        {"\\li-720 x", "w:li=-720 t:x "},
        {"\\b-x", "w:b t:-x "}, // a sign without a number is text
        {"a\r\nb\nc", "t:a t:b t:c "},
        {"\\\r\n\\\nx", "s:LF s:LF t:x "},
        {"\\'e9\\'E9", "h:233 h:233 "},
        {"\\'zz", "t:zz "},
        {"\\~\\*\\\\", "s:~ s:* s:\\ "},
        {"\\bin3 }}}x", "w:bin=3 b:}}} t:x "},
        {"\\bin99 ab", "w:bin=99 b:ab "}, // beyond the end
        {"\\bin0 ab", "w:bin=0 t:ab "},
        {"\\u99999999999 x", "w:u=2147483647 t:x "},
        {"\\u-99999999999 x", "w:u=-2147483647 t:x "},
        {"\\", ""},
        {"\\'", ""},
        {"\\'4", "t:4 "},
        {"", ""},
    };
    for (const Row &row : rows)
        EXPECT_EQ(tokens(row.rtf), row.expected) << row.rtf;
}
