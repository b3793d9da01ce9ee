#include "richtext/rtf/limits.h"
#include "richtext/rtf/read.h"
#include "richtext/rtf/writer.h"
#include "sample_documents.h"

#include <QRegularExpression>
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
        {"\\f6 \\'f9\\'ec", u"של"_qs},
        {"\\f3 \\'b7 x\\u-3999?\\'60", u"\u2022 \u03BE\u03B1\uF060"_qs},
        {"\\f1 \\'cf{\\f0\\'e9}\\'f0", u"Пéр"_qs},
        // Raw bytes, NUL
        {"caf\xE9 \x93x\x94", u"café “x”"_qs},
        // Unicode and what stands for it
        {"\\u8364?x", u"€x"_qs},
        {"\\u8364\\'80x", u"€x"_qs},
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
        // Odd bytes between words
        {"\\b-x", u"-x"_qs},  // a sign without a number is text
        {"\\b  x", u" x"_qs}, // one blank belongs to the word
        {"\\'zzx\\'4", u"zzx4"_qs},
        {"x\\u-99999999999 ?\\bin99 ab", u"x"_qs}, // numbers beyond all, data beyond the end
        // Paragraphs
        {"a\\par b\\\nc\\par", u"a\nb\nc\n"_qs},
        {"a\\sect b\\par\\sect c", u"a\nb\nc"_qs},
        {"a\\cell b\\cell\\row c", u"a\nb\nc"_qs},
    };
    for (const TextRow &row : rows)
        EXPECT_EQ(utf8(plain(row.rtf)), utf8(row.expected)) << row.rtf;
    EXPECT_EQ(utf8(plain(QByteArray("a\0b", 3))), "a b");
}

TEST(RtfReader, SkipsWhatItDoesNotKnow)
{
    const TextRow rows[] = {
        {"a{\\*\\unknown b{\\i c}}d", u"ad"_qs},
        {"a{\\*\\unknown\\b\\fs72}b", u"ab"_qs},
        {"{\\info{\\title T}{\\author A}}x", u"x"_qs},
        {"{\\listoverridetable{\\listoverride\\ls1}}x", u"x"_qs},
        {"{\\field{\\*\\fldinst HYPERLINK \"http://x\"}{\\fldrslt link}}", u"link"_qs},
        {"{\\*\\unknown\\bin4 }}}}}x", u"x"_qs}, // braces in binary data
        {"\\*\\unknown x", u"x"_qs},             // out of place
        {"{\\*\\nesttableprops\\nestrow}{\\nonesttables\\par}x", u"x"_qs},
        {"{\\header h\\par}{\\footer f}x", u"x"_qs},
        {"a{\\*", u"a"_qs},
        {"a}b", u"a"_qs}, // the document ends with its group
    };
    for (const TextRow &row : rows)
        EXPECT_EQ(utf8(plain(row.rtf)), utf8(row.expected)) << row.rtf;
    // What was set in the skipped groups has not leaked out of them.
    EXPECT_EQ(utf8(describe(readBody("a{\\*\\unknown\\b\\fs72}b")).section(u'\n', 2)),
              "text \"b\" (Arial 24)\n");
}

