#include "in_child.h"

#include "file_bytes.h"
#include "platform/linux/IniSettingsStore.h"
#include "platform/linux/PosixFileSystem.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace norvane;
using namespace norvane::test;

namespace {

class IniSettingsStoreTest : public testing::Test
{
protected:
    /// What another process or an editor writes.
    void edit(const QByteArray &text) { ASSERT_TRUE(putBytes(file, text)); }
    QByteArray text() { return files.read(file); }
    static QString get(const SettingsStore &store, const QString &section, const QString &key)
    {
        return store.get(section, key, u"(none)"_qs);
    }

    QTemporaryDir folder;
    QString file = folder.path() + u"/norvane/norvane.conf"_qs;
    PosixFileSystem files;
};

TEST_F(IniSettingsStoreTest, KeepsAnyTextAsValueKeyAndSection)
{
    const QStringList awkwardTexts{
        QString(),
        u" "_qs,
        u"  two blanks  "_qs,
        u"a, b, \"c\" 'd'"_qs,
        u"@Invalid() %20 $HOME ${x}"_qs,
        u"line\nline\r\n\ttab"_qs,
        u"C:\\new\\x0041\\s\\"_qs,
        u"[HotKeys]"_qs,
        u"=; # key=value"_qs,
        u"#comment"_qs,
        u"\x01\x7f"_qs + QChar(0) + u"end"_qs,
        QChar(0xD800) + u"half"_qs,
        u"\U0001F600 \u05E9\u05DC\u05D5\u05DD \u00A0"_qs,
        QString(QChar(0x2028)),
        QString(5000, u'x'),
    };
    {
        IniSettingsStore store(file, files);
        for (const QString &awkward : awkwardTexts) {
            store.save(u"Main"_qs, u'k' + awkward, awkward);
            store.save(u's' + awkward, awkward, u"1"_qs);
        }
    }
    EXPECT_EQ(QFile::permissions(file) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    const IniSettingsStore store(file, files);
    for (const QString &awkward : awkwardTexts) {
        EXPECT_EQ(get(store, u"Main"_qs, u'k' + awkward), awkward);
        EXPECT_EQ(get(store, u's' + awkward, awkward), u"1"_qs) << awkward.toStdString();
    }
    EXPECT_EQ(store.list(u"Main"_qs).size(), awkwardTexts.size());
}

TEST_F(IniSettingsStoreTest, SavesOfAMomentAreOneWrite)
{
    IniSettingsStore store(file, files);
    EXPECT_EQ(get(store, u"Main"_qs, u"Top"_qs), u"(none)"_qs);
    store.save(u"Main"_qs, u"Top"_qs, u"1"_qs);
    store.save(u"Main"_qs, u"Left"_qs, u"2"_qs);
    EXPECT_FALSE(QFile::exists(file));
    EXPECT_EQ(get(store, u"Main"_qs, u"Left"_qs), u"2"_qs);
    EXPECT_EQ(store.list(u"Main"_qs), QStringList({u"Left"_qs, u"Top"_qs}));
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(file); }, 20000));
    EXPECT_EQ(text(), "[Main]\nLeft=2\nTop=1\n");

    // A value that is saved as it was before is no change, and another's edit stands.
    store.save(u"Main"_qs, u"Top"_qs, u"2"_qs);
    store.save(u"Main"_qs, u"Top"_qs, u"1"_qs);
    edit("[Main]\nTop=7\n");
    store.flush();
    EXPECT_EQ(text(), "[Main]\nTop=7\n");
}

TEST_F(IniSettingsStoreTest, ReadsWhatAPersonTyped)
{
    IniSettingsStore(file, files).save(u"a"_qs, u"b"_qs, u"c"_qs);
    edit("# mine\r\n[ClassEx]\r\n Items = 2 \r\n01=Gimp, \"x\"\r\nno value\r\n;02=off\r\n"
         "path=C:\\Data\\q\r\n");
    const IniSettingsStore store(file, files);
    EXPECT_EQ(get(store, u"ClassEx"_qs, u"Items"_qs), u"2"_qs);
    EXPECT_EQ(get(store, u"ClassEx"_qs, u"01"_qs), u"Gimp, \"x\""_qs);
    EXPECT_EQ(get(store, u"ClassEx"_qs, u"02"_qs), u"(none)"_qs);
    EXPECT_EQ(get(store, u"ClassEx"_qs, u"path"_qs), u"C:\\Data\\q"_qs);
}

TEST_F(IniSettingsStoreTest, KeepsForeignLinesAndSeesForeignEdits)
{
    IniSettingsStore store(file, files);
    store.save(u"DB"_qs, u"MRU1"_qs, u"/a"_qs);
    store.flush();
    edit("# mine\n[DB]\nMRU1=/other\nMRU2=/b\n\n[Other]\nx\n");
    EXPECT_EQ(get(store, u"DB"_qs, u"MRU1"_qs), u"/other"_qs);

    store.save(u"DB"_qs, u"MRU3"_qs, u"/c"_qs);
    edit("# mine\n[DB]\nMRU1=/third\nMRU2=/b\n\n[Other]\nx\n");
    store.save(u"New"_qs, u"k"_qs, u"v"_qs);
    store.save(u"DB"_qs, u"MRU2"_qs, u"/d"_qs);
    store.flush();
    EXPECT_EQ(text(), "# mine\n[DB]\nMRU1=/third\nMRU2=/d\nMRU3=/c\n\n[Other]\nx\n\n[New]\nk=v\n");
}

TEST_F(IniSettingsStoreTest, FileThatCannotBeUsedIsLeftAndValuesHoldForTheRun)
{
    IniSettingsStore(file, files).save(u"a"_qs, u"b"_qs, u"c"_qs);
    ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::Permissions(0x7755)));
    ASSERT_TRUE(QFile::setPermissions(QFileInfo(file).path(), QFile::Permissions(0x7777)));
    ASSERT_TRUE(QFile::setPermissions(file, QFile::Permissions()));
    const int result = inChild([&] {
        if (!becomeOrdinaryUser())
            return 100;
        IniSettingsStore store(file, files);
        store.save(u"Main"_qs, u"Top"_qs, u"1"_qs);
        store.flush();
        return get(store, u"Main"_qs, u"Top"_qs) == u"1" ? 0 : 1;
    });
    EXPECT_EQ(result, 0);
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner));
    EXPECT_EQ(text(), "[a]\nb=c\n");
}

} // namespace
