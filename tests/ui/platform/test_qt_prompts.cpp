#include "platform/qt/FontDialog.h"
#include "platform/qt/QtPrinting.h"
#include "platform/qt/QtPrompts.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFontDialog>
#include <QMessageBox>
#include <QPainter>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gmock/gmock.h>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

/// Runs @p act on the next modal dialog of a type, once it is on the screen.
template <typename Dialog> class WhenShown
{
public:
    explicit WhenShown(std::function<void(Dialog *)> act) : m_act(std::move(act))
    {
        QObject::connect(&m_poll, &QTimer::timeout, &m_poll, [this] {
            auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
            if (!dialog || !dialog->isVisible())
                return;
            m_poll.stop();
            m_act(dialog);
        });
        m_poll.start(5);
    }

private:
    std::function<void(Dialog *)> m_act;
    QTimer m_poll;
};

using WhenBox = WhenShown<QMessageBox>;

class PromptsTest : public testing::Test
{
protected:
    Prompts::Answer show(const QString &text, int style)
    {
        return prompts.messageBox(text, style, u"Norvane"_s);
    }

    QtPrompts prompts;
};

TEST_F(PromptsTest, QuestionShowsItsPartsAndAnswersByButton)
{
    const QString question = u"Delete <b>'this'</b>?"_s;
    {
        WhenBox box([&](QMessageBox *shown) {
            EXPECT_EQ(shown->icon(), QMessageBox::Question);
            EXPECT_EQ(shown->windowTitle(), u"Norvane");
            EXPECT_EQ(shown->text(), question);
            EXPECT_EQ(shown->textFormat(), Qt::PlainText);
            EXPECT_TRUE(shown->windowFlags() & Qt::WindowStaysOnTopHint);
            QTest::mouseClick(shown->button(QMessageBox::Yes), Qt::LeftButton);
        });
        EXPECT_EQ(show(question, Prompts::kYesNo | Prompts::kQuestion | Prompts::kSystemModal),
                  Prompts::kYes);
    }
    for (Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        WhenBox box([key](QMessageBox *shown) { QTest::keyClick(shown, key); });
        EXPECT_EQ(show(question, Prompts::kYesNo | Prompts::kExclamation), Prompts::kNo);
    }
    WhenBox box([](QMessageBox *shown) {
        EXPECT_EQ(shown->icon(), QMessageBox::Critical);
        EXPECT_EQ(shown->standardButtons(), QMessageBox::Ok);
        EXPECT_FALSE(shown->windowFlags() & Qt::WindowStaysOnTopHint);
        shown->close();
    });
    EXPECT_EQ(show(u"Failed."_s, Prompts::kCritical), Prompts::kOk);
}

TEST_F(PromptsTest, BoxOutlivesTheWindowThatItStandsOver)
{
    QPointer<QWidget> note = new QWidget;
    note->show();
    QApplication::setActiveWindow(note);
    ASSERT_TRUE(QTest::qWaitForWindowActive(note));
    WhenBox box([&](QMessageBox *shown) {
        EXPECT_EQ(shown->parentWidget(), note);
        delete note.data();
    });
    EXPECT_EQ(show(u"Save?"_s, Prompts::kYesNo), Prompts::kNo);
}

TEST_F(PromptsTest, LongTextsFitTheScreen)
{
    const QSize screen = QApplication::primaryScreen()->availableSize();
    for (const QString &text :
         {QString(4000, u'x'), u"\U0001f600"_s.repeated(2000), u"word "_s.repeated(900)}) {
        WhenBox box([&](QMessageBox *shown) {
            EXPECT_LE(shown->width(), screen.width());
            EXPECT_LE(shown->height(), screen.height());
            for (qsizetype i = 0; i < shown->text().size(); ++i) {
                if (shown->text().at(i).isHighSurrogate()) {
                    ASSERT_TRUE(shown->text().at(i + 1).isLowSurrogate()) << "a character was cut";
                }
            }
            shown->close();
        });
        show(text, Prompts::kInformation);
    }
    const QString ordinary = u"Database located in '/home/ann/Notes/' is locked.\nTry again."_s;
    EXPECT_EQ(textForBox(ordinary), ordinary);
    EXPECT_EQ(textForBox(u"one\r\ntwo\rthree\n\r\nfive"_s), u"one\ntwo\nthree\n\nfive");
}

