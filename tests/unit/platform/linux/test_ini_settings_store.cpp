#include "in_child.h"

#include "platform/linux/IniSettingsStore.h"
#include "platform/linux/PosixFileSystem.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace norvane;
using namespace Qt::StringLiterals;
using norvane::test::becomeOrdinaryUser;
using norvane::test::inChild;

namespace {

class IniSettingsStoreTest : public testing::Test
{
protected:
    IniSettingsStoreTest() : file(m_folder.path() + u"/norvane/norvane.conf"_s) {}

    /// What another process or an editor writes.
    void edit(const QByteArray &text)
    {
        QFile out(file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        ASSERT_EQ(out.write(text), text.size());
    }
    QByteArray text() { return files.read(file); }

    QTemporaryDir m_folder;
    QString file;
    PosixFileSystem files;
};

const QStringList &awkwardTexts()
{
    static const QStringList texts{
        QString(),
        u" "_s,
        u"  two blanks  "_s,
        u"a, b, \"c\" 'd'"_s,
        u"@Invalid() %20 $HOME ${x}"_s,
        u"line\nline\r\n\ttab"_s,
        u"C:\\new\\x0041\\s\\"_s,
        u"[HotKeys]"_s,
        u"=; # key=value"_s,
        u"#comment"_s,
        u"\x01\x7f"_s + QChar(0) + u"end"_s,
        QChar(0xD800) + u"half"_s,
        QString::fromUtf8("\xF0\x9F\x98\x80 \xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D \xC2\xA0"),
        QString(QChar(0x2028)),
        QString(5000, u'x'),
    };
    return texts;
}

TEST_F(IniSettingsStoreTest, KeepsAnyTextAsValueKeyAndSection)
{
    {
        IniSettingsStore store(file, files);
        for (const QString &awkward : awkwardTexts()) {
            store.save(u"Main"_s, u"k"_s + awkward, awkward);
            store.save(u"s"_s + awkward, awkward, u"1"_s);
        }
    }
    EXPECT_EQ(QFile::permissions(file) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    const IniSettingsStore store(file, files);
    for (const QString &awkward : awkwardTexts()) {
        EXPECT_EQ(store.get(u"Main"_s, u"k"_s + awkward, u"?"_s), awkward);
        EXPECT_EQ(store.get(u"s"_s + awkward, awkward, u"?"_s), u"1"_s) << awkward.toStdString();
    }
    EXPECT_EQ(store.list(u"Main"_s).size(), awkwardTexts().size());
}

TEST_F(IniSettingsStoreTest, SavesOfAMomentAreOneWrite)
{
    IniSettingsStore store(file, files);
    EXPECT_EQ(store.get(u"Main"_s, u"Left"_s, u"?"_s), u"?");
    EXPECT_TRUE(store.list(u"Main"_s).isEmpty());
    store.save(u"Main"_s, u"Top"_s, u"1"_s);
    store.save(u"Main"_s, u"Left"_s, u"2"_s);
    EXPECT_FALSE(QFile::exists(file));
    EXPECT_EQ(store.get(u"Main"_s, u"Left"_s, u"?"_s), u"2"_s);
    EXPECT_EQ(store.list(u"Main"_s), QStringList({u"Left"_s, u"Top"_s}));
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(file); }, 20000));
    EXPECT_EQ(text(), "[Main]\nLeft=2\nTop=1\n");
}

TEST_F(IniSettingsStoreTest, ReadsWhatAPersonTyped)
{
    IniSettingsStore(file, files).save(u"a"_s, u"b"_s, u"c"_s);
    edit("# mine\r\n[ClassEx]\r\n Items = 2 \r\n01=Gimp, \"x\"\r\nno value\r\n;02=off\r\n"
         "path=C:\\Data\\q\r\n");
    const IniSettingsStore store(file, files);
    EXPECT_EQ(store.get(u"ClassEx"_s, u"Items"_s, u"?"_s), u"2"_s);
    EXPECT_EQ(store.get(u"ClassEx"_s, u"01"_s, u"?"_s), u"Gimp, \"x\""_s);
    EXPECT_EQ(store.get(u"ClassEx"_s, u"02"_s, u"?"_s), u"?"_s);
    EXPECT_EQ(store.get(u"ClassEx"_s, u"path"_s, u"?"_s), u"C:\\Data\\q"_s);
}

TEST_F(IniSettingsStoreTest, KeepsForeignLinesAndSeesForeignEdits)
{
    IniSettingsStore store(file, files);
    store.save(u"DB"_s, u"MRU1"_s, u"/a"_s);
    store.flush();
    edit("# mine\n[DB]\nMRU1=/other\nMRU2=/b\n\n[Other]\nx\n");
    EXPECT_EQ(store.get(u"DB"_s, u"MRU1"_s, u"?"_s), u"/other"_s);

    store.save(u"DB"_s, u"MRU3"_s, u"/c"_s);
    edit("# mine\n[DB]\nMRU1=/third\nMRU2=/b\n\n[Other]\nx\n");
    store.save(u"New"_s, u"k"_s, u"v"_s);
    store.save(u"DB"_s, u"MRU2"_s, u"/d"_s);
    store.flush();
    EXPECT_EQ(text(), "# mine\n[DB]\nMRU1=/third\nMRU2=/d\nMRU3=/c\n\n[Other]\nx\n\n[New]\nk=v\n");
}

TEST_F(IniSettingsStoreTest, ValueSavedBackIsNotWritten)
{
    IniSettingsStore store(file, files);
    store.save(u"Main"_s, u"Top"_s, u"1"_s);
    store.flush();
    store.save(u"Main"_s, u"Top"_s, u"2"_s);
    store.save(u"Main"_s, u"Top"_s, u"1"_s);
    EXPECT_EQ(store.get(u"Main"_s, u"Top"_s, u"?"_s), u"1"_s);
    edit("[Main]\nTop=7\n");
    store.flush();
    EXPECT_EQ(text(), "[Main]\nTop=7\n");
}

TEST_F(IniSettingsStoreTest, FileThatCannotBeUsedIsLeftAndValuesHoldForTheRun)
{
    IniSettingsStore(file, files).save(u"a"_s, u"b"_s, u"c"_s);
    ASSERT_TRUE(QFile::setPermissions(m_folder.path(), QFile::Permissions(0x7755)));
    ASSERT_TRUE(QFile::setPermissions(QFileInfo(file).path(), QFile::Permissions(0x7777)));
    ASSERT_TRUE(QFile::setPermissions(file, QFile::Permissions()));
    const int result = inChild([&] {
        if (!becomeOrdinaryUser())
            return 100;
        IniSettingsStore store(file, files);
        store.save(u"Main"_s, u"Top"_s, u"1"_s);
        store.flush();
        return store.get(u"Main"_s, u"Top"_s, u"?"_s) == u"1" ? 0 : 1;
    });
    EXPECT_EQ(result, 0);
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner));
    EXPECT_EQ(text(), "[a]\nb=c\n");
}

} // namespace
