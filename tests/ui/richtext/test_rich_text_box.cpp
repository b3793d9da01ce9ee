#include "error_of.h"
#include "fakes/FakeFileSystem.h"
#include "richtext/RichTextBox.h"
#include "richtext/rtf/writer.h"
#include "sample_documents.h"

#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <gtest/gtest.h>

using namespace norvane;

namespace {

class RichTextBoxTest : public testing::Test
{
protected:
    void select(int start, int length)
    {
        box.setSelStart(start);
        box.setSelLength(length);
    }

    fakes::FakeFileSystem files;
    RichTextBox box{files};
};

} // namespace

TEST_F(RichTextBoxTest, PositionsCountBothUnitsOfAParagraphEnd)
{
    box.setText(u"ab\r\ncd\nef\rgh"_qs);
    EXPECT_EQ(box.Text(), u"ab\r\ncd\r\nef\r\ngh"_qs);
    select(4, 2);
    EXPECT_EQ(box.SelText(), u"cd"_qs);
    select(1, 5);
    EXPECT_EQ(box.SelText(), u"b\r\ncd"_qs);
    EXPECT_EQ(box.SelStart(), 1);
    EXPECT_EQ(box.SelLength(), 5);
    select(8, 99);
    EXPECT_EQ(box.SelText(), u"ef\r\ngh"_qs);
    EXPECT_EQ(box.SelLength(), 6);
    box.setSelStart(99);
    EXPECT_EQ(box.SelStart(), 14);
    box.setSelStart(3); // between CR and LF
    EXPECT_EQ(box.SelStart(), 2);
    EXPECT_EQ(errorOf([&] { box.setSelStart(-1); }), kErrorInvalidCall);
    EXPECT_EQ(errorOf([&] { box.setSelLength(-1); }), kErrorInvalidCall);
    EXPECT_EQ(box.SelStart(), 2);
}

TEST_F(RichTextBoxTest, PositionsAreThoseOfTheText)
{
    // Whatever stands in a document, a position is a place in Text.
    for (quint32 seed = 1; seed <= 40; ++seed) {
        box.setTextRTF(rtf::write(rtf::sampleDocument(seed)));
        const QString text = box.Text();
        for (int position = 0; position <= text.size(); ++position) {
            box.setSelStart(position);
            const bool inLineEnd = position > 0 && position < text.size() && text.at(position - 1) == u'\r' &&
                                   text.at(position) == u'\n';
            ASSERT_EQ(box.SelStart(), inLineEnd ? position - 1 : position) << seed;
            if (inLineEnd)
                continue;
            box.setSelLength(7);
            // Cells of tables are selected whole.
            const int start = box.SelStart();
            const int length = box.SelLength();
            ASSERT_EQ(box.SelText().toStdString(), text.mid(start, length).toStdString()) << seed;
            ASSERT_LE(start, position) << seed;
            ASSERT_GE(start + length, qMin(qsizetype(position) + 6, text.size())) << seed;
        }
    }
}

TEST_F(RichTextBoxTest, ASelectionOfCellsIsThoseCells)
{
    box.setTextRTF("{\\rtf1 a\\par"
                   "\\trowd\\cellx1000\\cellx2000\\intbl b\\cell c\\cell\\row"
                   "\\trowd\\cellx1000\\cellx2000\\intbl d\\cell e\\cell\\row\\pard f}");
    const int first = int(box.Text().indexOf(u'b'));
    const int last = int(box.Text().indexOf(u'd'));
    select(first, last - first + 1); // down the first column
    box.setSelBold(true);
    box.setSelAlignment(2);
    EXPECT_EQ(box.SelBold(), true);
    for (const QChar character : u"abcdef"_qs) {
        const bool isChanged = character == u'b' || character == u'd';
        select(int(box.Text().indexOf(character)), 1);
        EXPECT_EQ(box.SelBold(), isChanged) << character.toLatin1();
        EXPECT_EQ(box.SelAlignment(), isChanged ? 2 : 0) << character.toLatin1();
    }
}

