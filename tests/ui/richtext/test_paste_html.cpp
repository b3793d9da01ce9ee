#include "fakes/FakeFileSystem.h"
#include "richtext/RichTextBox.h"
#include "richtext/html_document.h"
#include "sample_documents.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QMimeData>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace norvane;

namespace {

/// What browsers give for a page: one the page's source alone, one with the look of each part.
class PasteHtml : public testing::Test
{
protected:
    QByteArray pasted(const QString &html)
    {
        auto data = std::make_unique<QMimeData>();
        data->setHtml(html);
        QApplication::clipboard()->setMimeData(data.release());
        box.setText({});
        box.paste();
        return box.TextRTF();
    }
    /// Whether a text has what the other has, and in its order.
    static testing::AssertionResult hasInOrder(const QByteArray &text, const QList<QByteArray> &parts)
    {
        qsizetype at = 0;
        for (const QByteArray &part : parts) {
            const qsizetype found = text.indexOf(part, at);
            if (found < 0)
                return testing::AssertionFailure() << part.toStdString() << " is not in\n"
                                                   << text.toStdString();
            at = found + part.size();
        }
        return testing::AssertionSuccess();
    }

    fakes::FakeFileSystem files;
    RichTextBox box{files};
};

} // namespace

TEST_F(PasteHtml, APageAsItsSource)
{
    const QByteArray rtf =
        pasted(u"<meta charset='utf-8'><h1>Head</h1><p>With <b>bold</b>, x<sup>2</sup> and a "
               "<a href=\"https://example.org/p?q=1&amp;r=2\">link</a>.</p>"
               "<ul><li>one<ul><li>inner</li></ul></li></ul>"
               "<ol start='3'><li>three</li><li>four</li></ol>"
               "<table><tr><th>Name</th><td>Value</td></tr>"
               "<tr><td colspan='2'>both</td></tr></table>"
               "<p>Image: <img src='file:///x.png' alt='a picture'> after"
               "<img src='https://127.0.0.1:1/x.png'>.</p><pre>a\n  b</pre>"_qs);
    EXPECT_TRUE(hasInOrder(rtf, {"\\fs40\\b Head\\par", "\\b bold\\b0", "x\\super 2",
                                 "HYPERLINK \"https://example.org/p?q=1&r=2\"", "\\li360", "one\\par",
                                 "\\li720", "inner\\par", "\\pnstart3", "three\\par", "four\\par", "\\trowd",
                                 "Name\\cell", "Value\\cell", "\\trowd", "both\\cell",
                                 "Image: a picture after.", "a\\par", "  b"}));
    // Columns are as wide as their words, in all rows.
    EXPECT_FALSE(rtf.contains("\\cellx4500")) << rtf.toStdString();
    EXPECT_FALSE(rtf.contains("\\pict"));

    // What was pasted is what is read again.
    RichTextBox other(files);
    other.setTextRTF(rtf);
    EXPECT_EQ(other.Text(), box.Text());
    EXPECT_EQ(other.TextRTF(), rtf);
}

TEST_F(PasteHtml, APageWithItsLook)
{
    const QByteArray rtf = pasted(
        u"<p style='color: rgb(34, 34, 34); font-family: Georgia, serif; font-size: 16px; "
        "background-color: rgb(255, 255, 255); text-decoration-color: initial;'>plain "
        "<span style='color: rgb(204, 0, 0);'>red</span> "
        "<span style='background: rgb(255, 255, 0);'>marked</span> "
        "<span style='color: rgb(255, 255, 255); background: rgb(0, 0, 128);'>light on dark</span></p>"
        "<table style='border-collapse: collapse;'><tr><td style='border: 1px solid rgb(153, 153, 153); "
        "padding: 4px 8px; background: rgb(255, 255, 255);'>cell</td></tr></table>"_qs);
    EXPECT_TRUE(hasInOrder(rtf, {"Georgia;", "\\fs24 plain \\cf1 red\\cf0 ", "marked", "light on dark",
                                 "\\clbrdrt", "cell\\cell"}));
    // The ink and the paper are the note's; colours of the text stay.
    EXPECT_FALSE(rtf.contains("\\cbpat")) << rtf.toStdString();
    EXPECT_FALSE(rtf.contains("\\ulc"));
    EXPECT_TRUE(rtf.contains("\\red204\\green0\\blue0"));
    EXPECT_TRUE(rtf.contains("\\red255\\green255\\blue255")); // on its own ground
    EXPECT_TRUE(rtf.contains("\\red255\\green255\\blue0"));
    EXPECT_TRUE(hasInOrder(rtf, {"\\clpadft3\\clpadt120", "\\clpadfr3\\clpadr120"})) << rtf.toStdString();
}

TEST_F(PasteHtml, WordsGoIntoTheParagraphAtTheCaret)
{
    box.setText(u"ab"_qs);
    auto data = std::make_unique<QMimeData>();
    data->setHtml(u"<b>X</b> y"_qs);
    QApplication::clipboard()->setMimeData(data.release());
    box.setSelStart(1);
    box.paste();
    EXPECT_EQ(box.Text(), u"aX yb"_qs);
    box.undo();
    EXPECT_EQ(box.Text(), u"ab"_qs);

    // A list that ends the piece stays a list.
    const QByteArray rtf = pasted(u"<ul><li>one</li><li>two</li></ul>"_qs);
    EXPECT_TRUE(hasInOrder(rtf, {"\\pnlvlblt", "one\\par", "two\\par"}));
}

TEST_F(PasteHtml, NothingIsLoaded)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(u"here.png"_qs);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(rtf::samplePng());
    file.close();
    QFile style(folder.filePath(u"s.css"_qs));
    ASSERT_TRUE(style.open(QIODevice::WriteOnly));
    style.write("p { color: rgb(1, 200, 3) }");
    style.close();
    const QByteArray rtf =
        pasted(u"<head><link rel='stylesheet' href='file://%1'/></head><body><p>a<img src='file://%2'>b<img "
               "src='%2'>c</p></body>"_qs.arg(style.fileName(), path));
    EXPECT_EQ(box.Text(), u"abc"_qs);
    EXPECT_FALSE(rtf.contains("\\pict"));
    EXPECT_FALSE(rtf.contains("green200"));
}
