// Reads damaged files of stored menus, as long as it is told to. Whatever comes in: nothing breaks, a
// refusal is an error 9 with words, and what was read can be restored, changed, written and read again
// as the same.

#include "Fuzzing.h"
#include "controls/menu/PopupMenuModel.h"
#include "controls/menustore/cStoreMenu.h"
#include "platform/RuntimeError.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QRandomGenerator>
#include <QtEndian>

using namespace norvane;

namespace {

constexpr int kMaximumSize = 60'000;

QByteArray written(PopupMenuModel &menu)
{
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    menu.StoreToFile(&file);
    return file.data();
}

/// What is wrong with the list of items; empty if nothing is.
QByteArray faultOfItems(const PopupMenuModel &menu)
{
    int listed = int(menu.itemsOf(menu.rootMenu()).size());
    for (int i = 1; i <= menu.Count(); ++i) {
        const MenuItem &item = *menu.item(i);
        if (item.ItemParentIndex < 0 || item.ItemParentIndex >= i)
            return "a parent does not stand before its child";
        if (item.menuHandle != menu.subMenu(item.ItemParentIndex))
            return "an item is not in its parent's menu";
        if (menu.ItemForID(item.id) != i || menu.ItemForID(item.actualId) != i)
            return "an item is not found by its ID";
        if (item.hasSubMenu())
            listed += int(menu.itemsOf(item.actualId).size());
    }
    return listed == menu.Count() ? QByteArray() : QByteArray("an item is in no menu, or in two");
}

QByteArray faultOf(const QByteArray &input, bool)
{
    PopupMenuModel menu;
    QBuffer file;
    file.setData(input);
    file.open(QIODevice::ReadOnly);
    bool isWhole = true;
    try {
        menu.RestoreFromFile(&file);
    } catch (const RuntimeError &error) {
        if (error.number() != 9 || error.description().isEmpty())
            return "a refusal without number or words";
        isWhole = false;
    }
    if (menu.storedMenus().count() == 0)
        return {};
    const QByteArray once = written(menu);
    PopupMenuModel again;
    QBuffer file2;
    file2.setData(once);
    file2.open(QIODevice::ReadOnly);
    again.RestoreFromFile(&file2);
    if (written(again) != once)
        return "it is written differently the second time";
    if (isWhole && again.storedMenus().count() != menu.storedMenus().count())
        return "a snapshot is lost";

    for (const QString &key : {QStringLiteral("MAIN"), QStringLiteral("SUB"), QString()}) {
        const cStoreMenu *snapshot = menu.storedMenus().find(key);
        if (!snapshot)
            continue;
        const int count = snapshot->Count();
        menu.Restore(key);
        if (menu.Count() != count)
            return "a restored menu has lost items";
        for (int round = 0; round < 4; ++round) {
            const QByteArray fault = faultOfItems(menu);
            if (!fault.isEmpty())
                return fault;
            const int index = 1 + (count * (round + 1)) / 5;
            menu.GroupToggle(index);
            if (round % 2 == 0)
                menu.RemoveItem(index);
            else
                menu.InsertItem(index, QStringLiteral("-|^&\t"));
        }
    }
    return {};
}

QList<QByteArray> corpusOf(const QStringList &)
{
    QList<QByteArray> files;
    PopupMenuModel menu;
    menu.Store({});
    files.append(written(menu));
    for (int i = 0; i < 12; ++i) {
        const int index = menu.AddItem(QStringLiteral("&Item %1|\tCtrl+F%1").arg(i), QStringLiteral("help"),
                                       i, i % 4 == 0 ? 0 : i - i % 4 + 1, i % 3 - 1, i % 2 == 0, i % 5 != 0,
                                       QStringLiteral("KEY%1").arg(i));
        menu.setDefault(index, i == 3);
        menu.GroupToggle(index);
        menu.AddItem(i % 2 == 0 ? QStringLiteral("-") : QStringLiteral("-Header^"));
    }
    menu.Store(QStringLiteral("MAIN"));
    files.append(written(menu));
    menu.RemoveItem(1);
    menu.Store(QStringLiteral("SUB"));
    files.append(written(menu));
    return files;
}

/// The same seed damages the same way.
class Damage
{
public:
    Damage(const QList<QByteArray> &corpus, quint32 seed) : m_random(seed), m_files(corpus) {}

    QByteArray next()
    {
        QByteArray file = any();
        for (int changes = m_random.bounded(1, 8); changes > 0 && !file.isEmpty(); --changes)
            change(file);
        file.truncate(kMaximumSize);
        return file;
    }

private:
    const QByteArray &any() { return m_files.at(m_random.bounded(int(m_files.size()))); }
    int place(const QByteArray &file) { return m_random.bounded(int(file.size())); }

    void change(QByteArray &file)
    {
        const int at = place(file);
        switch (m_random.bounded(6)) {
        case 0:
            file[at] = char(m_random.bounded(256));
            break;
        case 1:
            file.remove(at, m_random.bounded(1, 100));
            break;
        case 2: {
            const QByteArray other = any();
            file.insert(at, other.mid(m_random.bounded(int(other.size())), m_random.bounded(1, 300)));
            break;
        }
        case 3:
            file.truncate(at);
            break;
        case 4: { // an item count
            const qsizetype stream = file.indexOf("cStoreMenu", at);
            if (stream >= 0 && stream + 40 < file.size())
                number(file, int(stream) + m_random.bounded(10, 36));
            break;
        }
        default:
            number(file, at);
            break;
        }
    }

    void number(QByteArray &file, int at)
    {
        static constexpr qint32 kNumbers[] = {0, 1, -1, 2, 13, 255, 32766, 32767, 65535, 0x7FFFFFFF, -32768};
        char bytes[4];
        qToLittleEndian(kNumbers[m_random.bounded(int(std::size(kNumbers)))], bytes);
        file.replace(at, 4, QByteArray(bytes, m_random.bounded(2) == 0 ? 4 : 2));
    }

    QRandomGenerator m_random;
    QList<QByteArray> m_files;
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const auto damage = [](const QList<QByteArray> &corpus, quint32 seed) {
        return [damage = Damage(corpus, seed)]() mutable { return damage.next(); };
    };
    return runFuzzing({"fuzz_menu_snapshot", ".menus", corpusOf, damage, faultOf});
}
