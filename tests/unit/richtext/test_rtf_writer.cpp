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
    bullet.bullet = true;
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
              "\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}"
              "\\fi-200\\li200\\cf0\\b0 one\\par\r\n"
              "{\\pntext\\f1\\'B7\\tab}\\{two\\}\\par\r\n"
              "}\r\n");
}

TEST(RtfWriter, ReadingGivesBackWhatWasWritten)
{
    for (quint32 seed = 1; seed <= 400; ++seed) {
        const Document document = sampleDocument(seed);
        const QByteArray written = write(document);
        ASSERT_TRUE(std::all_of(written.begin(), written.end(), [](char c) { return c > 0; })) << seed;
        const std::optional<Document> again = read(written);
        ASSERT_TRUE(again) << seed;
        ASSERT_EQ(describe(*again).toStdString(), describe(document).toStdString()) << seed;
        ASSERT_EQ(write(*again).toStdString(), written.toStdString()) << seed;
    }
}

TEST(RtfWriter, WritesFontsOfSignsAsBytes)
{
    const QByteArray rtf =
        "{\\rtf1\\ansi{\\fonttbl{\\f0\\fcharset0 Arial;}{\\f1\\fcharset2 Wingdings;}}\\f1 a\\'fc \\par}";
    const Document document = *read(rtf);
    EXPECT_EQ(document.plainText().toStdString(), QStringLiteral("\uF061\uF0FC \n").toStdString());
    const QByteArray written = write(document);
    EXPECT_TRUE(written.contains("\\fcharset2 Wingdings;")) << written.toStdString();
    EXPECT_TRUE(written.contains("\\'61\\'fc ")) << written.toStdString();
    EXPECT_EQ(describe(*read(written)).toStdString(), describe(document).toStdString());
}

TEST(RtfWriter, KeepsForeignPiecesAsTheyCame)
{
    const QByteArray object =
        "{\\object\\objemb{\\*\\objclass Package}{\\*\\objdata 0102}{\\result{\\pict\\pngblip " +
        samplePng().toHex() + "}}}";
    const QByteArray metafile =
        "{\\pict\\wmetafile8\\picw100\\pich200\\picwgoal300\\pichgoal400\r\n01020304}";
    const QByteArray written = write(*read("{\\rtf1 " + object + metafile + "\\par}"));
    EXPECT_TRUE(written.contains(object)) << written.toStdString();
    EXPECT_TRUE(written.contains(metafile)) << written.toStdString();
}
