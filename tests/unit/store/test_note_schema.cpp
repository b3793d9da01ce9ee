#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "unit/store/StoreOnDisk.h"

using namespace norvane;
using namespace norvane::test;

namespace {

class NoteSchema : public testing::Test, protected StoreOnDisk
{
protected:
    const dao::TableDef *table(const QString &name)
    {
        for (const dao::TableDef &each : m_tables) {
            if (each.name == name)
                return &each;
        }
        return nullptr;
    }
    void openNew()
    {
        makeDatabase();
        store.open();
        m_tables = store.database()->tableDefs();
    }

private:
    QVector<dao::TableDef> m_tables;
};

TEST_F(NoteSchema, comesBackFromTheFileAsItWasDefined)
{
    openNew();
    for (const dao::TableDef &defined : {categoryTable(), memosTable()}) {
        const dao::TableDef *stored = table(defined.name);
        ASSERT_NE(stored, nullptr) << defined.name.toStdString();
        ASSERT_EQ(stored->fields.size(), defined.fields.size());
        for (qsizetype i = 0; i < defined.fields.size(); ++i) {
            const dao::FieldDef &expected = defined.fields.at(i);
            const dao::FieldDef &found = stored->fields.at(i);
            SCOPED_TRACE(expected.name.toStdString());
            EXPECT_EQ(found.name, expected.name);
            EXPECT_EQ(found.type, expected.type);
            EXPECT_EQ(found.attributes, expected.attributes);
            EXPECT_EQ(found.ordinalPosition, expected.ordinalPosition);
            EXPECT_EQ(found.defaultValue, expected.defaultValue);
            EXPECT_EQ(found.required, expected.required);
            EXPECT_EQ(found.allowZeroLength, expected.allowZeroLength);
        }
        ASSERT_EQ(stored->indexes.size(), defined.indexes.size());
        for (qsizetype i = 0; i < defined.indexes.size(); ++i) {
            EXPECT_EQ(stored->indexes.at(i).name, defined.indexes.at(i).name);
            EXPECT_EQ(stored->indexes.at(i).primary, defined.indexes.at(i).primary);
        }
    }
}

TEST_F(NoteSchema, leavesOutPosition21)
{
    const dao::TableDef memos = memosTable();
    ASSERT_EQ(memos.fields.size(), 26);
    EXPECT_EQ(memos.fields.at(20).name, QStringLiteral("CAT_ID"));
    EXPECT_EQ(memos.fields.at(20).ordinalPosition, 20);
    EXPECT_EQ(memos.fields.at(21).name, QStringLiteral("TypeEffect"));
    EXPECT_EQ(memos.fields.at(21).ordinalPosition, 22);
    EXPECT_EQ(memos.fields.constLast().ordinalPosition, 26);
}

TEST_F(NoteSchema, givesANewNoteItsDefaults)
{
    openNew();
    const int ID = addNote(QStringLiteral("Page"));
    const auto note = store.database()->openRecordset(QStringLiteral("select * from Memos"));
    EXPECT_EQ(note->field(QStringLiteral("ID")).toInt(), ID);
    EXPECT_EQ(note->field(QStringLiteral("BackColor")).toInt(), 0xC0FFFF);
    EXPECT_EQ(note->field(QStringLiteral("winWidth")).toInt(), 5100);
    EXPECT_EQ(note->field(QStringLiteral("winHeight")).toInt(), 3800);
    EXPECT_TRUE(note->field(QStringLiteral("Active")).toBool());
    EXPECT_FALSE(note->field(QStringLiteral("AutoSave")).toBool());
    EXPECT_FALSE(note->field(QStringLiteral("LastVisit")).isValid());
    EXPECT_FALSE(note->field(QStringLiteral("KeyWords")).isValid());
}

TEST_F(NoteSchema, refusesANoteWithoutItsRequiredFields)
{
    openNew();
    const auto add = [this](const QString &field, const QVariant &value) {
        const auto notes = store.database()->openRecordset(QStringLiteral("select * from Memos where false"));
        notes->addNew();
        notes->setField(field, value);
        notes->update();
    };
    EXPECT_EQ(errorOf([&] { add(QStringLiteral("CAT_ID"), 0); }), kErrorRequired);
    EXPECT_EQ(errorOf([&] { add(QStringLiteral("WindowName"), QStringLiteral("x")); }), kErrorRequired);
    EXPECT_EQ(store.NoteIndex()->recordCount(), 0);
}

TEST_F(NoteSchema, isNotPutOverAFileThatIsThere)
{
    put(store.DatabaseFile, "mine");
    EXPECT_FALSE(CreateNoteDatabase(*engine, files, store.DatabaseFile));
    EXPECT_EQ(bytes(), "mine");
    EXPECT_FALSE(CreateNoteDatabase(*engine, files, folder.filePath(QStringLiteral("none/Norvane.DAT"))));
    EXPECT_EQ(errorOf([&] {
                  makeNoteDatabase(*engine, files, folder.filePath(QStringLiteral("none/Norvane.DAT")));
              }),
              kErrorPathNotFound);
}

} // namespace
