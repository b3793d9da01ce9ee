#include "platform/errors.h"
#include "unit/store/StoreOnDisk.h"

using namespace norvane;
using namespace norvane::test;

namespace {

class NoteSchema : public testing::Test, protected StoreOnDisk
{
protected:
    void SetUp() override
    {
        makeDatabase();
        store.open();
    }
};

TEST_F(NoteSchema, HasItsFieldsAtTheirPositions)
{
    QStringList fields;
    for (const dao::TableDef &table : store.database()->tableDefs()) {
        for (const dao::FieldDef &field : table.fields) {
            fields.append(u"%1 %2 %3%4"_s.arg(field.ordinalPosition)
                              .arg(field.name)
                              .arg(static_cast<int>(field.type))
                              .arg(QString(field.required ? u" required"_s : u""_s)));
        }
    }
    EXPECT_EQ(fields.join(u','),
              u"0 ID 4,1 Name 10 required,2 isDefault 1 required,3 Icon 3,"
              "0 ID 4,1 WindowName 10 required,2 URL 12,3 LastUpdate 8,4 winTop 4,5 winLeft 4,6 winWidth 4,"
              "7 winHeight 4,8 Active 1 required,9 PlaySound 1,10 LastVisit 8,11 LastTimeSpent 8,"
              "12 FriendlyName 10,13 ClassName 10,14 BackColor 4,15 ShowToolbar 1,16 FormPosition 3,"
              "17 DateCreated 8,18 AutoSave 1,19 WAVFileName 10,20 CAT_ID 4 required,22 TypeEffect 1,"
              "23 LocationName 10,24 AutoURLDetect 1,25 KeyWords 10,26 NoteText 12");
}

TEST_F(NoteSchema, IsNotPutOverAFileThatIsThere)
{
    const QByteArray before = bytes();
    EXPECT_FALSE(CreateNoteDatabase(*engine, files, store.DatabaseFile));
    EXPECT_EQ(bytes(), before);
    const QString nowhere = folder.filePath(u"none/Norvane.DAT"_s);
    EXPECT_FALSE(CreateNoteDatabase(*engine, files, nowhere));
    EXPECT_EQ(errorOf([&] { makeNoteDatabase(*engine, files, nowhere); }), kErrorPathNotFound);
}

} // namespace
