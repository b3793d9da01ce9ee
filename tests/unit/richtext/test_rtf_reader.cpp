#include "richtext/rtf/read.h"
#include "sample_documents.h"

#include <gtest/gtest.h>

using namespace norvane::rtf;

namespace {

Document readBody(const QByteArray &body)
{
    return *read(
        "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Arial;}{\\f1\\fnil\\fcharset204 Cyr;}"
        "{\\f2\\fnil\\fcharset128 Mincho;}{\\f3\\fnil\\fcharset2 Symbol;}{\\f4\\fnil\\fcharset161 Greek;}"
        "{\\f5\\fnil\\fcharset134 Song;}{\\f6\\fnil\\fcharset177 Heb;}}"
        "{\\colortbl ;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}" +
        body + "}");
}

QString plain(const QByteArray &body)
{
    return readBody(body).plainText();
}

struct TextRow
{
    const char *rtf;
    QString expected;
};

std::string utf8(const QString &text)
{
    return text.toStdString();
}

} // namespace

TEST(RtfReader, RefusesWhatDoesNotBeginAsRichText)
{
    for (const char *text : {"", "{", "plain", " {\\rtf1 x}", "\\rtf1 x", "{\\RTF1 x}", "<html>"})
        EXPECT_FALSE(read(text)) << text;
    EXPECT_EQ(utf8(read("{\\rtf1 x}")->plainText()), "x");
    EXPECT_EQ(utf8(read("{\\urtf1 \xC3\xA9}")->plainText()), "é");
    EXPECT_EQ(utf8(read("{\\rtf")->plainText()), "");
}

TEST(RtfReader, DecodesText)
{
    const TextRow rows[] = {
        // By the character set of the font
        {"caf\\'e9", u"café"_qs},
        {"\\f1 \\'cf\\'f0", u"Пр"_qs},
        {"\\f2 \\'93\\'fa\\'96\\'7b", u"日本"_qs},
        {"\\f2 \\'83A", u"ア"_qs},    // the second byte as itself
        {"\\f2 \\'83\\\\", u"ソ"_qs}, // the second byte escaped
        {"{\\f2 \\'83}x", u"x"_qs},   // half a character is none
        {"\\f4 \\'e1", u"α"_qs},
        {"\\f5 \\'d6\\'d0", u"中"_qs},
        {"\\f6 \\'f9\\'ec", u"של"_qs},
        {"\\f3 \\'b7 x", u"\uF0B7 \uF078"_qs},
        {"\\f1 \\'cf{\\f0\\'e9}\\'f0", u"Пéр"_qs},
        // Raw bytes, NUL
        {"caf\xE9 \x93x\x94", u"café “x”"_qs},
        {"\\f1 \xCF\xF0", u"Пр"_qs},
        // Unicode and what stands for it
        {"\\u8364?x", u"€x"_qs},
        {"\\u8364\\'80x", u"€x"_qs},
        {"\\uc0\\u8364 x", u"€x"_qs},
        {"\\uc2\\u26085\\'93\\'fax", u"日x"_qs},
        {"\\u-10179?\\u-8704?x", u"😀x"_qs},
        {"\\u55357?\\u56832?x", u"😀x"_qs},
        {"\\uc0 \\u55357\\uc1 \\u56832\\'3f x", u"😀 x"_qs},
        {"\\u55357\\u56832?x", u"😀x"_qs}, // nothing stands for the first half
        {"\\u128512?x", u"😀x"_qs},
        {"\\u55357?x", u"\uFFFDx"_qs}, // half a pair
        {"\\u8212\\emdash x", u"—x"_qs},
        {"\\u8364\\par x", u"€\nx"_qs}, // a paragraph end stands for nothing
        {"{\\uc0\\u8364 }\\u8364?x", u"€€x"_qs},
        {"\\u0?x\\u1?y", u" xy"_qs},
        {"\\u-497?\\u8233?\\u-4?z", u"\uFE0F\u2028 z"_qs},
        // Characters by name
        {"\\ldblquote a\\rdblquote\\emdash\\~\\_\\-\\tab\\line b", u"“a”—\u00A0\u2011\u00AD\t\u2028b"_qs},
        {"\\{\\}\\\\", u"{}\\"_qs},
        // The text in two encodings
        {"{\\upr{old}{\\*\\ud{new \\u8364?}}}!", u"new €!"_qs},
        // Paragraphs
        {"a\\par b\\\nc\\par", u"a\nb\nc\n"_qs},
        {"a\\sect b\\par\\sect c", u"a\nb\nc"_qs},
        {"a\\page b", u"a\nb"_qs},
        {"a\\cell b\\cell\\row c", u"a\tb\nc"_qs},
    };
    for (const TextRow &row : rows)
        EXPECT_EQ(utf8(plain(row.rtf)), utf8(row.expected)) << row.rtf;
    EXPECT_EQ(utf8(plain(QByteArray("a\0b", 3))), "a b");
}

