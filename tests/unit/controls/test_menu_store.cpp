#include "controls/menu/PopupMenuModel.h"
#include "controls/menustore/cStoreMenu.h"
#include "platform/RuntimeError.h"
#include "shell/windows_1252.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

/// Bytes as the tables have them: hexadecimal pairs, and text in single quotes.
QByteArray bytes(const char *written)
{
    QByteArray result;
    for (const QByteArray &word : QByteArray(written).simplified().split(' '))
        result += word.startsWith('\'') ? word.mid(1, word.size() - 2) : QByteArray::fromHex(word);
    return result;
}

/// Two snapshots, the first with two items, of version 3.7.
const QByteArray kGolden = bytes(R"(
    'vbalNewMenu' 02000000
    'cStoreMenu' 07000000 '3:7,100' 04000000 'MAIN' 02000000

    0400 'help'
    0D00 '&Close' 09 'Ctrl+X'
    0600 '&Close'
    0100 'C'
    0600 'Ctrl+X'
      0200 5800 01080000 00000040 4D000000 00000000 00000000 FFFFFFFF 0000 FFFF FFFF
      00000040 00000000 00000000 FFFF 0000 00000000 0000
    0500 'CLOSE'
      00000000 0000 FFFF 0000 0000 0000

    0000
    0500 'E' 80 7C 3F E9
    0400 'E' 80 3F E9
    0000
    0000
      0000 0000 02080000 02080000 FEFFFFFF 00000000 01080000 03000000 FFFF 0000 0000
      01000040 00000000 00000000 FFFF 0000 00000000 0000
    0000
      01000000 0000 0000 FFFF FFFF 0000

    'cStoreMenu' 07000000 '3:7,100' 00000000 00000000
)");

class MenuStore : public testing::Test
{
protected:
    void SetUp() override { QCoreApplication::setApplicationVersion(u"3.7.1"_s); }
    void TearDown() override { QCoreApplication::setApplicationVersion({}); }

    static QByteArray written(PopupMenuModel &menu)
    {
        QBuffer file;
        file.open(QIODevice::WriteOnly);
        menu.StoreToFile(&file);
        EXPECT_TRUE(file.isOpen());
        return file.data();
    }
    static void read(PopupMenuModel &menu, const QByteArray &stream)
    {
        QBuffer file;
        file.setData(stream);
        file.open(QIODevice::ReadOnly);
        menu.RestoreFromFile(&file);
        EXPECT_TRUE(file.isOpen());
    }
    /// The description of the error 9 that an action raises; empty if it raises none.
    template <typename Action> static QString errorOf(Action action)
    {
        try {
            action();
        } catch (const RuntimeError &error) {
            EXPECT_EQ(error.number(), 9);
            EXPECT_EQ(error.source(), u"Norvane.cPopupMenu");
            return error.description();
        }
        return {};
    }
    static QString readError(const QByteArray &stream)
    {
        PopupMenuModel menu;
        return errorOf([&] { read(menu, stream); });
    }
    static QByteArray replaced(qsizetype at, const char *hex)
    {
        QByteArray stream = kGolden;
        return stream.replace(at, 4, QByteArray::fromHex(hex));
    }

    PopupMenuModel menu;
};

/// Where the first item count of the golden file is.
const qsizetype kCountAt = kGolden.indexOf("MAIN") + 4;

TEST_F(MenuStore, WritesItsFileByteForByte)
{
    menu.AddItem(u"&Close\tCtrl+X"_s, u"help"_s, 77, 0, -1, false, true, u"CLOSE"_s);
    menu.setDefault(1, true);
    menu.setRadioCheck(1, true);
    menu.AddItem(u"E\u20ac|\u03a9\u00e9"_s, {}, -2, 1, 3, true, false);
    menu.setOwnerDraw(2, true);
    // The child menu has the number behind that of the root menu.
    QByteArray expected = kGolden;
    expected.replace(bytes("4D000000").prepend(bytes("00000040")), bytes("01000040 4D000000"));
    menu.Store(u"MAIN"_s);
    PopupMenuModel empty;
    menu.Clear();
    menu.Store(QString());
    EXPECT_EQ(written(menu).toHex(' '), expected.toHex(' '));
}

TEST_F(MenuStore, ReadsWhatTheTablesSay)
{
    read(menu, kGolden);
    EXPECT_EQ(menu.storedMenus().count(), 2);
    const cStoreMenu &main = *menu.storedMenus().find(u"MAIN"_s);
    ASSERT_EQ(main.Count(), 2);
    const MenuItem &second = main.Items()[1];
    EXPECT_EQ(second.displayCaption, u"E\u20ac?\u00e9");
    EXPECT_EQ(second.parentId, 2049);
    EXPECT_EQ(second.menuHandle, 0x40000001);
    EXPECT_TRUE(second.columnBreak);

    menu.AddItem(u"before"_s);
    EXPECT_TRUE(menu.Restore(u"MAIN"_s));
    ASSERT_EQ(menu.Count(), 2);
    EXPECT_EQ(menu.ItemData(1), 77);
    EXPECT_EQ(menu.ItemKey(1), u"CLOSE");
    EXPECT_TRUE(menu.Default(1));
    EXPECT_TRUE(menu.RadioCheck(1));
    EXPECT_EQ(menu.hMenu(2), menu.subMenu(1)) << "handles and IDs are new";
    EXPECT_EQ(menu.ItemIcon(2), 3);
    EXPECT_TRUE(menu.Checked(2));
    EXPECT_FALSE(menu.Enabled(2));
    EXPECT_TRUE(menu.OwnerDraw(2));

    EXPECT_FALSE(menu.Restore(u"main"_s));
    EXPECT_EQ(menu.Count(), 2);
    EXPECT_TRUE(menu.Restore(QString()));
    EXPECT_EQ(menu.Count(), 0) << "a snapshot without items";
}

