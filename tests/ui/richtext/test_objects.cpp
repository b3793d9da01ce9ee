#include "Editing.h"
#include "richtext/frmOle.h"
#include "richtext/object_pictures.h"
#include "richtext/rtf/package_object.h"
#include "sample_documents.h"

#include <QApplication>
#include <QBuffer>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

using namespace norvane;

namespace {

QByteArray encodedImage(int width, int height, const char *format, QColor color = Qt::red)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

class Objects : public testing::Test, public UserAtEditor
{
protected:
    /// Runs the command and answers its dialog.
    void insertObject(const std::function<void(frmOle &)> &answer)
    {
        bool answered = false;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            auto *dialog = qobject_cast<frmOle *>(QApplication::activeModalWidget());
            if (!dialog || answered)
                return;
            answered = true;
            answer(*dialog);
            if (dialog->isVisible())
                dialog->reject();
        });
        timer.start(1);
        item(u"mnu_insert_obj"_qs)->trigger();
        QCoreApplication::processEvents();
        EXPECT_TRUE(answered);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    }
    static QPushButton *button(frmOle &dialog, const char *name)
    {
        return dialog.findChild<QPushButton *>(QLatin1String(name));
    }
    static QCheckBox *asIcon(frmOle &dialog) { return dialog.findChild<QCheckBox *>(u"Check1"_qs); }
    static QLineEdit *name(frmOle &dialog) { return dialog.findChild<QLineEdit *>(u"Text2"_qs); }
    static bool hasPreview(frmOle &dialog)
    {
        return !dialog.findChild<QLabel *>(u"OLE1"_qs)->pixmap(Qt::ReturnByValue).isNull();
    }
    void browse(frmOle &dialog, const QString &path)
    {
        prompts.files.enqueue(path);
        QTest::mouseClick(button(dialog, "Command3"), Qt::LeftButton);
    }
    static void accept(frmOle &dialog) { QTest::mouseClick(button(dialog, "Command1"), Qt::LeftButton); }

    /// What the object before a position of the text carries.
    std::optional<rtf::PackagedFile> fileBefore(int position)
    {
        select(position - 1, 1);
        const auto object = edit.box()->selectedObject();
        return object ? rtf::packagedFileOf(object->data) : std::nullopt;
    }
    QByteArray bytesBefore(int position) { return fileBefore(position).value_or(rtf::PackagedFile()).bytes; }
};

} // namespace

TEST_F(Objects, APictureIsShownAsItself)
{
    show();
    edit.setText(u"ab"_qs);
    select(1, 0);
    const QByteArray png = encodedImage(40, 20, "PNG");
    files.files.insert(u"/d/x/pic.png"_qs, png);
    insertObject([&](frmOle &dialog) {
        EXPECT_FALSE(button(dialog, "Command1")->isEnabled());
        EXPECT_FALSE(asIcon(dialog)->isEnabled());
        browse(dialog, u"/d/x/pic.png"_qs);
        EXPECT_TRUE(hasPreview(dialog));
        EXPECT_TRUE(asIcon(dialog)->isEnabled());
        EXPECT_FALSE(asIcon(dialog)->isChecked());
        EXPECT_FALSE(name(dialog)->isEnabled());
        accept(dialog);
    });
    EXPECT_TRUE(prompts.boxes.isEmpty());
    EXPECT_EQ(edit.Text(), u"a b"_qs);
    EXPECT_EQ(edit.SelStart(), 2);
    const QByteArray rtf = edit.TextRTF();
    EXPECT_TRUE(rtf.contains("\\objemb")) << rtf.toStdString();
    EXPECT_TRUE(rtf.contains("{\\*\\objclass Package}"));
    EXPECT_TRUE(rtf.contains("\\pngblip\\picw40\\pich20\\picwgoal600\\pichgoal300"));
    // The folder on this machine is nobody's business.
    EXPECT_EQ(fileBefore(2), (rtf::PackagedFile{u"pic.png"_qs, u"pic.png"_qs, u"pic.png"_qs, png}));

    // Saved and loaded, all of it is there.
    edit.setTextRTF(rtf);
    EXPECT_EQ(bytesBefore(2), png);
    EXPECT_EQ(edit.TextRTF(), rtf);
}

TEST_F(Objects, AnyFileIsShownAsAnIconWithAName)
{
    show();
    edit.setTextRTF("{\\rtf1\\b\\fs40 bold\\par}");
    files.files.insert(u"/d/report.pdf"_qs, "%PDF-1.4");
    files.files.insert(u"/d/pic.png"_qs, rtf::samplePng());
    select(0, 4);
    insertObject([&](frmOle &dialog) {
        browse(dialog, u"/d/pic.png"_qs);
        asIcon(dialog)->setChecked(true);
        EXPECT_TRUE(name(dialog)->isEnabled());
        // A file that is no picture has nothing but an icon.
        browse(dialog, u"/d/report.pdf"_qs);
        EXPECT_TRUE(asIcon(dialog)->isChecked());
        EXPECT_FALSE(asIcon(dialog)->isEnabled());
        EXPECT_EQ(name(dialog)->text(), u"report.pdf"_qs);
        name(dialog)->setText(u"The report"_qs);
        EXPECT_TRUE(hasPreview(dialog));
        accept(dialog);
    });
    EXPECT_EQ(edit.Text(), u" "_qs);
    EXPECT_EQ(fileBefore(1),
              (rtf::PackagedFile{u"The report"_qs, u"report.pdf"_qs, u"report.pdf"_qs, "%PDF-1.4"}));

    // One step back; what is typed behind an object is text, in the format of the text before.
    edit.setSelStart(1);
    QTest::keyClicks(edit.box(), u"x"_qs);
    EXPECT_EQ(edit.Text(), u" x"_qs);
    select(1, 1);
    EXPECT_EQ(edit.SelBold(), true);
    EXPECT_EQ(edit.SelFontSize(), 20.0);
    EXPECT_EQ(edit.box()->selectedObject(), nullptr);
    edit.box()->undo();
    edit.box()->undo();
    EXPECT_EQ(edit.Text(), u"bold"_qs);
    edit.box()->redo();
    EXPECT_EQ(bytesBefore(1), "%PDF-1.4");
}