TEST_F(RichTextBoxTest, MixedSelectionsReadAsNothing)
{
    box.setTextRTF("{\\rtf1{\\fonttbl{\\f0 Arial;}{\\f1 Courier New;}}{\\colortbl;\\red255\\green0\\blue0;}"
                   "\\pard\\f0\\fs20 a{\\b\\i\\ul\\strike\\protect\\cf1\\f1\\fs40 b}\\par\\qc\\ri100 "
                   "{\\pntext x}{\\*\\pn\\pnlvlblt}c\\par}");
    // Of the first character, of the second, and of both.
    const auto looks = [&] {
        return std::tuple(box.SelBold(), box.SelItalic(), box.SelUnderline(), box.SelStrikeThru(),
                          box.SelProtected(), box.SelColor(), box.SelFontName(), box.SelFontSize());
    };
    select(0, 1);
    EXPECT_TRUE(looks() == std::tuple(false, false, false, false, false, 0U, u"Arial"_qs, 10.0));
    select(1, 1); // red, in blue-green-red
    EXPECT_TRUE(looks() == std::tuple(true, true, true, true, true, 0x0000FFU, u"Courier New"_qs, 20.0));
    select(0, 2);
    EXPECT_TRUE(looks() == decltype(looks())());
    EXPECT_EQ(box.SelAlignment(), 0); // one paragraph

    select(0, 4); // up to the begin of the second paragraph: it is not touched
    EXPECT_EQ(box.SelBullet(), false);
    select(0, 5);
    EXPECT_EQ(box.SelBullet(), std::nullopt);
    EXPECT_EQ(box.SelAlignment(), std::nullopt);
    EXPECT_EQ(box.SelRightIndent(), std::nullopt);
    select(4, 1);
    EXPECT_EQ(box.SelBullet(), true);
    EXPECT_EQ(box.SelAlignment(), 2);
    EXPECT_EQ(box.SelRightIndent(), 100);
}

TEST_F(RichTextBoxTest, WritingAFormatChangesTheSelectionAlone)
{
    box.setText(u"abc\r\n\r\ndef"_qs);
    select(1, 8); // "bc", an empty paragraph, "d"
    box.setSelBold(true);
    box.setSelColor(0xFF0000);
    box.setSelFontSize(14.5);
    box.setSelFontName(u"Courier New"_qs);
    EXPECT_EQ(box.SelBold(), true);
    EXPECT_EQ(box.SelColor(), 0xFF0000U);
    EXPECT_EQ(box.SelFontSize(), 14.5);
    EXPECT_EQ(box.SelFontName(), u"Courier New"_qs);
    select(0, 1);
    EXPECT_EQ(box.SelBold(), false);
    select(9, 2);
    EXPECT_EQ(box.SelColor(), 0U);
    box.setSelStart(5); // what is typed into the empty paragraph
    EXPECT_EQ(box.SelBold(), true);

    select(1, 8);
    box.setSelBold(false);
    box.setSelColor(0);
    EXPECT_FALSE(box.TextRTF().contains("\\b"));
    EXPECT_FALSE(box.TextRTF().contains("colortbl"));
    box.undo(); // one step each
    select(1, 8);
    EXPECT_EQ(box.SelColor(), 0xFF0000U);
    EXPECT_EQ(box.SelBold(), false);
}

TEST_F(RichTextBoxTest, FormatWithoutSelectionIsForWhatIsTypedNext)
{
    box.setSelBold(true);
    box.setSelFontSize(20);
    EXPECT_EQ(box.SelBold(), true);
    QTest::keyClicks(&box, u"x"_qs);
    select(0, 1);
    EXPECT_EQ(box.SelBold(), true);
    EXPECT_EQ(box.SelFontSize(), 20.0);

    box.setTextRTF({}); // an emptied document keeps what was to be typed
    EXPECT_EQ(box.SelFontSize(), 20.0);
    EXPECT_EQ(box.Text(), QString());
}

TEST_F(RichTextBoxTest, OffsetsTabsAndIndents)
{
    box.setTextRTF("{\\rtf1\\pard\\tx500\\tx1000\\fs24 a{\\super b}{\\sub c}\\par\\pard d\\par}");
    const int third = 80; // of 12 points, in twips
    const std::optional<int> offsets[] = {0, third, -third};
    for (int i = 0; i < 3; ++i) {
        select(i, 1);
        EXPECT_EQ(box.SelCharOffset(), offsets[i]);
        EXPECT_EQ(box.SelTabCount(), 2);
    }
    select(0, 6);
    EXPECT_EQ(box.SelCharOffset(), std::nullopt);
    EXPECT_EQ(box.SelTabCount(), std::nullopt);
    box.setSelCharOffset(0);
    EXPECT_FALSE(box.TextRTF().contains("\\super"));
    box.setSelCharOffset(-1);
    EXPECT_TRUE(box.TextRTF().contains("\\sub"));
    box.setSelTabCount(1);
    EXPECT_TRUE(box.TextRTF().contains("\\tx500"));
    EXPECT_TRUE(box.TextRTF().contains("\\tx720"));
    EXPECT_FALSE(box.TextRTF().contains("\\tx1000"));

    EXPECT_EQ(errorOf([&] { box.setBulletIndent(-1); }), kErrorInvalidCall);
    box.setBulletIndent(500);
    box.setSelBullet(true);
    EXPECT_TRUE(box.TextRTF().contains("\\li500"));
    box.setSelBullet(false);
    EXPECT_FALSE(box.TextRTF().contains("\\li"));
}