TEST_F(MenuStore, GoesThroughNamedAndOpenFiles)
{
    QTemporaryDir folder;
    const QString name = folder.filePath(u"menus"_s);
    EXPECT_EQ(errorOf([&] { menu.StoreToFile(nullptr); }),
              u"Invalid call to RestoreFromFile; specify file name or handle.");
    EXPECT_EQ(errorOf([&] { menu.RestoreFromFile(nullptr); }),
              u"Invalid call to RestoreFromFile; specify file name or handle.");
    EXPECT_EQ(errorOf([&] { menu.StoreToFile(nullptr, name); }), u"No stored menus to save");
    EXPECT_FALSE(QFile::exists(name));

    QFile old(name);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write(QByteArray(5000, 'x'));
    old.close();
    read(menu, kGolden);
    menu.StoreToFile(nullptr, name);
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    EXPECT_EQ(old.readAll(), kGolden);
    old.close();
    PopupMenuModel other;
    other.RestoreFromFile(nullptr, name);
    EXPECT_EQ(other.storedMenus().count(), 2);

    EXPECT_NE(errorOf([&] { other.RestoreFromFile(nullptr, name + u'x'); }), QString());
    EXPECT_NE(errorOf([&] { other.StoreToFile(nullptr, folder.path()); }), QString());
    QBuffer shared;
    shared.open(QIODevice::ReadWrite);
    shared.write("mine");
    other.StoreToFile(&shared);
    shared.write("more");
    shared.seek(4);
    other.RestoreFromFile(&shared);
    EXPECT_EQ(shared.readAll(), "more") << "an open file is read no farther than it has to be";

    QFile full(u"/dev/full"_s); // by handle: a named file is replaced
    ASSERT_TRUE(full.open(QIODevice::WriteOnly));
    EXPECT_NE(errorOf([&] { other.StoreToFile(&full); }), QString());
    EXPECT_EQ(other.storedMenus().count(), 2);
}

TEST_F(MenuStore, RefusesWhatIsNoMenu)
{
    read(menu, kGolden);
    EXPECT_EQ(errorOf([&] { read(menu, "something else"); }), u"Not a cNewMenu file stream.");
    EXPECT_EQ(menu.storedMenus().count(), 2) << "nothing was cleared";
    EXPECT_EQ(readError(replaced(15, "00000000")), u"Not a cNewMenu data stream");
    EXPECT_EQ(readError(replaced(kCountAt, "FFFFFFFF")), u"Invalid number of Menu items");
    EXPECT_EQ(readError(replaced(kCountAt, "FF7F0000")), u"Invalid number of Menu items");
    EXPECT_EQ(readError(replaced(kCountAt, "FE7F0000")), u"Input past end of file") << "32766 is no fault";
    EXPECT_EQ(readError(replaced(11, "FFFFFFFF")), u"Subscript out of range");
    EXPECT_EQ(readError(replaced(11, "FFFFFF7F")), u"Not a cNewMenu data stream") << "two are there";
    EXPECT_EQ(readError(replaced(25, "FFFFFF7F")), u"Input past end of file");
    EXPECT_EQ(readError(replaced(25, "FFFFFFFF")), u"Input past end of file");
}

TEST_F(MenuStore, RefusesAFileThatIsCutAnywhere)
{
    for (qsizetype size = 0; size < kGolden.size(); ++size) {
        PopupMenuModel cut;
        EXPECT_NE(errorOf([&] { read(cut, kGolden.first(size)); }), QString()) << size;
        EXPECT_LE(cut.storedMenus().count(), 1);
    }
}

TEST_F(MenuStore, TakesAsManyItemsAsMayBe)
{
    menu.AddItem(QString(70'000, u'x'), {}, 0, 0, -1, false, true, u"KEY"_s);
    for (int i = 1; i < 32766; ++i)
        menu.AddItem(u"x"_s);
    menu.Store(u"many"_s);
    const QByteArray stream = written(menu);
    PopupMenuModel other;
    read(other, stream);
    const QVector<MenuItem> &items = other.storedMenus().find(u"many"_s)->Items();
    EXPECT_EQ(items.size(), 32766);
    EXPECT_EQ(items[0].caption, QString(65'535, u'x')) << "as long as its length can tell";
    EXPECT_EQ(items[0].ItemKey, u"KEY");
    menu.AddItem(u"one more"_s);
    menu.Store(u"many"_s);
    EXPECT_EQ(errorOf([&] { read(other, written(menu)); }), u"Invalid number of Menu items");
}

TEST(Windows1252, HasAByteForEachOfItsCharacters)
{
    EXPECT_EQ(toWindows1252(u"\u20ac\u201e\u0178\u00ff\u0081A\u03a9\U0001F600").toHex(),
              "80849fff81413f3f3f");
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all.append(char(byte));
    EXPECT_EQ(toWindows1252(fromWindows1252(all)), all);
}

} // namespace
