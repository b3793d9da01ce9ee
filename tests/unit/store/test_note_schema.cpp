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

TEST_F(NoteSchema, ComesBackFromTheFileFieldByField)
{
    QString fields;
    for (const dao::TableDef &table : store.database()->tableDefs()) {
        for (const dao::FieldDef &field : table.fields) {
            fields += u"%1 %2 %3/%4"_s.arg(field.ordinalPosition)
                          .arg(field.name)
                          .arg(static_cast<int>(field.type))
                          .arg(field.size);
            fields += field.defaultValue.isEmpty() ? QString() : u'=' + field.defaultValue;
            fields += field.required ? u"!"_s : QString();
            fields += field.allowZeroLength ? u"~,"_s : u","_s;
        }
        for (const dao::IndexDef &index : table.indexes)
            fields += index.name + (index.primary && index.unique && index.required ? u"*,"_s : u","_s);
    }
    EXPECT_EQ(fields, u"0 ID 4/4,1 Name 10/50=New Category!,2 isDefault 1/1=0!,3 Icon 3/2=1,ID*,"
                      "0 ID 4/4,1 WindowName 10/255!~,2 URL 12/255~,3 LastUpdate 8/8,4 winTop 4/4=0,"
                      "5 winLeft 4/4=0,6 winWidth 4/4=5100,7 winHeight 4/4=3800,8 Active 1/1=-1!,"
                      "9 PlaySound 1/1=0,10 LastVisit 8/8,11 LastTimeSpent 8/8,12 FriendlyName 10/255~,"
                      "13 ClassName 10/50~,14 BackColor 4/4=12648447 ,15 ShowToolbar 1/1=0,"
                      "16 FormPosition 3/2=0,17 DateCreated 8/8,18 AutoSave 1/1,19 WAVFileName 10/50~,"
                      "20 CAT_ID 4/4!,22 TypeEffect 1/1=0,23 LocationName 10/255~,24 AutoURLDetect 1/1=0,"
                      "25 KeyWords 10/255~,26 NoteText 12/255~,ID,PrimaryKey*,");
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