TEST_F(RichTextBoxTest, FindSelectsWhatItFinds)
{
    box.setText(u"Cat concat\r\ncat caf\u00E9"_qs);
    EXPECT_EQ(box.Find(u"CAT"_qs, 0), 0);
    EXPECT_EQ(box.SelLength(), 3);
    EXPECT_EQ(box.Find(u"cat"_qs), 7); // goes on behind the selection
    EXPECT_EQ(box.Find(u"cat"_qs, 0, -1, RichTextBox::kMatchCase), 7);
    EXPECT_EQ(box.Find(u"cat"_qs, 1, -1, RichTextBox::kWholeWord), 12);
    EXPECT_EQ(box.SelText(), u"cat"_qs);
    EXPECT_EQ(box.Find(u"cat"_qs, 1, 9), -1); // beyond the end that was given
    EXPECT_EQ(box.Find(u"dog"_qs, 0), -1);
    EXPECT_EQ(box.Find({}, 0), -1);
    EXPECT_EQ(box.SelText(), u"cat"_qs);
    EXPECT_EQ(box.Find(u"CAF\u00C9"_qs, 0, -1, RichTextBox::kNoHighlight), 16);
    EXPECT_EQ(box.SelText(), u"cat"_qs);
}

TEST_F(RichTextBoxTest, LoadsAndSavesFiles)
{
    box.setText(u"caf\u00E9\r\n\u65E5\u672C"_qs);
    box.SaveFile(u"/a.rtf"_qs, 0);
    box.SaveFile(u"/a.txt"_qs, 1);
    EXPECT_TRUE(files.files.value(u"/a.rtf"_qs).startsWith("{\\rtf1"));
    EXPECT_EQ(files.files.value(u"/a.txt"_qs), QByteArray("caf\xC3\xA9\n\xE6\x97\xA5\xE6\x9C\xAC"));
    for (const auto &[name, format] : {std::pair(u"/a.rtf"_qs, 0), std::pair(u"/a.txt"_qs, 1)}) {
        box.setText(u"other"_qs);
        box.LoadFile(name, format);
        EXPECT_EQ(box.Text(), u"caf\u00E9\r\n\u65E5\u672C"_qs);
        EXPECT_FALSE(box.document()->isUndoAvailable());
    }
    files.files.insert(u"/latin"_qs, "caf\xE9");
    box.LoadFile(u"/latin"_qs, 1);
    EXPECT_EQ(box.Text(), u"caf\u00E9"_qs);
    files.files.insert(u"/utf16"_qs, QByteArray("\xFF\xFE"
                                                "a\0"
                                                "\xAC\x20",
                                                6));
    box.LoadFile(u"/utf16"_qs, 1);
    EXPECT_EQ(box.Text(), u"a\u20AC"_qs);
}