TEST(RtfReader, SkipsWhatItDoesNotKnow)
{
    const TextRow rows[] = {
        {"a{\\*\\unknown b{\\i c}}d", u"ad"_qs},
        {"a{\\unknown b}c", u"abc"_qs},
        {"a{\\*\\unknown\\b\\fs72}b", u"ab"_qs},
        {"{\\info{\\title T}{\\author A}}x", u"x"_qs},
        {"{\\stylesheet{\\s0 Normal;}}x", u"x"_qs},
        {"{\\listoverridetable{\\listoverride\\ls1}}x", u"x"_qs},
        {"{\\field{\\*\\fldinst HYPERLINK \"http://x\"}{\\fldrslt link}}", u"link"_qs},
        {"{\\*\\unknown\\bin4 }}}}}x", u"x"_qs}, // braces in binary data
        {"\\*\\unknown x", u"x"_qs},             // out of place
        {"{\\*\\nesttableprops\\nestrow}{\\nonesttables\\par}x", u"\nx"_qs},
        {"{\\header h\\par}{\\footer f}x", u"x"_qs},
        {"a{\\*", u"a"_qs},
        {"a}b", u"a"_qs}, // the document ends with its group
        {"{{{a", u"a"_qs},
    };
    for (const TextRow &row : rows)
        EXPECT_EQ(utf8(plain(row.rtf)), utf8(row.expected)) << row.rtf;
    // What was set in the skipped groups has not leaked out of them.
    EXPECT_EQ(utf8(describe(readBody("a{\\*\\unknown\\b\\fs72}b"))), "text \"ab\" (Arial 24)\n");
}

TEST(RtfReader, ReadsCharacterFormats)
{
    const TextRow rows[] = {
        {"\\fs20 x", u"Arial 20"_qs},
        {"\\b\\i\\strike\\protect\\v x", u"Arial 24 bold italic strike protected hidden"_qs},
        {"\\b\\b0 x", u"Arial 24"_qs},
        {"\\b{\\b0 }x", u"Arial 24 bold"_qs},
        {"\\b\\plain x", u"Arial 24"_qs},
        {"\\ul x", u"Arial 24 underline1"_qs},
        {"\\uldb\\ul0 x", u"Arial 24"_qs},
        {"\\ulwave\\ulnone x", u"Arial 24"_qs},
        {"\\super x", u"Arial 24 script1"_qs},
        {"\\dn6 x", u"Arial 24 script2"_qs},
        {"\\super\\nosupersub x", u"Arial 24"_qs},
        {"\\scaps x", u"Arial 24 capitals2"_qs},
        {"\\cf1 x", u"Arial 24 color=ff0000"_qs},
        {"\\cf1\\cf0 x", u"Arial 24"_qs},
        {"\\cf77 x", u"Arial 24"_qs},
        {"\\highlight2 x", u"Arial 24 background=0000ff"_qs},
        {"\\cb1\\highlight0 x", u"Arial 24"_qs},
        {"\\f3 \\'b7", u"Symbol 24 symbol"_qs},
        {"\\f99 x", u"Arial 24"_qs},
        {"\\fs0 x", u"Arial 24"_qs},
        {"\\fs99999999 x", u"Arial 3276"_qs},
    };
    for (const TextRow &row : rows) {
        const QString text = describe(readBody(row.rtf));
        EXPECT_EQ(utf8(text.section(u'(', 1).chopped(2)), utf8(row.expected)) << row.rtf;
    }
}

