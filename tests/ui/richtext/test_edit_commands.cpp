#include "Editing.h"
#include "richtext/frmFind.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPdfWriter>
#include <QPointer>
#include <QProcess>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

using namespace norvane;

namespace {

class EditCommands : public testing::Test, public UserAtEditor
{
protected:
    void pressAndWait(const QString &key)
    {
        press(key);
        QCoreApplication::processEvents();
    }
    QMenu *popUp()
    {
        QTest::mouseClick(edit.box()->viewport(), Qt::RightButton, {}, QPoint(20, 10));
        return qobject_cast<QMenu *>(QApplication::activePopupWidget());
    }
    /// Chooses an item of the menu, which must be open.
    void choose(const QString &name)
    {
        item(name)->trigger();
        edit.findChild<QMenu *>(u"mnu"_qs)->close();
        QCoreApplication::processEvents();
    }
};

/// Answers each find dialog that opens with the next of some actions.
class FindDialogs : public QObject
{
public:
    using Action = std::function<void(frmFind &)>;
    explicit FindDialogs(QList<Action> actions) : m_actions(std::move(actions)) { m_timer.start(1); }
    ~FindDialogs() override { EXPECT_TRUE(m_actions.isEmpty()); }

private:
    void answer()
    {
        auto *dialog = qobject_cast<frmFind *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        ASSERT_FALSE(m_actions.isEmpty());
        m_actions.takeFirst()(*dialog);
    }

    QList<Action> m_actions;
    QTimer m_timer{this};
    QMetaObject::Connection m_connection = connect(&m_timer, &QTimer::timeout, this, [this] { answer(); });
};

QLineEdit *text1(frmFind &dialog)
{
    return dialog.findChild<QLineEdit *>(u"Text1"_qs);
}

void pressIn(frmFind &dialog, const QString &name)
{
    QTest::mouseClick(dialog.findChild<QPushButton *>(name), Qt::LeftButton);
}

} // namespace

TEST_F(EditCommands, NewAsksFirst)
{
    show();
    edit.setTextRTF("{\\rtf1\\qr\\b\\fs40 old\\par}");
    edit.box()->selectAll();
    prompts.answers.append({Prompts::kNo});
    pressAndWait(u"C_NEW"_qs);
    EXPECT_EQ(edit.Text(), u"old"_qs);
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_EQ(prompts.boxes.first().text,
              u"You are going to replace the current document with a new one. Are you sure?"_qs);
    EXPECT_EQ(prompts.boxes.first().style, Prompts::kYesNo | Prompts::kQuestion | Prompts::kForeground);
    EXPECT_EQ(prompts.boxes.first().title, u"Norvane"_qs);

    edit.setMousePointer(99);
    prompts.answers.append({Prompts::kYes});
    pressAndWait(u"C_NEW"_qs);
    EXPECT_EQ(edit.Text(), QString());
    EXPECT_EQ(edit.SelAlignment(), 0);
    EXPECT_EQ(edit.SelBold(), false);
    EXPECT_EQ(edit.SelFontSize(), 10.0);
    EXPECT_EQ(edit.MousePointer(), 0);
}

TEST_F(EditCommands, OpenTellsTheKindByTheExtension)
{
    show();
    edit.setText(u"old"_qs);
    files.files = {{u"/d/a.rtf"_qs, "{\\rtf1 rich\\par}"},
                   {u"/d/a.TXT"_qs, "{\\rtf1 plain}"},
                   {u"/d/a.doc"_qs, "{\\rtf1 doc}"},
                   {u"/d.x/a.rtf"_qs, "{\\rtf1 dotted}"},
                   {u"/d/bad.rtf"_qs, "not rich"}};
    pressAndWait(u"C_OPEN"_qs); // cancelled
    EXPECT_EQ(edit.Text(), u"old"_qs);
    EXPECT_EQ(prompts.fileRequests.first(),
              qMakePair(u"Open"_qs, u"Rich Text Format (RTF)|*.rtf|Plain Text (TXT)|*.txt"_qs));
    prompts.files.append(
        {u"/d/a.rtf"_qs, u"/d/a.TXT"_qs, u"/d/a.doc"_qs, u"/d.x/a.rtf"_qs, u"/d/bad.rtf"_qs});
    pressAndWait(u"C_OPEN"_qs);
    EXPECT_EQ(edit.Text(), u"rich"_qs);
    pressAndWait(u"C_OPEN"_qs);
    EXPECT_EQ(edit.Text(), u"{\\rtf1 plain}"_qs);
    EXPECT_TRUE(prompts.boxes.isEmpty());
    for (int i = 0; i < 3; ++i)
        pressAndWait(u"C_OPEN"_qs);
    EXPECT_EQ(edit.Text(), u"{\\rtf1 plain}"_qs);
    ASSERT_EQ(prompts.boxes.size(), 3);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(prompts.boxes.at(i).text, u"Unknown File Format"_qs);
        EXPECT_EQ(prompts.boxes.at(i).style, int(Prompts::kExclamation));
    }
}

