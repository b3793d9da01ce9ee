#include "richtext/rtf/read.h"
#include "richtext/rtf/writer.h"
#include "sample_documents.h"

#include <gtest/gtest.h>

using namespace norvane::rtf;

TEST(RtfWriter, WritesTheDialectOfRichEditComponents)
{
    Document document;
    document.defaultFont = QStringLiteral("Arial");
    CharacterFormat normal;
    normal.font = document.defaultFont;
    normal.halfPoints = 20;
    CharacterFormat red = normal;
    red.color = 0xFF0000;
    red.bold = true;
    ParagraphFormat bullet;
    bullet.setBullet(true);
    bullet.leftIndent = 200;
    bullet.firstIndent = -200;
    const int plain = document.characterFormats.indexOf(normal);
    const int strong = document.characterFormats.indexOf(red);
    const int ordinary = document.paragraphFormats.indexOf({});
    const int listed = document.paragraphFormats.indexOf(bullet);
    document.operations = {TextRun{QStringLiteral("é "), plain}, TextRun{QStringLiteral("€😀"), strong},
                           ParagraphEnd{ordinary, strong},       TextRun{QStringLiteral("one"), plain},
                           ParagraphEnd{listed, plain},          TextRun{QStringLiteral("{two}"), plain},
                           ParagraphEnd{listed, plain}};
    EXPECT_EQ(write(document).toStdString(),
              "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Arial;}"
              "{\\f1\\fnil\\fcharset2 Symbol;}}\r\n"
              "{\\colortbl ;\\red255\\green0\\blue0;}\r\n"
              "\\viewkind4\\uc1\\pard\\f0\\fs20\\'e9 \\cf1\\b\\u8364?\\u-10179?\\u-8704?\\par\r\n"
              "\\pard{\\pntext\\f1\\'b7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'b7}}"
              "\\fi-200\\li200\\cf0\\b0 one\\par\r\n"
              "{\\pntext\\f1\\'b7\\tab}\\{two\\}\\par\r\n"
              "}\r\n");
}

TEST(RtfWriter, ReadingGivesBackWhatWasWritten)
{
    for (quint32 seed = 1; seed <= 150; ++seed) {
        const Document document = sampleDocument(seed);
        const QByteArray written = write(document);
        ASSERT_TRUE(std::all_of(written.begin(), written.end(), [](char c) { return c > 0; })) << seed;
        const std::optional<Document> again = read(written);
        ASSERT_TRUE(again) << seed;
        ASSERT_EQ(firstDifference(*again, document).toStdString(), "") << seed;
        ASSERT_TRUE(write(*again) == written) << seed;
    }
}

TEST(RtfWriter, WritesFontsOfSignsAsBytes)
{
    const QByteArray rtf =
        "{\\rtf1\\ansi{\\fonttbl{\\f0\\fcharset0 Arial;}{\\f1\\fcharset2 Wingdings;}}\\f1 a\\'fc \\par}";
    const Document document = *read(rtf);
    EXPECT_EQ(document.plainText().toStdString(), QStringLiteral("\u264B\u2713 \n").toStdString());
    const QByteArray written = write(document);
    EXPECT_TRUE(written.contains("\\fcharset2 Wingdings;")) << written.toStdString();
    EXPECT_TRUE(written.contains("\\'61\\'fc ")) << written.toStdString();
    EXPECT_EQ(describe(*read(written)).toStdString(), describe(document).toStdString());
}

TEST(RtfWriter, WritesObjectsAndMetafilesAsTheyCame)
{
    const QByteArray object = "{\\object\\objemb{\\*\\objclass Package}{\\*\\objname n}{\\*\\objdata\r\n0102}"
                              "{\\result{\\pict\\wmetafile8\r\n0304}}}";
    const QByteArray metafile =
        "{\\pict\\wmetafile8\\picw100\\pich200\\picwgoal300\\pichgoal400\r\n01020304}";
    const QByteArray twice =
        "{\\*\\shppict{\\pict\\emfblip 05}}{\\nonshppict{\\pict\\pngblip " + samplePng().toHex() + "}}";
    const QByteArray written = write(*read("{\\rtf1 " + object + metafile + twice + "\\par}"));
    for (const QByteArray &part : {object, metafile, twice})
        EXPECT_TRUE(written.contains(part)) << written.toStdString();
}

TEST(RtfWriter, CountsTheItemsOfLists)
{
    const QByteArray rtf =
        "{\\rtf1{\\*\\listtable{\\list{\\listlevel\\levelnfc0\\levelstartat1{\\leveltext\\'02\\'00.;}{"
        "\\levelnumbers\\'01;}}"
        "{\\listlevel\\levelnfc4\\levelstartat1{\\leveltext\\'03\\'00\\'01.;}{\\levelnumbers\\'01\\'02;}}"
        "\\listid5}}"
        "{\\*\\listoverridetable{\\listoverride\\listid5\\ls1}{\\listoverride\\listid5\\ls2}}"
        "\\pard\\ls1 a\\par\\ilvl1 b\\par\\ilvl1 c\\par\\pard d\\par\\pard\\ls2 e\\par\\ilvl1 f\\par"
        "\\pard{\\*\\pn\\pnlvlbody\\pnstart4\\pndec{\\pntxta )}}g\\par h\\par"
        "\\pard\\li500{\\*\\pn\\pnlvlbody\\pnstart1\\pnlcrm{\\pntxta )}}i\\par"
        "\\pard{\\*\\pn\\pnlvlbody\\pnstart4\\pndec{\\pntxta )}}j\\par\\pard k\\par"
        "\\pard{\\*\\pn\\pnlvlbody\\pnstart4\\pndec{\\pntxta )}}l\\par}";
    const QByteArray written = write(*read(rtf));
    QByteArrayList marks;
    for (qsizetype at = 0; (at = written.indexOf("text", at)) >= 0; ++at) {
        const QByteArray mark = written.mid(at + 4, written.indexOf("\\tab}", at) - at - 4);
        if (written.mid(at - 2, 2) == "pn" || written.mid(at - 4, 4) == "list")
            marks += mark.mid(mark.indexOf(' ') + 1);
    }
    EXPECT_EQ(marks.join(" "), "1. 1a. 1b. 2. 2a. 4) 5) i) 6) 4)") << written.toStdString();
}