TEST(RtfReader, ReadsFontTables)
{
    // Without groups, as some writers do; with names in the font's own character set; with more
    // groups inside.
    const QByteArray plainTable =
        "{\\rtf1{\\fonttbl\\f0\\fswiss\\fcharset0 Helvetica;\\f1\\fnil Lucida Grande;}";
    EXPECT_EQ(utf8(describe(*read(plainTable + "\\f1 x\\f0 y}"))),
              "text \"x\" (Lucida Grande 24)\ntext \"y\" (Helvetica 24)\n");
    EXPECT_EQ(
        utf8(describe(*read("{\\rtf1{\\fonttbl{\\f7\\fcharset128{\\*\\panose 02020609}\\'82\\'6c\\'82\\'72"
                            "{\\*\\falt MS Mincho};}}\\f7 x}"))),
        utf8(u"text \"x\" (ＭＳ 24)\n"_qs));
    EXPECT_EQ(utf8(describe(*read("{\\rtf1{\\fonttbl{\\f0 {\\upr{?;}{\\*\\ud\\u26126?;}}}}x}"))),
              utf8(u"text \"x\" (明 24)\n"_qs));
    // The document's code page counts where a font has none.
    EXPECT_EQ(utf8(read("{\\rtf1\\ansi\\ansicpg1251{\\fonttbl{\\f0 A;}}\\f0 \\'cf}")->plainText()),
              utf8(u"П"_qs));
}

TEST(RtfReader, ReadsParagraphFormats)
{
    const TextRow rows[] = {
        {"\\par", u"end"_qs},
        {"\\qc\\par", u"end center"_qs},
        {"\\qj\\par", u"end justify"_qs},
        {"\\ql\\par", u"end"_qs},
        {"\\rtlpar\\ql\\par", u"end left rtl=1"_qs},
        {"\\qr\\li720\\ri360\\fi-360\\sb100\\sa200\\par",
         u"end right li=720 ri=360 fi=-360 sb=100 sa=200"_qs},
        {"\\sl276\\slmult1\\par", u"end sl=276 slmult=1"_qs},
        {"\\sl-300\\slmult0\\par", u"end sl=-300"_qs},
        {"\\tx720\\tqr\\tx1440\\tqdec\\tx2000\\par", u"end tab0=720 tab1=1440 tab3=2000"_qs},
        {"\\li720\\pard\\par", u"end"_qs},
        {"{\\qc x}\\par", u"end"_qs}, // a format ends with its group
        {"\\li999999999\\par", u"end li=31680"_qs},
        {"x\\page\\par", u"end pagebreak=1"_qs},
        {"\\pard{\\pntext\\f3\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf3\\pnindent0{\\pntxtb\\'B7}}\\fi-200\\li200 "
         "x\\par",
         u"end li=200 fi=-200 bullet=1"_qs},
        {"\\pard\\plain {\\listtext\\pard\\plain\\f3 \\'b7\\tab}\\ilvl0\\ls1\\li720\\fi-360 x\\par",
         u"end li=720 fi=-360 bullet=1"_qs},
    };
    for (const TextRow &row : rows) {
        const QString text = describe(readBody(row.rtf)).trimmed();
        EXPECT_EQ(utf8(text.section(u'\n', -1)), utf8(row.expected)) << row.rtf;
    }
}