TEST_F(Objects, TheSameIconStandsForSeveralFiles)
{
    show();
    for (const char *text : {"first", "second"}) {
        files.files.insert(u"/d/a.txt"_qs, text);
        insertObject([&](frmOle &dialog) {
            browse(dialog, u"/d/a.txt"_qs);
            accept(dialog);
        });
    }
    EXPECT_EQ(edit.TextRTF().count("{\\object"), 2);
    EXPECT_EQ(bytesBefore(1), "first");
    EXPECT_EQ(bytesBefore(2), "second");
}

TEST_F(Objects, FilesAreRefusedWithTheReason)
{
    show();
    files.files.insert(u"/d/large.bin"_qs, QByteArray(frmOle::kLargestFile + 1, 'x'));
    files.files.insert(u"/d/ok.txt"_qs, "ok");
    insertObject([&](frmOle &dialog) {
        browse(dialog, {}); // cancelled
        EXPECT_TRUE(prompts.boxes.isEmpty());
        browse(dialog, u"/d/gone.txt"_qs);
        browse(dialog, u"/d/large.bin"_qs);
        ASSERT_EQ(prompts.boxes.size(), 2);
        EXPECT_TRUE(prompts.boxes.at(1).text.contains(u"'large.bin' is too large"));
        EXPECT_FALSE(button(dialog, "Command1")->isEnabled());
        browse(dialog, u"/d/ok.txt"_qs);
        browse(dialog, u"/d/gone.txt"_qs); // the one before stays
        EXPECT_TRUE(button(dialog, "Command1")->isEnabled());
        accept(dialog);
    });
    EXPECT_EQ(bytesBefore(1), "ok");

    frmOle narrow(files, prompts, {1, 100});
    prompts.boxes.clear();
    browse(narrow, u"/d/ok.txt"_qs);
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_TRUE(prompts.boxes.at(0).text.contains(u"no room for 'ok.txt'"));
}

TEST_F(Objects, NothingGoesIntoALockedText)
{
    show();
    edit.setText(u"ab"_qs);
    edit.setLocked(true);
    item(u"mnu_insert_obj"_qs)->trigger();
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    edit.setLocked(false);
    files.files.insert(u"/d/ok.txt"_qs, "ok");
    insertObject([&](frmOle &dialog) {
        browse(dialog, u"/d/ok.txt"_qs);
        edit.setLocked(true); // while it stands open
        accept(dialog);
    });
    EXPECT_EQ(edit.Text(), u"ab"_qs);
}

TEST_F(Objects, OpensOnADoubleClickOnIt)
{
    show();
    edit.setText(u"ab"_qs);
    edit.setSelStart(2);
    edit.box()->addOleObject(packaged(iconOfFile(u"a.txt"_qs, u"a.txt"_qs), {}, u"a.txt"_qs, "inside"));
    edit.setLocked(true); // it can be read
    prompts.answers.append({Prompts::kYes, Prompts::kYes});
    const QPoint onObject = pointOf(2);
    const auto doubleClick = [this](QPoint point) {
        QTest::mouseDClick(edit.box()->viewport(), Qt::LeftButton, {}, point);
        QCoreApplication::processEvents();
    };
    doubleClick(pointOf(0));
    doubleClick(edit.box()->viewport()->rect().bottomRight() - QPoint(10, 10));
    EXPECT_TRUE(prompts.boxes.isEmpty());
    doubleClick(onObject);
    ASSERT_EQ(shell.opened.size(), 1);
    EXPECT_TRUE(shell.opened.first().endsWith(u"/a.txt"_qs));

    // By the keyboard, when it is selected; with links on, too.
    edit.setAutoURLDetect(true);
    select(2, 1);
    QTest::keyClick(edit.box(), Qt::Key_Return, Qt::ControlModifier);
    QCoreApplication::processEvents();
    EXPECT_EQ(shell.opened.size(), 2);
    select(1, 1);
    QTest::keyClick(edit.box(), Qt::Key_Return, Qt::ControlModifier);
    QCoreApplication::processEvents();
    EXPECT_EQ(prompts.boxes.size(), 2);
}

TEST(ObjectPictures, LargePicturesAreShownSmaller)
{
    const QByteArray large = encodedImage(3000, 1500, "JPEG");
    const auto shown = pictureOfFile(large);
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->kind, rtf::PictureKind::Jpeg);
    EXPECT_EQ(shown->displayWidth, 2 * shown->displayHeight);
    EXPECT_LE(shown->displayWidth, 480 * 15);
    EXPECT_LT(shown->bytes.size(), large.size());
    EXPECT_EQ(QImage::fromData(shown->bytes).size(), QSize(shown->width, shown->height));

    EXPECT_EQ(pictureOfFile(large, 200)->displayWidth, 200 * 15);
    const QByteArray small = encodedImage(480, 20, "PNG");
    EXPECT_EQ(pictureOfFile(small)->bytes, small);
    EXPECT_EQ(pictureOfFile(encodedImage(30, 20, "BMP"))->kind, rtf::PictureKind::Png);
    EXPECT_GT(pictureOfFile(encodedImage(20'000, 1, "PNG"))->displayHeight, 0);
    EXPECT_FALSE(pictureOfFile("no picture"));
}
