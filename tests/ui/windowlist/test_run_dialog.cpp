#include "WindowListDesk.h"
#include "windowlist/list/RunHistory.h"
#include "windowlist/windows/MRunDialog.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPromise>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

using namespace norvane;
using namespace norvane::fakes;
using namespace norvane::tests;
using namespace Qt::StringLiterals;

namespace {

class RunWindow : public testing::Test, protected WindowListDesk
{
protected:
    RunWindow()
    {
        shell.installed = {u"editor"_s, u"edit-photo"_s, u"film"_s};
        shell.names = {{u"/home/user/"_s, {u"Pictures/"_s, u"Private notes/"_s}},
                       {u"/home/user/ all"_s, {u".hidden/"_s, u"Pictures/"_s, u"Private notes/"_s}}};
    }
    ~RunWindow() override
    {
        if (window)
            window->unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void open(const QString &title = u"New Task"_s, const QString &prompt = u"Type it."_s)
    {
        RunDialog(services, nullptr, QIcon(), title, prompt);
        window = dynamic_cast<MRunDialog *>(forms.named(u"MRunDialog"_s).value(0));
        ASSERT_TRUE(window);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    }
    QComboBox *box() const { return window->findChild<QComboBox *>(u"cboOpen"_s); }
    QPushButton *button(const QString &name) const { return window->findChild<QPushButton *>(name); }
    bool isOpen() const { return forms.FormIsLoaded(u"MRunDialog"_s); }
    void type(const QString &text)
    {
        box()->lineEdit()->clear();
        QTest::keyClicks(box()->lineEdit(), text);
    }
    /// What is proposed for a text, once it is.
    QStringList proposed(const QString &text, int count)
    {
        type(text);
        const QCompleter *completer = box()->lineEdit()->completer();
        EXPECT_TRUE(QTest::qWaitFor([&] { return completer->completionCount() >= count; }));
        QStringList all;
        for (int row = 0; row < completer->completionCount(); ++row) {
            const QModelIndex index = completer->popup()->model()->index(row, 0);
            all.append(index.data(completer->completionRole()).toString());
        }
        all.sort();
        return all;
    }

    QPointer<MRunDialog> window;
};

} // namespace

TEST_F(RunWindow, ShowsTheCallersTextsOrItsOwn)
{
    open();
    EXPECT_EQ(window->windowTitle(), u"New Task"_s);
    const auto *prompt = window->findChild<QLabel *>(u"lblPrompt"_s);
    EXPECT_EQ(prompt->text(), u"Type it."_s);
    EXPECT_FALSE(window->findChild<QLabel *>(u"imgIcon"_s)->pixmap().isNull());
    EXPECT_FALSE(button(u"cmdOK"_s)->isEnabled());
    RunDialog(services, nullptr, QIcon(), {}, {});
    EXPECT_EQ(forms.named(u"MRunDialog"_s).size(), 1) << "there is room for one";
    EXPECT_EQ(window->windowTitle(), u"Run"_s);
    EXPECT_FALSE(prompt->text().isEmpty() || prompt->text() == u"Type it."_s);
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
}

TEST_F(RunWindow, StartsWhatIsTypedAndRemembersIt)
{
    open();
    type(u"editor 'my letter'"_s);
    QTest::keyClick(box()->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(shell.ran, QStringList(u"editor|my letter"_s));
    EXPECT_FALSE(isOpen());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    open();
    EXPECT_EQ(box()->currentText(), u"editor 'my letter'"_s) << "the last one, ready to be replaced";
    EXPECT_TRUE(box()->lineEdit()->hasSelectedText());
    QTest::keyClicks(box()->lineEdit(), u"https://garden.example/"_s);
    button(u"cmdOK"_s)->click();
    EXPECT_EQ(shell.opened, QStringList(u"https://garden.example/"_s));
    EXPECT_EQ(RunHistory(userSettings).list(),
              QStringList({u"https://garden.example/"_s, u"editor 'my letter'"_s}));
}

TEST_F(RunWindow, TellsWhatCannotBeStartedAndStays)
{
    open();
    for (const QString &line : {u"no-such-program -x"_s, u"editor \"my letter"_s}) {
        type(line);
        button(u"cmdOK"_s)->click();
        EXPECT_TRUE(isOpen());
        EXPECT_EQ(box()->lineEdit()->selectedText(), line);
    }
    ASSERT_EQ(prompts.boxes.size(), 2);
    EXPECT_TRUE(prompts.boxes[0].text.startsWith(u"\"no-such-program\" was not found."_s));
    EXPECT_EQ(prompts.boxes[1].text, u"A quotation mark is not closed."_s);
    EXPECT_TRUE(shell.ran.isEmpty());
    EXPECT_TRUE(RunHistory(userSettings).list().isEmpty());

    script(prompts.files, {u"/home/user/my letter.txt"_s});
    button(u"cmdBrowse"_s)->click();
    EXPECT_EQ(box()->currentText(), u"\"/home/user/my letter.txt\""_s);
    button(u"cmdBrowse"_s)->click(); // cancelled
    EXPECT_EQ(box()->currentText(), u"\"/home/user/my letter.txt\""_s);
}

TEST_F(RunWindow, ProposesProgramsAndPaths)
{
    open();
    EXPECT_EQ(proposed(u"edit"_s, 2), QStringList({u"edit-photo"_s, u"editor"_s}));
    EXPECT_EQ(proposed(u"~/P"_s, 2), QStringList({u"~/Pictures/"_s, u"~/Private notes/"_s}));
    EXPECT_EQ(proposed(u"~/"_s, 2).size(), 2) << "without the hidden one";
    EXPECT_EQ(proposed(u"~/.h"_s, 1), QStringList(u"~/.hidden/"_s));
    EXPECT_EQ(proposed(u"/home/user/Pi"_s, 1), QStringList(u"/home/user/Pictures/"_s));

    // A folder that is slow to tell holds nobody up, and its names come for what is typed by then.
    QPromise<QStringList> slow;
    slow.start();
    shell.slowNames.insert(u"/net/"_s, slow.future());
    type(u"/net/d"_s);
    QCompleter *waiting = box()->lineEdit()->completer();
    EXPECT_EQ(waiting->completionCount(), 0);
    slow.addResult(QStringList({u"data"_s, u"docs/"_s}));
    slow.finish();
    QTest::keyClick(box()->lineEdit(), Qt::Key_O);
    ASSERT_TRUE(QTest::qWaitFor([&] { return waiting->popup()->isVisible(); }));
    EXPECT_EQ(waiting->currentCompletion(), u"/net/docs/"_s);
    waiting->popup()->hide();

    // Down and Enter take the first one; the next Enter is for the window.
    proposed(u"~/Pi"_s, 1);
    QAbstractItemView *popup = box()->lineEdit()->completer()->popup();
    ASSERT_TRUE(QTest::qWaitFor([&] { return popup->isVisible(); }));
    QTest::keyClick(popup, Qt::Key_Down);
    QTest::keyClick(popup, Qt::Key_Return);
    EXPECT_EQ(box()->currentText(), u"~/Pictures/"_s);
    EXPECT_TRUE(isOpen());
}