TEST_F(EditCommands, ColorAndFontComeFromTheirDialogs)
{
    show();
    edit.setTextRTF("{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red1\\green2\\blue3;}"
                    "\\f0\\fs20 ab{\\b\\ul\\strike\\cf1\\fs31 cd}\\par}");
    select(2, 2);
    pressAndWait(u"C_COLOR"_qs); // cancelled
    EXPECT_EQ(prompts.colorRequests, QVector<quint32>{0x030201});
    prompts.colors.enqueue(0x00FF00U);
    pressAndWait(u"C_COLOR"_qs);
    EXPECT_EQ(edit.SelColor(), 0x00FF00U);

    choose(u"mnu_Font"_qs); // cancelled
    const FontChoice seen{u"Arial"_qs, 15.5, true, false, true, true, 0x00FF00};
    ASSERT_EQ(prompts.fontRequests.size(), 1);
    EXPECT_EQ(prompts.fontRequests.last(), seen);
    EXPECT_EQ(edit.SelColor(), 0x00FF00U);

    const FontChoice chosen{u"Courier New"_qs, 12, false, true, false, false, 0xFF};
    prompts.fonts.enqueue(chosen);
    QSignalSpy changes(&edit, &NV_RTFEdit::Change);
    choose(u"mnu_Font"_qs);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(edit.SelFontName(), u"Courier New"_qs);
    EXPECT_EQ(edit.SelFontSize(), 12.0);
    EXPECT_EQ(edit.SelBold(), false);
    EXPECT_EQ(edit.SelItalic(), true);
    EXPECT_EQ(edit.SelColor(), 0xFFU);
    edit.box()->undo();
    select(2, 2);
    EXPECT_EQ(edit.SelFontSize(), 15.5);
}

TEST_F(EditCommands, TheMenuShowsWhatCanBeDone)
{
    show();
    edit.setText(u"x"_qs);
    QMenu *menu = popUp();
    ASSERT_TRUE(menu);
    EXPECT_EQ(item(u"mnu_Undo"_qs)->text(), u"Can't Undo"_qs);
    EXPECT_FALSE(item(u"mnu_Undo"_qs)->isEnabled());
    EXPECT_TRUE(item(u"mnu_Align_Left"_qs)->isChecked());
    menu->close();

    QTest::keyClicks(edit.box(), u"y"_qs);
    edit.setSelAlignment(2);
    button(u"C_PASTE"_qs)->setEnabled(false);
    edit.findChild<QComboBox *>(u"Combo2"_qs)->setEnabled(false);
    popUp();
    EXPECT_EQ(item(u"mnu_Undo"_qs)->text(), u"&Undo"_qs);
    EXPECT_TRUE(item(u"mnu_Undo"_qs)->isEnabled());
    EXPECT_TRUE(item(u"mnu_Align_Center"_qs)->isChecked());
    EXPECT_FALSE(item(u"mnu_Align_Left"_qs)->isChecked());
    EXPECT_FALSE(item(u"mnu_Paste"_qs)->isEnabled());
    EXPECT_FALSE(item(u"mnu_Font"_qs)->isEnabled());
    EXPECT_TRUE(item(u"mnu_Cut"_qs)->isEnabled());
    choose(u"mnu_Undo"_qs);
    EXPECT_EQ(edit.SelAlignment(), 0);
    choose(u"mnu_Align_Right"_qs);
    EXPECT_EQ(edit.SelAlignment(), 1);
    EXPECT_TRUE(button(u"C_RIGHT"_qs)->isChecked());
}

