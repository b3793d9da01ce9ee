#include "fakes/FakeFileSystem.h"
#include "richtext/RichTextBox.h"
#include "richtext/edit_mime_data.h"
#include "sample_documents.h"

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QMimeData>
#include <QTest>
#include <gtest/gtest.h>

using namespace norvane;

namespace {

class ClipboardTest : public testing::Test
{
protected:
    void SetUp() override { QApplication::clipboard()->clear(); }

    void offer(const std::function<void(QMimeData &)> &fill)
    {
        auto data = std::make_unique<QMimeData>();
        fill(*data);
        QApplication::clipboard()->setMimeData(data.release());
    }

    fakes::FakeFileSystem files;
    RichTextBox box{files};
};

} // namespace

TEST_F(ClipboardTest, CopiesAsRichTextHtmlAndText)
{
    box.setTextRTF("{\\rtf1 a{\\b b}\\par c{\\pict\\pngblip " + rtf::samplePng().toHex() + "}\\par}");
    box.selectAll();
    box.copy();
    const QMimeData *data = QApplication::clipboard()->mimeData();
    EXPECT_TRUE(data->data(u"text/rtf"_qs).startsWith("{\\rtf1"));
    EXPECT_EQ(data->data(u"application/rtf"_qs), data->data(u"text/rtf"_qs));
    EXPECT_EQ(data->text(), u"ab\nc "_qs);
    EXPECT_TRUE(data->html().contains(u"font-weight"_qs));
    EXPECT_TRUE(data->html().contains(u"src=\"data:image/png;base64,"_qs));
    EXPECT_FALSE(data->html().contains(u"picture:"_qs));

    RichTextBox other(files);
    other.paste();
    EXPECT_EQ(other.Text(), u"ab\r\nc "_qs);
    EXPECT_EQ(other.TextRTF(), box.TextRTF());
}

TEST_F(ClipboardTest, TakesTheRichestThatIsOffered)
{
    const auto fillAll = [](QMimeData &data) {
        data.setData(u"text/rtf"_qs, "{\\rtf1 from rtf}");
        data.setHtml(u"<b>from html</b>"_qs);
        data.setText(u"from text"_qs);
    };
    offer(fillAll);
    box.paste();
    EXPECT_EQ(box.Text(), u"from rtf"_qs);

    box.setText({});
    offer([&](QMimeData &data) {
        fillAll(data);
        data.setData(u"text/rtf"_qs, "not rich text");
    });
    box.paste();
    EXPECT_EQ(box.Text(), u"from html"_qs);
    box.selectAll();
    EXPECT_EQ(box.SelBold(), true);

    box.setText({});
    offer([](QMimeData &data) { data.setText(u"from\ntext"_qs); });
    box.paste();
    EXPECT_EQ(box.Text(), u"from\r\ntext"_qs);
}

TEST_F(ClipboardTest, AnImageOfASharpScreenLooksAsLargeAsThere)
{
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(Qt::red);
    image.setDevicePixelRatio(2);
    QMimeData data;
    data.setImageData(image);
    const std::optional<rtf::Picture> picture = pictureOf(data);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, 40);
    EXPECT_EQ(picture->displayWidth, 20 * 15);
    EXPECT_EQ(picture->displayHeight, 10 * 15);
}

TEST_F(ClipboardTest, KeepsTheImagesThatHtmlCarriesAndNoOthers)
{
    offer([](QMimeData &data) {
        data.setHtml(u"a<img src='data:image/png;base64,%1'>b<img src='http://127.0.0.1:1/x.png'>c"_qs.arg(
            QString::fromLatin1(rtf::samplePng().toBase64())));
    });
    box.paste();
    const QByteArray written = box.TextRTF();
    EXPECT_EQ(written.count("\\pngblip"), 1);
    EXPECT_TRUE(written.contains(rtf::samplePng().toHex().left(60)));
    EXPECT_FALSE(written.contains("127.0.0.1"));
}

TEST_F(ClipboardTest, TakesThePictureWhereHtmlOnlyNamesIt)
{
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(Qt::green);
    // As browsers offer a picture that was copied.
    offer([&](QMimeData &data) {
        data.setHtml(u"<meta charset='utf-8'><img src='https://a.org/x.png' alt='x'/>"_qs);
        data.setImageData(image);
    });
    box.paste();
    EXPECT_TRUE(box.TextRTF().contains("\\pngblip\\picw20\\pich10"));

    box.setText({});
    offer([&](QMimeData &data) {
        data.setHtml(u"<p>words <img src='https://a.org/x.png'/></p>"_qs);
        data.setImageData(image);
    });
    box.paste();
    EXPECT_TRUE(box.Text().startsWith(u"words"_qs));
}

TEST_F(ClipboardTest, PastesAsPlainTextByAKey)
{
    box.setText(u"a"_qs);
    box.setSelLength(1);
    box.setSelItalic(true);
    box.setSelStart(1);
    offer([](QMimeData &data) {
        data.setData(u"text/rtf"_qs, "{\\rtf1\\b rich}");
        data.setText(u"plain\ntext"_qs);
    });
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(box.Text(), u"aplain\r\ntext"_qs);
    box.selectAll();
    EXPECT_EQ(box.SelBold(), false);
    EXPECT_EQ(box.SelItalic(), true); // as what stands there
    box.undo();
    EXPECT_EQ(box.Text(), u"a"_qs);
}