TEST(RtfReader, ReadsCharacterFormats)
{
    const TextRow rows[] = {
        {"\\b\\i\\strike\\protect\\v x", u"Arial 24 bold italic strike protected hidden"_qs},
        {"\\b\\b0 x", u"Arial 24"_qs},
        {"\\b{\\b0 }x", u"Arial 24 bold"_qs},
        {"\\b\\plain x", u"Arial 24"_qs},
        {"\\uldb\\ul0 x", u"Arial 24"_qs},
        {"\\dn6 x", u"Arial 24 raise=-6"_qs},
        {"\\up x", u"Arial 24 raise=6"_qs},
        {"\\super\\nosupersub x", u"Arial 24"_qs},
        {"\\cf1\\cf0 x", u"Arial 24"_qs},
        {"\\cf77 x", u"Arial 24"_qs},
        {"\\highlight2 x", u"Arial 24 background=0000ff"_qs},
        {"\\cb1\\highlight0 x", u"Arial 24"_qs},
        {"\\f3 \\'b7", u"Symbol 24 symbol"_qs},
        {"\\ulc1\\lang1031\\expndtw20 x", u"Arial 24 ulc=ff0000 spacing=20 lang=1031"_qs},
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
        {"\\rtlpar\\ql\\par", u"end left rtl=1"_qs},
        {"\\qr\\li720\\ri360\\fi-360\\sb100\\sa200\\par",
         u"end right li=720 ri=360 fi=-360 sb=100 sa=200"_qs},
        {"\\sl276\\slmult1\\par", u"end sl=276 slmult=1"_qs},
        {"\\sl-300\\slmult0\\par", u"end sl=-300"_qs},
        {"\\tx720\\tqr\\tx1440\\tqdec\\tx2000\\par", u"end tab0=720 tab1=1440 tab3=2000"_qs},
        {"\\li720\\pard\\par", u"end"_qs},
        {"{\\qc x}\\par", u"end"_qs}, // a format ends with its group
        {"\\li999999999\\par", u"end li=31680"_qs},
        {"\\cbpat2\\brdrb\\brdrdb\\brdrw15\\brsp20\\brdrcf1\\chbrdr\\brdrs\\par",
         u"end background=0000ff border2=3/15/20/ff0000"_qs},
        {"\\cfpat1\\cbpat2\\shading5000\\par", u"end background=7f0080"_qs},
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
    EXPECT_EQ(std::get<PictureRun>(second.operations[0]).picture->kind, PictureKind::Wmf);
    // A size that no page has is cut, one without bytes is none.
    const Document huge =
        readBody("{\\pict\\jpegblip\\picwgoal2000000000\\pichgoal60000 00}{\\pict\\pngblip\\picw9 }");
    ASSERT_EQ(huge.operations.size(), 1U);
    EXPECT_EQ(std::get<PictureRun>(huge.operations[0]).picture->displayWidth, 31680);
}

TEST(RtfReader, ReadsObjectsWithWhatTheyShow)
{
    const Document document = readBody(
        "a{\\object\\objemb\\objw1\\objh2{\\*\\objclass Package}{\\*\\objname n}{\\*\\objdata 01\r\n02}"
        "{\\result{\\pict\\wmetafile8 0304}}}b");
    ASSERT_EQ(document.operations.size(), 3U);
    const Picture &picture = *std::get<PictureRun>(document.operations[1]).picture;
    EXPECT_EQ(picture.kind, PictureKind::Wmf);
    ASSERT_TRUE(picture.object);
    EXPECT_EQ(utf8(picture.object->className), "Package");
    EXPECT_EQ(picture.object->data, "\x01\x02");
    EXPECT_EQ(picture.object->words, "\\objemb\\objh2\\objw1");
    EXPECT_EQ(picture.object->kept, "{\\*\\objname n}");

    // One that shows text stands around it, one that shows nothing is an empty picture.
    EXPECT_EQ(utf8(describe(readBody("a{\\object\\objlink{\\*\\objdata 01}{\\result \\b shown}}b"))),
              "text \"a\" (Arial 24)\n"
              "text \"shown\" (Arial 24 bold in={\\object\\objlink{\\*\\objdata\r\n01}{\\result)\n"
              "text \"b\" (Arial 24)\n");
    // None is around cells.
    const Document cells = readBody("{\\object{\\*\\objdata 01}{\\result{\\intbl a\\cell\\row}b}}");
    EXPECT_EQ(utf8(cells.plainText()), "a\nb");
    EXPECT_FALSE(describe(cells).contains(u"object"));
    const Document silent = readBody("{\\object\\objw300\\objh200{\\*\\objdata 0102}}");
    ASSERT_EQ(silent.operations.size(), 1U);
    const Picture &empty = *std::get<PictureRun>(silent.operations[0]).picture;
    EXPECT_TRUE(empty.bytes.isEmpty());
    EXPECT_EQ(empty.displayWidth, 300);
    EXPECT_EQ(empty.object->data, "\x01\x02");
}

TEST(RtfReader, ReadsLinksAndFields)
{
    const TextRow rows[] = {
        {"{\\field{\\*\\fldinst HYPERLINK \"http://x/\"}{\\fldrslt a{\\b b}}}c",
         u"text \"a\" (Arial 24 link=http://x/|)\ntext \"b\" (Arial 24 bold link=http://x/|)\n"
         "text \"c\" (Arial 24)\n"_qs},
        {"{\\field{\\*\\fldinst{ HYPERLINK mailto:a@b }}{\\fldrslt{\\plain a}}}",
         u"text \"a\" (Arial 24 link=mailto:a@b|)\n"_qs},
        {"{\\field{\\*\\fldinst HYPERLINK \"c:\\\\\\\\d\" \\\\l \"top\" \\\\o \"say \\\\\"x\\\\\"\" \\\\t "
         "f}{\\fldrslt a}}",
         u"text \"a\" (Arial 24 link=c:\\d#top|say \"x\")\n"_qs},
        {"{\\field\\fldlock{\\*\\fldinst PAGE}{\\fldrslt 3}}",
         u"text \"3\" (Arial 24 in={\\field\\fldlock{\\*\\fldinst PAGE}{\\fldrslt)\n"_qs},
        {"{\\field{\\*\\fldinst TOC}{\\fldrslt a{\\field{\\*\\fldinst PAGE}{\\fldrslt 3}}\\par b}}",
         u"text \"a\" (Arial 24 in={\\field{\\*\\fldinst TOC}{\\fldrslt)\n"
         "text \"3\" (Arial 24 in={\\field{\\*\\fldinst PAGE}{\\fldrslt in={\\field{\\*\\fldinst "
         "TOC}{\\fldrslt)\n"
         "end\ntext \"b\" (Arial 24 in={\\field{\\*\\fldinst TOC}{\\fldrslt)\n"_qs},
        {"{\\field{\\*\\fldinst DATE}{\\fldrslt}}a",
         u"kept {\\field{\\*\\fldinst DATE}{\\fldrslt}}\ntext \"a\" (Arial 24)\n"_qs},
        {"{\\field{\\*\\fldinst SYMBOL 183 \\\\f \"Symbol\" \\\\s 10}{\\fldrslt\\f3}}",
         u"text \"\u2022\" (Symbol 24 symbol)\n"_qs},
    };
    for (const TextRow &row : rows)
        EXPECT_EQ(utf8(describe(readBody(row.rtf))), utf8(row.expected)) << row.rtf;
}

TEST(RtfReader, KeepsWhatIsNotShown)
{
    const TextRow rows[] = {
        {"\\paperw11906{\\info{\\title T}}{\\*\\themedata 01}\\sectd{\\header\\f1\\cf2 \\'cf}x",
         u"prologue \\paperw11906{\\info{\\title T}}{\\*\\themedata 01}\\sectd{\\header"
         "\x01"
         "f\x04"
         "Cyr\x05\x03"
         "cf\x04"
         "ff\x05\\u1055 ?}\ntext \"x\" (Arial 24)\n"_qs},
        {"{\\stylesheet{\\s1\\f0 Head;}}\\s1 x\\par",
         u"styles {\\stylesheet{\\s1\x01"
         "f\x04"
         "Arial\x05 Head;}}\ntext \"x\" (Arial 24)\nend kept=\\s1\n"_qs},
        {"a{\\super\\chftn}{\\footnote {\\super\\chftn} note}b",
         u"text \"a\" (Arial 24)\nkept {\\super\\chftn}{\\footnote{\\super\\chftn} note}\ntext \"b\" (Arial 24)\n"_qs},
        {"a\\par\\sect\\sectd\\cols2 b",
         u"text \"a\" (Arial 24)\nend\nkept \\sect\\sectd\\cols2\ntext \"b\" (Arial 24)\n"_qs},
        {"{\\*\\bkmkstart x}a{\\*\\bkmkend x}\\par",
         u"kept {\\*\\bkmkstart x}\ntext \"a\" (Arial 24)\nkept {\\*\\bkmkend x}\nend\n"_qs},
        {"{\\*\\future\\'e9\\uc2 \\u8364 ab{\\pict\\bin2 }}}}a",
         u"prologue {\\*\\future\\u233 ?\\uc2\\u8364 ab{\\pict 7d7d}}\ntext \"a\" (Arial 24)\n"_qs},
        // What stands for a \u goes with it
        {"{\\*\\future\\u8364\\'e9}\\chpgn a",
         u"prologue {\\*\\future\\u8364 ?}\nkept {\\nosupersub\\chpgn}\ntext \"a\" (Arial 24)\n"_qs},
        {"x{\\*\\future\\bin2 }}}a", u"text \"xa\" (Arial 24)\n"_qs}, // data of no known kind
        {"{\\outl\\keepn x\\outl0 y\\par}",
         u"text \"x\" (Arial 24 kept=\\outl)\ntext \"y\" (Arial 24)\nend kept=\\keepn\n"_qs},
    };
    for (const TextRow &row : rows) {
        const Document document = readBody(row.rtf);
        EXPECT_EQ(utf8(describe(document)), utf8(row.expected)) << row.rtf;
        const QByteArray written = write(document);
        EXPECT_EQ(utf8(describe(*read(written))), utf8(row.expected)) << written.toStdString();
    }
}

TEST(RtfReader, ReadsLists)
{
    const QByteArray table =
        "{\\*\\listtable{\\list\\listtemplateid1"
        "{\\listlevel\\levelnfc4\\levelnfcn4\\levelfollow0\\levelstartat3{\\leveltext\\'02\\'00);}"
        "{\\levelnumbers\\'01;}\\fi-360\\li720}"
        "{\\listlevel\\levelnfc0\\levelfollow1\\levelstartat1{\\leveltext\\'03\\'00.\\'01;}{\\levelnumbers\\'"
        "01\\'03;}}"
        "{\\listlevel\\levelnfc23\\levelfollow2\\levelstartat1{\\leveltext\\'01\\u-3913 "
        "?;}{\\levelnumbers;}\\f3}"
        "{\\listname ;}\\listid7}}"
        "{\\listoverridetable{\\listoverride\\listid7\\listoverridecount0\\ls1}"
        "{\\listoverride\\listid7\\listoverridecount1{\\lfolevel\\listoverridestartat\\levelstartat9}\\ls2}}";
    const TextRow rows[] = {
        {"\\pard{\\listtext c)\\tab}\\ilvl0\\ls1 x\\par",
         u"end li=720 fi=-360 item<number=1 style=4 start=3 <1>)>"_qs},
        {"\\ls1\\ilvl1\\li100\\fi0 x\\par", u"end li=100 item<number=1 level=1 start=1 <1>.<2> follow=1>"_qs},
        {"\\ls1\\ilvl2 x\\par",
         u"end item<number=1 level=2 style=23 start=1 \u2022 Symbol symbol=1 follow=2>"_qs},
        {"\\ls2 x\\par", u"end li=720 fi=-360 item<number=2 style=4 start=9 <1>)>"_qs},
        {"\\ls1\\ilvl8 x\\par",
         u"end item<number=1 level=2 style=23 start=1 \u2022 Symbol symbol=1 follow=2>"_qs},
        {"\\ls1\\ls0 x\\par", u"end"_qs},
        {"\\ls99 x\\par", u"end"_qs},
        {"\\pard{\\pntext\\f0 (B.\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnstart2\\pnucltr{\\pntxtb (}{\\pntxta "
         ".}}x\\par",
         u"end item<style=3 start=2 (<1>. Arial>"_qs},
        {"\\pard{\\*\\pn\\pnlvlcont}x\\par", u"end"_qs},
    };
    for (const TextRow &row : rows) {
        const Document document = readBody(table + row.rtf);
        EXPECT_EQ(utf8(describe(document).trimmed().section(u'\n', -1)), utf8(row.expected)) << row.rtf;
        EXPECT_EQ(utf8(document.plainText()), "x\n") << row.rtf;
    }
}

TEST(RtfReader, ReadsTables)
{
    const TextRow rows[] = {
        {"\\trowd\\trgaph70\\trleft-"
         "70\\trhdr\\clbrdrt\\brdrs\\brdrw10\\brdrcf1\\clcbpat2\\cellx1000\\clvmgf\\clvertalc\\cellx3000"
         "\\pard\\intbl a\\cell b\\par c\\cell\\row\\pard d\\par",
         u"table\na\ncell\nb\nend\nc\ncell\nrow left=-70 gap=70 header=1 "
         "[right=1000 background=0000ff border0=1/10/0/ff0000] [right=3000 merge=1 valign=1]\ntable end\nd\nend\n"_qs},
        // Without \intbl; described behind the cells
        {"x\\par\\pard a\\cell b\\cell\\trowd\\cellx500\\cellx900\\row\\pard d",
         u"x\nend\ntable\na\ncell\nb\ncell\nrow [right=500] [right=900]\ntable end\nd\n"_qs},
        // Cells that are not described, and descriptions without a cell
        {"\\trowd\\cellx500\\pard\\intbl a\\cell b\\cell\\row",
         u"table\na\ncell\nb\ncell\nrow [right=500] [right=1940]\ntable end\n"_qs},
        {"\\trowd\\cellx500\\cellx600\\cellx50\\pard\\intbl a\\cell\\row",
         u"table\na\ncell\ncell\ncell\nrow [right=500] [right=600] [right=660]\ntable end\n"_qs},
        // Merged with the cell before
        {"\\trowd\\clmgf\\cellx500\\clmrg\\cellx600\\cellx700\\pard\\intbl a\\cell\\cell b\\cell\\row",
         u"table\na\ncell\nb\ncell\nrow [right=600] [right=700]\ntable end\n"_qs},
        {"\\trowd\\clmgf\\cellx500\\clmrg\\cellx600\\pard\\intbl a\\cell b\\cell\\row",
         u"table\na\nend\nb\ncell\nrow [right=600]\ntable end\n"_qs},
        // Inner tables
        {"\\trowd\\cellx900\\pard\\intbl o\\par\\itap2 "
         "a\\nestcell{\\nonesttables\\par}b\\nestcell{\\nonesttables\\par}"
         "{\\*\\nesttableprops\\trowd\\cellx100\\cellx200\\nestrow}{\\nonesttables\\par}\\pard\\intbl "
         "p\\cell\\row",
         u"table\no\nend\ntable\na\ncell\nb\ncell\nrow [right=100] [right=200]\ntable end\np\ncell\n"
         "row [right=900]\ntable end\n"_qs},
        // Of the innermost table, whatever is said around its end
        {"\\pard{\\intbl\\itap3 a\\nestcell}{\\*\\nesttableprops\\trowd\\cellx100\\nestrow}\\pard b",
         u"table\ntable\ntable\na\ncell\nrow [right=100]\ntable end\ncell\nrow [right=1440]\ntable end\n"
         "cell\nrow [right=1440]\ntable end\nb\n"_qs},
        // Ends that are missing
        {"\\trowd\\cellx900\\pard\\intbl a\\cell", u"table\na\ncell\nrow [right=1440]\ntable end\n"_qs},
        {"\\trowd\\cellx900\\pard\\intbl a\\par\\pard b",
         u"table\na\nend\ncell\nrow [right=1440]\ntable end\nb\n"_qs},
        {"\\row\\cellx5\\nestrow a", u"a\n"_qs},
    };
    for (const TextRow &row : rows) {
        const Document document = readBody(row.rtf);
        QString said = describe(document);
        said.replace(QRegularExpression(u"text \"([^\"]*)\" \\([^)]*\\)"_qs), u"\\1"_qs);
        EXPECT_EQ(utf8(said), utf8(row.expected)) << row.rtf;
        const QByteArray written = write(document);
        EXPECT_EQ(utf8(describe(*read(written))), utf8(describe(document))) << written.toStdString();
    }
}

TEST(RtfReader, TablesBeyondTheLimitsAreText)
{
    QByteArray deep = "\\pard";
    for (int level = 1; level <= kMaximumTableDepth + 3; ++level)
        deep += "\\intbl\\itap" + QByteArray::number(level) + " a\\nestcell ";
    const Document document = readBody(deep);
    int tables = 0;
    for (const Operation &operation : document.operations)
        tables += int(std::holds_alternative<TableBegin>(operation));
    EXPECT_LE(tables, kMaximumTableDepth);
    EXPECT_EQ(document.plainText().count(u'a'), kMaximumTableDepth + 3);

    QByteArray wide = "\\trowd";
    for (int i = 1; i <= 100'000; ++i)
        wide += "\\cellx" + QByteArray::number(i);
    for (int i = 1; i <= 100'000; ++i)
        wide += "\\intbl a\\cell";
    const Document row = readBody(wide + "\\row");
    EXPECT_EQ(row.rowFormats.at(0).cells.size(), kMaximumCellsInRow);
    EXPECT_EQ(row.plainText().count(u'a'), 100'000);
}

TEST(RtfReader, PaddingOfCellsIsMeantAsItsWritersMeanIt)
{
    const auto padding = [](const QByteArray &words) {
        const std::optional<Document> document =
            read("{\\rtf1\\trowd" + words + "\\cellx3000\\intbl x\\cell\\row}");
        return document->rowFormats.at(0).cells.at(0).padding;
    };
    // With units "l" is the top and "t" the left, without them they are what they are called.
    EXPECT_EQ(padding("\\clpadfl3\\clpadl10\\clpadft3\\clpadt20")[Side::Top], 10);
    EXPECT_EQ(padding("\\clpadfl3\\clpadl10\\clpadft3\\clpadt20")[Side::Left], 20);
    EXPECT_EQ(padding("\\clpadl10\\clpadr20")[Side::Left], 10);
    EXPECT_EQ(padding("\\clpadl10\\clpadr20")[Side::Right], 20);
    EXPECT_EQ(padding("\\clpadl10\\clpadr20")[Side::Top], std::nullopt);
}