TEST_F(PromptsTest, FolderIsChosenOrEmpty)
{
    const QTemporaryDir folder;
    {
        WhenShown<QFileDialog> dialog([&](QFileDialog *shown) {
            EXPECT_EQ(shown->windowTitle(), u"Where?");
            EXPECT_EQ(shown->directory().canonicalPath(), QDir(folder.path()).canonicalPath());
            QTest::keyClick(shown, Qt::Key_Escape);
        });
        EXPECT_TRUE(prompts.chooseFolder(u"Where?"_s, folder.path()).isEmpty());
    }
    WhenShown<QFileDialog> dialog([&](QFileDialog *shown) {
        EXPECT_EQ(shown->directory().canonicalPath(), QDir(QDir::homePath()).canonicalPath());
        shown->selectFile(folder.path());
        QMetaObject::invokeMethod(shown, "accept");
    });
    EXPECT_EQ(prompts.chooseFolder(u"Where?"_s, u"/no/such/folder"_s), folder.path());
}

TEST(QtPrompts, FileIsChosenOrEmpty)
{
    EXPECT_EQ(nameFilters(QStringLiteral("Rich Text Format (RTF)|*.rtf|All Files|*.*")),
              (QStringList{QStringLiteral("Rich Text Format (RTF) (*.rtf *.RTF)"),
                           QStringLiteral("All Files (*)")}));
    QtPrompts prompts;
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("A.TXT"));
    QFile(file).open(QIODevice::WriteOnly);
    const QString filter = QStringLiteral("Plain Text (TXT)|*.txt");
    {
        WhenShown<QFileDialog> dialog([&](QFileDialog *shown) {
            EXPECT_EQ(shown->windowTitle(), QStringLiteral("Open"));
            EXPECT_EQ(shown->directory().path(), QDir(folder.path()).path());
            shown->reject();
        });
        EXPECT_TRUE(prompts.openFile(QStringLiteral("Open"), filter, folder.path()).isEmpty());
    }
    WhenShown<QFileDialog> dialog([&](QFileDialog *shown) {
        shown->selectFile(file);
        QMetaObject::invokeMethod(shown, "accept");
    });
    EXPECT_EQ(prompts.openFile(QStringLiteral("Open"), filter), file);
}

TEST(QtPrompts, SavingProposesAName)
{
    QtPrompts prompts;
    const QTemporaryDir folder;
    WhenShown<QFileDialog> dialog([&](QFileDialog *shown) {
        EXPECT_EQ(QFileInfo(shown->selectedFiles().value(0)).fileName(), QStringLiteral("Plum cake.RTF"));
        shown->setDirectory(folder.path());
        QMetaObject::invokeMethod(shown, "accept");
    });
    EXPECT_EQ(prompts.saveFile(QStringLiteral("Save as"), QStringLiteral("Rich Text Format (*.RTF)|*.rtf"),
                               QStringLiteral("RTF"), QStringLiteral("Plum cake")),
              folder.filePath(QStringLiteral("Plum cake.RTF")));
}

TEST(QtPrompts, FontKeepsWhatNobodyTouched)
{
    QtPrompts prompts;
    const FontChoice start{QStringLiteral("Not Installed"), 9.75, true, false, true, false, 0x102030};
    {
        WhenShown<FontDialog> dialog([&](FontDialog *shown) { shown->reject(); });
        EXPECT_EQ(prompts.chooseFont(start), std::nullopt);
    }
    {
        WhenShown<FontDialog> dialog([&](FontDialog *shown) { shown->accept(); });
        EXPECT_EQ(prompts.chooseFont(start), start);
    }
    WhenShown<FontDialog> dialog([&](FontDialog *shown) {
        auto *fonts = shown->findChild<QFontDialog *>();
        QFont font = fonts->currentFont();
        font.setPointSize(20);
        font.setUnderline(true);
        fonts->setCurrentFont(font);
        shown->accept();
    });
    FontChoice expected = start;
    expected.points = 20;
    expected.underline = true;
    EXPECT_EQ(prompts.chooseFont(start), expected);
}

TEST(QtPrinting, OffersTheSelectionWhereThereIsOne)
{
    QtPrinting printing;
    {
        WhenShown<QPrintDialog> dialog([](QPrintDialog *shown) {
            EXPECT_FALSE(shown->testOption(QAbstractPrintDialog::PrintSelection));
            EXPECT_FALSE(shown->testOption(QAbstractPrintDialog::PrintPageRange));
            shown->reject();
        });
        EXPECT_EQ(printing.choosePrinter(false), nullptr);
    }
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("out.pdf"));
    {
        WhenShown<QPrintDialog> dialog([&](QPrintDialog *shown) {
            EXPECT_TRUE(shown->testOption(QAbstractPrintDialog::PrintSelection));
            EXPECT_EQ(shown->printRange(), QAbstractPrintDialog::Selection);
            shown->printer()->setOutputFileName(file);
            shown->done(QDialog::Accepted);
        });
        const std::unique_ptr<PrintJob> job = printing.choosePrinter(true);
        ASSERT_TRUE(job);
        EXPECT_TRUE(job->selectionOnly());
        QPainter(&job->device()).drawText(100, 100, QStringLiteral("x"));
    }
    EXPECT_GT(QFileInfo(file).size(), 500);
}

} // namespace
