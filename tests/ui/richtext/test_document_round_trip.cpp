#include "fakes/FakeFileSystem.h"
#include "richtext/RichTextBox.h"
#include "richtext/rtf/read.h"
#include "richtext/rtf/writer.h"
#include "sample_documents.h"
#include "through_text_document.h"

#include <gtest/gtest.h>

using namespace norvane;

TEST(DocumentRoundTrip, ATextDocumentGivesBackWhatItWasFilledWith)
{
    for (quint32 seed = 1; seed <= 150; ++seed) {
        const rtf::Document document = rtf::sampleDocument(seed);
        ASSERT_EQ(firstDifference(throughTextDocument(document), document).toStdString(), "") << seed;
    }
}

TEST(DocumentRoundTrip, LoadingAndSavingAgainChangesNothing)
{
    fakes::FakeFileSystem files;
    RichTextBox box(files);
    for (quint32 seed = 200; seed < 260; ++seed) {
        const QByteArray written = rtf::write(rtf::sampleDocument(seed));
        box.setTextRTF(written);
        ASSERT_EQ(firstDifference(*rtf::read(box.TextRTF()), *rtf::read(written)).toStdString(), "") << seed;
        ASSERT_TRUE(box.TextRTF() == written) << seed;
    }
}

TEST(DocumentRoundTrip, AWholeDocumentSwallowsOneParagraphEnd)
{
    fakes::FakeFileSystem files;
    RichTextBox box(files);
    box.setTextRTF("{\\rtf1 a\\par}");
    EXPECT_EQ(box.Text(), u"a"_qs);
    box.setTextRTF("{\\rtf1 a\\par\\par}");
    EXPECT_EQ(box.Text(), u"a\r\n"_qs);
    box.setTextRTF("{\\rtf1 a}");
    EXPECT_EQ(box.Text(), u"a"_qs);

    box.setSelStart(1);
    box.setSelRTF("{\\rtf1 b\\par}"); // a piece keeps it
    EXPECT_EQ(box.Text(), u"ab\r\n"_qs);
    EXPECT_EQ(box.SelStart(), 4);
}

TEST(DocumentRoundTrip, TheFormatOfALastParagraphWithoutEndIsIgnored)
{
    fakes::FakeFileSystem files;
    RichTextBox box(files);
    box.setTextRTF("{\\rtf1\\qc a\\par b}");
    box.setSelStart(0);
    EXPECT_EQ(box.SelAlignment(), 2);
    box.setSelStart(3);
    EXPECT_EQ(box.SelAlignment(), 0);
}

TEST(DocumentRoundTrip, APieceLeavesTheParagraphsAroundIt)
{
    fakes::FakeFileSystem files;
    RichTextBox box(files);
    box.setTextRTF("{\\rtf1\\qc ac\\par\\pard{\\pntext x}{\\*\\pn\\pnlvlblt}d\\par}");
    box.setSelStart(1);
    box.setSelRTF("{\\rtf1 x\\par\\qr y\\par}");
    EXPECT_EQ(box.Text(), u"ax\r\ny\r\nc\r\nd"_qs);
    const int expected[] = {0, 1, 2};
    for (int line = 0, position = 0; line < 3; position += 4 - line % 2, ++line) {
        box.setSelStart(position);
        EXPECT_EQ(box.SelAlignment(), expected[line]) << line;
    }
    box.setSelStart(99);
    EXPECT_EQ(box.SelBullet(), true);
    box.setSelRTF("{\\rtf1 inline}"); // without a paragraph end it is a part of the paragraph
    EXPECT_EQ(box.SelBullet(), true);
    EXPECT_EQ(box.SelText(), QString());
}
