#include "fakes/FakePrompts.h"
#include "shell/Forms.h"
#include "store/NoteDatabaseSwitch.h"
#include "unit/store/StoreOnDisk.h"

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
            m_test.log.append(m_test.store.database() ? m_name + u'*' : m_name);
            m_test.forms.remove(this);
        }

    private:
        SwitchingDatabases &m_test;
        QString m_name;
    };

    /// Loads forms of these names and forgets what happened so far.
    void load(const QStringList &names)
    {
        log.clear();
        for (const QString &name : names)
            m_made.push_back(std::make_unique<NamedForm>(*this, name));
    }

    FormList forms;
    QStringList log; ///< with a mark where the database was open
    fakes::FakePrompts prompts;
    NoteDatabaseSwitch databases{
        store,
        forms,
        prompts,
        {[this](const QString &text) { log.append(text); }, [this] { log.append(u"unload frame"_s); }}};

private:
    std::vector<std::unique_ptr<NamedForm>> m_made;
};

TEST_F(SwitchingDatabases, OpensADatabaseAndMakesAMissingOne)
{
    EXPECT_TRUE(databases.OpenNoteDatabase(store.DatabaseFile));
    EXPECT_EQ(log, QStringList(u" Database Path: "_s + store.DatabaseFolder.toUpper()));
    const int ID = addNote(u"stays"_s);
    EXPECT_TRUE(databases.OpenNoteDatabase(store.DatabaseFile));
    EXPECT_EQ(store.NoteSet()->field(u"ID"_s), QVariant(ID));
    EXPECT_TRUE(prompts.boxes.isEmpty());

    load({u"frmSticky"_s, u"frmEditor"_s, u"frmSticky"_s});
    databases.CloseNoteDatabase();
    EXPECT_EQ(log.join(u','), u"frmSticky*,frmSticky*,unload frame");
    EXPECT_EQ(store.database(), nullptr);
}

TEST_F(SwitchingDatabases, AFailureIsReportedAndEndsTheProgram)
{
    files.write(store.DatabaseFile, "text");
    load({u"frmSticky"_s, u"frmMain"_s, u"FRMOPEN"_s});
    EXPECT_FALSE(databases.OpenNoteDatabase(store.DatabaseFile));
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_EQ(prompts.boxes[0].title, u"Norvane Internal Error");
    EXPECT_TRUE(prompts.boxes[0].text.startsWith(
        u"Norvane Database Failed.\r\nError Code: 3343\r\nError Description: "));
    EXPECT_EQ(log.join(u','), u"frmSticky,FRMOPEN,unload frame");
    EXPECT_EQ(bytes(), "text");
}

TEST_F(SwitchingDatabases, UnloadsTheWindowsThatShowTheDatabase)
{
    load({u"mdiMain"_s, u"frmMain"_s, u"frmSearch"_s, u"frmProperty"_s, u"frmEditor2"_s, u"frmSetting"_s,
          u"frmEditor"_s, u"frmOpen"_s, u"frmSticky"_s});
    databases.UnloadDatabaseForms();
    EXPECT_EQ(log.join(u','), u"frmSearch,frmProperty,frmEditor2,frmEditor,frmOpen,frmSticky");
}

} // namespace