TEST_F(EditCommands, DateAndTimeAreWhatTheMenuShowed)
{
    show();
    clock.time = QDateTime(QDate(2024, 3, 5), QTime(23, 59, 59));
    popUp();
    clock.advance(2);
    const QString shown = item(u"mnu_Insert_Date_Sub(1)"_qs)->text();
    EXPECT_TRUE(shown.startsWith(u"05-"_qs));
    choose(u"mnu_Insert_Date_Sub(1)"_qs);
    EXPECT_EQ(edit.Text(), shown);
    edit.box()->selectAll();
    popUp();
    choose(u"mnu_Insert_Time_Sub(1)"_qs);
    EXPECT_EQ(edit.Text(), u"12:00 AM"_qs);
}

TEST_F(EditCommands, FindGoesOnBehindTheSelectionAndNotRound)
{
    show();
    edit.setText(u"one two\r\nOne twofold two"_qs);
    select(0, 3);
    {
        FindDialogs dialogs({[](frmFind &dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"Find Text"_qs);
            EXPECT_EQ(text1(dialog)->text(), u"one"_qs);
            pressIn(dialog, u"Command1"_qs);
        }});
        pressAndWait(u"C_FIND"_qs);
        ASSERT_TRUE(QTest::qWaitFor([&] { return edit.SelStart() == 9; }));
        EXPECT_EQ(edit.SelText(), u"One"_qs);
    }
    edit.setSelStart(4);
    {
        // Whole words; found, not found behind it, and cancelled from the dialog that comes again.
        FindDialogs dialogs({[](frmFind &dialog) {
                                 EXPECT_EQ(text1(dialog)->text(), QString()); // that of the selection
                                 auto *find = dialog.findChild<QPushButton *>(u"Command1"_qs);
                                 EXPECT_FALSE(find->isEnabled());
                                 QTest::keyClicks(text1(dialog), u"TWO"_qs);
                                 EXPECT_TRUE(find->isEnabled());
                                 dialog.findChild<QCheckBox *>(u"Check2"_qs)->setChecked(true);
                                 QTest::keyClick(&dialog, Qt::Key_Return);
                             },
                             [&](frmFind &dialog) {
                                 EXPECT_EQ(edit.SelStart(), 4);
                                 pressIn(dialog, u"Command1"_qs);
                             },
                             [&](frmFind &dialog) {
                                 EXPECT_EQ(edit.SelStart(), 21); // not the "twofold"
                                 pressIn(dialog, u"Command1"_qs);
                             },
                             [&](frmFind &dialog) {
                                 EXPECT_EQ(prompts.boxes.size(), 1);
                                 EXPECT_EQ(text1(dialog)->text(), u"two"_qs);
                                 EXPECT_TRUE(dialog.findChild<QCheckBox *>(u"Check2"_qs)->isChecked());
                                 dialog.findChild<QCheckBox *>(u"Check1"_qs)->setChecked(true);
                                 QTest::keyClick(&dialog, Qt::Key_Escape);
                             }});
        for (int i = 0; i < 3; ++i) {
            const qsizetype before = prompts.boxes.size();
            pressAndWait(u"C_FIND"_qs);
            ASSERT_TRUE(QTest::qWaitFor([&] { return !QApplication::activeModalWidget(); }));
            if (prompts.boxes.size() > before)
                break;
        }
    }
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_EQ(prompts.boxes.first().text, u"Not Found"_qs);
    EXPECT_EQ(prompts.boxes.first().style, int(Prompts::kOkOnly));
    EXPECT_EQ(prompts.boxes.first().title, u"Find"_qs);
    EXPECT_TRUE(state.find.cancelled);
    EXPECT_EQ(state.find.matchCase, 1);
    EXPECT_EQ(state.find.wholeWord, 1);
    EXPECT_EQ(state.find.text, u"two"_qs);
}

TEST_F(EditCommands, AnEditorMayGoWhileItAsks)
{
    auto editor = std::make_unique<NV_RTFEdit>(services);
    editor->show();
    FindDialogs dialogs({[&](frmFind &) { editor.reset(); }});
    QTest::mouseClick(editor->findChild<QWidget *>(u"C_FIND"_qs), Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !editor; }));

    editor = std::make_unique<NV_RTFEdit>(services);
    editor->show();
    prompts.duringBox = [&](const auto &) { editor.reset(); };
    prompts.answers.append({Prompts::kYes});
    QTest::mouseClick(editor->findChild<QWidget *>(u"C_NEW"_qs), Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !editor; }));
}

