#include "fakes/FakePrompts.h"
#include "shell/Forms.h"
#include "store/NoteDatabaseSwitch.h"
#include "unit/store/StoreOnDisk.h"

#include <QFileInfo>

using namespace norvane;
using namespace norvane::test;

namespace {

class SwitchingDatabases : public testing::Test, protected StoreOnDisk
{
protected:
    struct NamedForm : Form
    {
        NamedForm(SwitchingDatabases &test, QString name) : m_test(test), m_name(std::move(name))
        {
            m_test.forms.add(this);
        }
        QString formName() const override { return m_name; }
        WindowHandle hWnd() const override { return kNoWindow; }
        void unload() override
        {
            const bool open = m_test.store.database() != nullptr;
            m_test.log.append(open ? m_name + QStringLiteral(" (open)") : m_name);
            m_test.forms.remove(this);
        }

    private:
        SwitchingDatabases &m_test;
        QString m_name;
    };

    void load(const QStringList &names)
    {
        for (const QString &name : names)
            m_made.push_back(std::make_unique<NamedForm>(*this, name));
    }

    FormList forms;
    QStringList log;
    fakes::FakePrompts prompts;
    NoteDatabaseSwitch databases{store,
                                 forms,
                                 prompts,
                                 {[this](const QString &text) { log.append(text); },
                                  [this] { log.append(QStringLiteral("unload frame")); }}};

private:
    std::vector<std::unique_ptr<NamedForm>> m_made;
};

TEST_F(SwitchingDatabases, opensADatabaseAndMakesAMissingOne)
{
    EXPECT_TRUE(databases.OpenNoteDatabase(store.DatabaseFile));
    EXPECT_TRUE(QFileInfo::exists(store.DatabaseFile));
    EXPECT_EQ(store.NoteIndex()->recordCount(), 0);
    EXPECT_EQ(log, QStringList(QStringLiteral(" Database Path: ") + store.DatabaseFolder.toUpper()));

    const int ID = addNote(QStringLiteral("stays"));
    EXPECT_TRUE(databases.OpenNoteDatabase(store.DatabaseFile));
    EXPECT_EQ(store.NoteSet()->field(QStringLiteral("ID")).toInt(), ID);
    EXPECT_TRUE(prompts.boxes.isEmpty());
}

TEST_F(SwitchingDatabases, aFailureIsReportedAndEndsTheProgram)
{
    put(store.DatabaseFile, "text");
    load({QStringLiteral("frmSticky"), QStringLiteral("frmMain"), QStringLiteral("FRMOPEN")});
    EXPECT_FALSE(databases.OpenNoteDatabase(store.DatabaseFile));
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_EQ(prompts.boxes.constFirst().title, QStringLiteral("Norvane Internal Error"));
    EXPECT_TRUE(prompts.boxes.constFirst().text.startsWith(
        u"Norvane Database Failed.\r\nError Code: 3343\r\nError Description: "));
    EXPECT_EQ(log.join(u',').toStdString(), "frmSticky,FRMOPEN,unload frame");
    EXPECT_EQ(store.database(), nullptr);
    EXPECT_EQ(bytes(), "text");
}

TEST_F(SwitchingDatabases, closingUnloadsTheNotesWhileTheDatabaseIsOpen)
{
    ASSERT_TRUE(databases.OpenNoteDatabase(store.DatabaseFile));
    log.clear();
    load({QStringLiteral("frmSticky"), QStringLiteral("frmEditor"), QStringLiteral("frmSticky")});
    databases.CloseNoteDatabase();
    EXPECT_EQ(log.join(u',').toStdString(), "frmSticky (open),frmSticky (open),unload frame");
}

TEST_F(SwitchingDatabases, unloadsTheWindowsThatShowTheDatabase)
{
    load({QStringLiteral("mdiMain"), QStringLiteral("frmMain"), QStringLiteral("frmSearch"),
          QStringLiteral("frmProperty"), QStringLiteral("frmEditor2"), QStringLiteral("frmSetting"),
          QStringLiteral("frmEditor"), QStringLiteral("frmOpen"), QStringLiteral("frmSticky")});
    databases.UnloadDatabaseForms();
    EXPECT_EQ(log.join(u',').toStdString(), "frmSearch,frmProperty,frmEditor2,frmEditor,frmOpen,frmSticky");
    EXPECT_EQ(forms.all().size(), 3);
}

} // namespace
