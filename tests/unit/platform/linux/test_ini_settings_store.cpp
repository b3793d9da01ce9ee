#include "in_child.h"

#include "platform/linux/IniSettingsStore.h"
#include "platform/linux/PosixFileSystem.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace norvane;
using norvane::test::becomeOrdinaryUser;
using norvane::test::inChild;

namespace {

class IniSettingsStoreTest : public testing::Test
{
protected:
    IniSettingsStoreTest() : file(m_folder.path() + QStringLiteral("/norvane/norvane.conf")) {}

    /// What another process or an editor writes.
    void edit(const QByteArray &text)
    {
        QFile out(file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        ASSERT_EQ(out.write(text), text.size());
    }
    QByteArray text() { return files.read(file); }
    QString get(const SettingsStore &store, const char *section, const char *key) const
    {
        return store.get(QString::fromUtf8(section), QString::fromUtf8(key), QStringLiteral("(none)"));
    }

    QTemporaryDir m_folder;
    QString file;
    PosixFileSystem files;
};

const QStringList &awkwardTexts()
{
    static const QStringList texts{
        QString(),
        QStringLiteral(" "),
        QStringLiteral("  two blanks  "),
        QStringLiteral("a, b, \"c\" 'd'"),
        QStringLiteral("@Invalid() %20 $HOME ${x}"),
        QStringLiteral("line\nline\r\n\ttab"),
        QStringLiteral("C:\\new\\x0041\\s\\"),
        QStringLiteral("[HotKeys]"),
        QStringLiteral("=; # key=value"),
        QStringLiteral("#comment"),
        QStringLiteral("\x01\x7f") + QChar(0) + QStringLiteral("end"),
        QChar(0xD800) + QStringLiteral("half"),
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
            store.save(QStringLiteral("Main"), QStringLiteral("k") + awkward, awkward);
            store.save(QStringLiteral("s") + awkward, awkward, QStringLiteral("1"));
        }
    }
    EXPECT_EQ(QFile::permissions(file) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    const IniSettingsStore store(file, files);
    for (const QString &awkward : awkwardTexts()) {
        EXPECT_EQ(store.get(QStringLiteral("Main"), QStringLiteral("k") + awkward, QStringLiteral("?")),
                  awkward);
        EXPECT_EQ(store.get(QStringLiteral("s") + awkward, awkward, QStringLiteral("?")), QStringLiteral("1"))
            << awkward.toStdString();
    }
    EXPECT_EQ(store.list(QStringLiteral("Main")).size(), awkwardTexts().size());
}

TEST_F(IniSettingsStoreTest, WithoutAFileEverythingIsDefaultAndNothingIsMade)
{
    {
        const IniSettingsStore store(file, files);
        EXPECT_EQ(get(store, "HotKeys", "Main.0"), QStringLiteral("(none)"));
        EXPECT_TRUE(store.list(QStringLiteral("HotKeys")).isEmpty());
    }
    EXPECT_FALSE(QFile::exists(file));
}

TEST_F(IniSettingsStoreTest, SavesOfAMomentAreOneWrite)
{
    IniSettingsStore store(file, files);
    store.save(QStringLiteral("Main"), QStringLiteral("Top"), QStringLiteral("1"));
    store.save(QStringLiteral("Main"), QStringLiteral("Left"), QStringLiteral("2"));
    EXPECT_FALSE(QFile::exists(file));
    EXPECT_EQ(get(store, "Main", "Left"), QStringLiteral("2"));
    EXPECT_EQ(store.list(QStringLiteral("Main")),
              QStringList({QStringLiteral("Left"), QStringLiteral("Top")}));
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(file); }, 20000));
    EXPECT_EQ(text(), "[Main]\nLeft=2\nTop=1\n");
}

TEST_F(IniSettingsStoreTest, ReadsWhatAPersonTyped)
{
    IniSettingsStore(file, files).save(QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"));
    edit("# mine\r\n[ClassEx]\r\n Items = 2 \r\n01=Gimp, \"x\"\r\nno value\r\n;02=off\r\n"
         "path=C:\\Data\\q\r\n");
    const IniSettingsStore store(file, files);
    EXPECT_EQ(get(store, "ClassEx", "Items"), QStringLiteral("2"));
    EXPECT_EQ(get(store, "ClassEx", "01"), QStringLiteral("Gimp, \"x\""));
    EXPECT_EQ(get(store, "ClassEx", "02"), QStringLiteral("(none)"));
    EXPECT_EQ(get(store, "ClassEx", "path"), QStringLiteral("C:\\Data\\q"));
}

TEST_F(IniSettingsStoreTest, KeepsForeignLinesAndSeesForeignEdits)
{
    IniSettingsStore store(file, files);
    store.save(QStringLiteral("DB"), QStringLiteral("MRU1"), QStringLiteral("/a"));
    store.flush();
    edit("# mine\n[DB]\nMRU1=/other\nMRU2=/b\n\n[Other]\nx\n");
    EXPECT_EQ(get(store, "DB", "MRU1"), QStringLiteral("/other"));

    store.save(QStringLiteral("DB"), QStringLiteral("MRU3"), QStringLiteral("/c"));
    edit("# mine\n[DB]\nMRU1=/third\nMRU2=/b\n\n[Other]\nx\n");
    store.save(QStringLiteral("New"), QStringLiteral("k"), QStringLiteral("v"));
    store.save(QStringLiteral("DB"), QStringLiteral("MRU2"), QStringLiteral("/d"));
    store.flush();
    EXPECT_EQ(text(), "# mine\n[DB]\nMRU1=/third\nMRU2=/d\nMRU3=/c\n\n[Other]\nx\n\n[New]\nk=v\n");
}

TEST_F(IniSettingsStoreTest, ValueSavedBackIsNotWritten)
{
    IniSettingsStore store(file, files);
    store.save(QStringLiteral("Main"), QStringLiteral("Top"), QStringLiteral("1"));
    store.flush();
    store.save(QStringLiteral("Main"), QStringLiteral("Top"), QStringLiteral("2"));
    store.save(QStringLiteral("Main"), QStringLiteral("Top"), QStringLiteral("1"));
    EXPECT_EQ(get(store, "Main", "Top"), QStringLiteral("1"));
    edit("[Main]\nTop=7\n");
    store.flush();
    EXPECT_EQ(text(), "[Main]\nTop=7\n");
}

TEST_F(IniSettingsStoreTest, FileThatCannotBeUsedIsLeftAndValuesHoldForTheRun)
{
    IniSettingsStore(file, files).save(QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"));
    ASSERT_TRUE(QFile::setPermissions(m_folder.path(), QFile::Permissions(0x7755)));
    ASSERT_TRUE(QFile::setPermissions(QFileInfo(file).path(), QFile::Permissions(0x7777)));
    ASSERT_TRUE(QFile::setPermissions(file, QFile::Permissions()));
    const int result = inChild([&] {
        if (!becomeOrdinaryUser())
            return 100;
        IniSettingsStore store(file, files);
        store.save(QStringLiteral("Main"), QStringLiteral("Top"), QStringLiteral("1"));
        store.flush();
        return get(store, "Main", "Top") == u"1" ? 0 : 1;
    });
    EXPECT_EQ(result, 0);
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner));
    EXPECT_EQ(text(), "[a]\nb=c\n");
}

} // namespace