TEST_F(EditCommands, WhatIsLockedOrProtectedIsNotChangedByCommands)
{
    show();
    edit.setTextRTF("{\\rtf1 ab{\\protect cd}ef\\par}");
    prompts.colors.enqueue(0xFFU);
    prompts.answers.append({Prompts::kYes});
    prompts.files.append({u"/x.txt"_qs});
    files.files.insert(u"/x.txt"_qs, "new");
    QApplication::clipboard()->setText(u"pasted"_qs);
    const auto tryAll = [&] {
        const QByteArray before = edit.TextRTF();
        for (const QString &key : {u"C_COLOR"_qs, u"C_CUT"_qs, u"C_PASTE"_qs, u"C_BOLD"_qs, u"C_ITALIC"_qs,
                                   u"C_UNDR"_qs, u"C_CENTER"_qs, u"C_BULLET"_qs})
            pressAndWait(key);
        choose(u"mnu_Del"_qs);
        choose(u"mnu_Insert_Date_Sub(0)"_qs);
        QTest::keyClick(edit.box(), Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
        QTest::keyClick(edit.box(), Qt::Key_B, Qt::ControlModifier);
        EXPECT_EQ(edit.TextRTF(), before);
    };
    select(1, 2);
    tryAll();
    select(0, 1);
    edit.setLocked(true);
    tryAll();
    pressAndWait(u"C_NEW"_qs);
    pressAndWait(u"C_OPEN"_qs);
    EXPECT_EQ(edit.Text(), u"abcdef"_qs);
    EXPECT_FALSE(button(u"C_BOLD"_qs)->isChecked());
}

TEST_F(EditCommands, KeysOfTheKeyboard)
{
    show();
    edit.setText(u"abc"_qs);
    edit.box()->selectAll();
    for (const auto key : {Qt::Key_B, Qt::Key_I, Qt::Key_U})
        QTest::keyClick(edit.box(), key, Qt::ControlModifier);
    EXPECT_EQ(edit.SelBold(), true);
    EXPECT_EQ(edit.SelItalic(), true);
    EXPECT_EQ(edit.SelUnderline(), true);
    EXPECT_EQ(edit.Text(), u"abc"_qs);

    QApplication::setActiveWindow(&edit);
    QTest::keyClick(edit.box(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(edit.findChild<QComboBox *>(u"Combo1"_qs)->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(edit.box()->hasFocus());

    edit.resize(100, 200);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !edit.findChild<QComboBox *>(u"Combo1"_qs)->isVisible(); }));
    QTest::keyClick(edit.box(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(edit.findChild<QToolBar *>()->isAncestorOf(QApplication::focusWidget()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(edit.box()->hasFocus());
}

namespace {

class PdfJob : public PrintJob
{
public:
    PdfJob(const QString &file, bool selection) : m_writer(file), m_selection(selection) {}
    QPagedPaintDevice &device() override { return m_writer; }
    bool selectionOnly() const override { return m_selection; }

private:
    QPdfWriter m_writer;
    bool m_selection;
};

QString textOfPdf(const QString &file)
{
    QProcess process;
    process.start(u"pdftotext"_qs, {u"-layout"_qs, file, u"-"_qs});
    EXPECT_TRUE(process.waitForFinished()) << process.errorString().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput()).simplified();
}

} // namespace

TEST_F(EditCommands, PrintsTheSelectionOrTheWhole)
{
    show();
    edit.setText(u"first words\r\nsecond words"_qs);
    QTemporaryDir folder;
    const QString file = folder.filePath(u"out.pdf"_qs);
    bool wantsSelection = false;
    printing.makeJob = [&] { return std::make_unique<PdfJob>(file, wantsSelection); };

    choose(u"mnu_Print"_qs);
    EXPECT_TRUE(textOfPdf(file).startsWith(u"first words second words"_qs));
    select(13, 6);
    wantsSelection = true;
    pressAndWait(u"C_PRINT"_qs);
    EXPECT_TRUE(textOfPdf(file).startsWith(u"second"_qs));
    EXPECT_FALSE(textOfPdf(file).contains(u"words"_qs));
    wantsSelection = false; // all, though something is selected
    edit.NV_Print();
    EXPECT_TRUE(textOfPdf(file).contains(u"first words"_qs));
    EXPECT_EQ(printing.offers, (QVector<bool>{false, true, true}));

    printing.makeJob = nullptr; // cancelled
    edit.NV_Print();
    select(0, 0);
    {
        QPdfWriter writer(file);
        edit.SelPrint(writer);
    }
    EXPECT_TRUE(textOfPdf(file).contains(u"second words"_qs));
}