TEST_F(RichTextBoxTest, AFailureLeavesTheText)
{
    box.setText(u"kept"_qs);
    files.files.insert(u"/plain"_qs, "no rich text");
    files.files.insert(u"/empty"_qs, "");
    QSignalSpy changes(&box, &RichTextBox::Change);
    EXPECT_EQ(errorOf([&] { box.LoadFile(u"/plain"_qs, 0); }), kErrorFileFormat);
    EXPECT_EQ(errorOf([&] { box.LoadFile(u"/empty"_qs, 0); }), kErrorFileFormat);
    EXPECT_EQ(errorOf([&] { box.LoadFile(u"/nowhere"_qs, 0); }), kErrorFileNotFound);
    EXPECT_EQ(errorOf([&] { box.LoadFile(u"/plain"_qs, 7); }), kErrorInvalidCall);
    EXPECT_EQ(errorOf([&] { box.SaveFile(u"/x"_qs, 7); }), kErrorInvalidCall);
    EXPECT_EQ(errorOf([&] { box.setTextRTF("no rich text"); }), kErrorFileFormat);
    EXPECT_EQ(errorOf([&] { box.setSelRTF("no rich text"); }), kErrorFileFormat);
    files.failAllWrites = kErrorDiskFull;
    EXPECT_EQ(errorOf([&] { box.SaveFile(u"/x"_qs, 0); }), kErrorDiskFull);
    EXPECT_EQ(box.Text(), u"kept"_qs);
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(RichTextBoxTest, ProtectedTextIsNotTypedOver)
{
    box.setTextRTF("{\\rtf1 a{\\protect bcd}e\\par}");
    const auto press = [&](int position, int length, int key, const QString &text = {}) {
        select(position, length);
        QTest::sendKeyEvent(QTest::Click, &box, Qt::Key(key), text, Qt::NoModifier);
    };
    press(2, 0, Qt::Key_X, u"x"_qs);
    press(0, 3, Qt::Key_X, u"x"_qs);
    press(1, 0, Qt::Key_Delete);
    press(2, 0, Qt::Key_Backspace);
    press(2, 0, Qt::Key_Return, u"\r"_qs);
    EXPECT_EQ(box.Text(), u"abcde"_qs);
    press(4, 0, Qt::Key_Delete); // beside it, all is allowed
    press(1, 0, Qt::Key_Backspace);
    press(0, 0, Qt::Key_X, u"x"_qs);
    EXPECT_EQ(box.Text(), u"xbcd"_qs);
}

TEST_F(RichTextBoxTest, ProtectedTextTakesNoDrop)
{
    box.setTextRTF("{\\rtf1 ab{\\protect cd}ef\\par}");
    box.resize(300, 100);
    box.show();
    QMimeData data;
    data.setText(u"x"_qs);
    const auto drop = [&](int position) {
        box.setSelStart(position);
        const QPointF point = box.cursorRect().center();
        QDragEnterEvent enter(point.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(box.viewport(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent event(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(box.viewport(), &event);
        return event.isAccepted();
    };
    EXPECT_FALSE(drop(3));
    EXPECT_EQ(box.Text(), u"abcdef"_qs);
    EXPECT_TRUE(drop(1));
    EXPECT_EQ(box.Text(), u"axbcdef"_qs);
}

TEST_F(RichTextBoxTest, PicturesAreShownAndKept)
{
    const QByteArray hex = rtf::samplePng().toHex();
    box.setTextRTF("{\\rtf1 a{\\pict\\pngblip\\picwgoal1500\\pichgoal750 " + hex + "}b\\par}");
    EXPECT_EQ(box.Text(), u"a b"_qs);
    const QTextFragment fragment = (++box.document()->firstBlock().begin()).fragment();
    ASSERT_TRUE(fragment.charFormat().isImageFormat());
    const QTextImageFormat image = fragment.charFormat().toImageFormat();
    EXPECT_EQ(image.width(), 100);
    EXPECT_EQ(image.height(), 50);
    const QImage shown =
        qvariant_cast<QImage>(box.document()->resource(QTextDocument::ImageResource, QUrl(image.name())));
    EXPECT_EQ(shown.size(), QSize(1, 1));

    // Moved within the text, and taken back, it is still the picture.
    select(1, 1);
    const QByteArray piece = box.SelRTF();
    box.setSelText({});
    EXPECT_FALSE(box.TextRTF().contains(hex.left(40)));
    box.setSelStart(2);
    box.setSelRTF(piece);
    EXPECT_TRUE(box.TextRTF().contains(hex.left(40)));
    box.undo();
    box.undo();
    EXPECT_EQ(box.Text(), u"a b"_qs);
    EXPECT_TRUE(box.TextRTF().contains(hex.left(40)));
}

TEST_F(RichTextBoxTest, SignsAreShownByAnyFontAndKeepTheirs)
{
    box.setTextRTF("{\\rtf1{\\fonttbl{\\f0 Arial;}{\\f1\\fcharset2 Symbol;}}\\f1 abc\\par}");
    EXPECT_EQ(box.Text(), u"αβχ"_qs);
    box.selectAll();
    EXPECT_EQ(box.SelFontName(), u"Symbol"_qs);
    EXPECT_NE(box.textCursor().charFormat().font().families().value(0), u"Symbol"_qs);
    EXPECT_TRUE(box.TextRTF().contains("\\fcharset2 Symbol;}"));
    const QByteArray written = box.TextRTF();
    RichTextBox other(files);
    other.setTextRTF(written);
    EXPECT_EQ(other.Text(), box.Text());
    EXPECT_EQ(other.TextRTF(), written);

    box.setSelFontName(u"Arial"_qs); // still the same letters
    EXPECT_EQ(box.Text(), u"αβχ"_qs);
    EXPECT_FALSE(box.TextRTF().contains("fcharset2"));
    EXPECT_TRUE(box.TextRTF().contains("\\u945?"));
}