TEST(RtfReader, ListMarksAreNotText)
{
    const QByteArray bullets =
        "\\pard{\\pntext\\f3\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf3\\pnindent0{\\pntxtb\\'B7}}a\\par\n"
        "{\\pntext\\f3\\'B7\\tab}b\\par\n\\pard c\\par";
    EXPECT_EQ(utf8(describe(readBody(bullets))), "text \"a\" (Arial 24)\nend bullet=1\n"
                                                 "text \"b\" (Arial 24)\nend bullet=1\n"
                                                 "text \"c\" (Arial 24)\nend\n");
    // A number tells the reader something: it stays, once.
    EXPECT_EQ(utf8(plain("{\\listtext 1.\\tab}\\ls1 a\\par{\\listtext 2.\\tab}b\\par c")), "1.\ta\n2.\tb\nc");
}

TEST(RtfReader, ReadsPictures)
{
    const QByteArray hex = samplePng().toHex();
    const QString shown =
        QStringLiteral("picture kind=0 mode=0 10x20 shown 300x600 ") + QString::fromLatin1(hex) + u'\n';
    const QByteArray head = "{\\pict\\pngblip\\picw10\\pich20\\picwgoal300\\pichgoal600 ";
    EXPECT_EQ(utf8(describe(readBody(head + hex + "}"))), utf8(shown));
    EXPECT_EQ(utf8(describe(readBody(head + hex.left(31) + "\r\n" + hex.mid(31).toUpper() + "}"))),
              utf8(shown));
    EXPECT_EQ(utf8(describe(readBody(head + "{\\*\\blipuid 00112233}" + hex + "}"))), utf8(shown));
    EXPECT_EQ(utf8(describe(readBody(head + "\\bin" + QByteArray::number(samplePng().size()) + " " +
                                     samplePng() + "}"))),
              utf8(shown));
    EXPECT_EQ(utf8(describe(readBody(
                  "{\\pict\\pngblip\\picw10\\pich20\\picscalex50\\picwgoal600\\pichgoal600 " + hex + "}"))),
              utf8(shown));
    // Every picture twice: the first is meant.
    EXPECT_EQ(
        utf8(describe(readBody("{\\*\\shppict" + head + hex + "}}{\\nonshppict{\\pict\\wmetafile8 0102}}"))),
        utf8(shown));
    // The second only where the first cannot be used.
    const Document second =
        readBody("{\\*\\shppict{\\pict\\unknownblip 00}}{\\nonshppict{\\pict\\wmetafile8 0102}}");
    ASSERT_EQ(second.operations.size(), 1U);
    EXPECT_EQ(std::get<PictureRun>(second.operations[0]).picture.kind, PictureKind::Wmf);
    // A size that no page has is cut, one without bytes is none.
    const Document huge =
        readBody("{\\pict\\jpegblip\\picwgoal2000000000\\pichgoal60000 00}{\\pict\\pngblip\\picw9 }");
    ASSERT_EQ(huge.operations.size(), 1U);
    EXPECT_EQ(std::get<PictureRun>(huge.operations[0]).picture.displayWidth, 31680);
}

TEST(RtfReader, KeepsObjectsBehindTheirPictures)
{
    const QByteArray object =
        "{\\object\\objemb{\\*\\objclass Package}\\objw1\\objh1{\\*\\objdata 0102}{\\result"
        "{\\pict\\wmetafile8 0304}}}";
    const Document document = readBody("a" + object + "b");
    ASSERT_EQ(document.operations.size(), 3U);
    const Picture &picture = std::get<PictureRun>(document.operations[1]).picture;
    EXPECT_EQ(picture.kind, PictureKind::Wmf);
    EXPECT_EQ(picture.original, object);

    EXPECT_EQ(utf8(plain("a{\\object{\\*\\objdata 01}{\\result \\b shown}}b")), "ashownb");
    const Document silent = readBody("{\\object{\\*\\objdata 0102}}");
    ASSERT_EQ(silent.operations.size(), 1U);
    EXPECT_EQ(std::get<PictureRun>(silent.operations[0]).picture.original, "{\\object{\\*\\objdata 0102}}");
}
