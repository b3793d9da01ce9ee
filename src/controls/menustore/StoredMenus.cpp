#include "controls/menustore/StoredMenus.h"

#include "controls/menustore/cStoreMenu.h"
#include "controls/menustore/menu_records.h"
#include "platform/RuntimeError.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace norvane {

namespace {

constexpr QByteArrayView kSignature = "vbalNewMenu";
constexpr int kMenuStoreError = 9;

[[noreturn]] void raise(const QString &description)
{
    throw RuntimeError(kMenuStoreError, description, QStringLiteral("Norvane.cPopupMenu"));
}

void checkCall(const QIODevice *openFile, const QString &name)
{
    // The words are those of reading in writing, too.
    if (!openFile && name.isEmpty())
        raise(QStringLiteral("Invalid call to RestoreFromFile; specify file name or handle."));
}

} // namespace

StoredMenus::StoredMenus() = default;
StoredMenus::~StoredMenus() = default;

void StoredMenus::store(const QString &key, const QVector<MenuItem> &items)
{
    auto found = std::find_if(m_menus.begin(), m_menus.end(),
                              [&](const std::unique_ptr<cStoreMenu> &menu) { return menu->Key() == key; });
    if (found == m_menus.end()) {
        found = m_menus.insert(m_menus.end(), std::make_unique<cStoreMenu>());
        (*found)->setKey(key);
    }
    (*found)->setItems(items);
}

const cStoreMenu *StoredMenus::find(const QString &key) const
{
    const auto found =
        std::find_if(m_menus.begin(), m_menus.end(),
                     [&](const std::unique_ptr<cStoreMenu> &menu) { return menu->Key() == key; });
    return found == m_menus.end() ? nullptr : found->get();
}

void StoredMenus::toFile(QIODevice *openFile, const QString &name)
{
    checkCall(openFile, name);
    if (m_menus.empty())
        raise(QStringLiteral("No stored menus to save"));
    if (name.isEmpty()) {
        write(*openFile);
        return;
    }
    QFile file(name);
    if (QFileInfo(file).isFile()) // never a device
        file.remove();
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate,
                   QFileDevice::ReadOwner | QFileDevice::WriteOwner))
        raise(file.errorString());
    write(file);
}

void StoredMenus::fromFile(QIODevice *openFile, const QString &name)
{
    checkCall(openFile, name);
    if (name.isEmpty()) {
        read(*openFile);
        return;
    }
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        raise(file.errorString());
    read(file);
}

void StoredMenus::write(QIODevice &file)
{
    QByteArray head = kSignature.toByteArray();
    appendInt32(head, count());
    if (file.write(head) != head.size())
        raise(file.errorString());
    for (const std::unique_ptr<cStoreMenu> &menu : m_menus) {
        if (!menu->Write(file))
            raise(menu->LastError());
    }
    // What is buffered may not fit on the disk.
    auto *const onDisk = qobject_cast<QFileDevice *>(&file);
    if (onDisk && !onDisk->flush())
        raise(onDisk->errorString());
}

void StoredMenus::read(QIODevice &file)
{
    MenuStreamReader head(file);
    if (head.bytes(kSignature.size()) != kSignature)
        raise(QStringLiteral("Not a cNewMenu file stream."));
    const qint32 announced = head.int32();
    if (head.isShort())
        raise(QStringLiteral("Input past end of file"));
    m_menus.clear();
    if (announced < 0)
        raise(QStringLiteral("Subscript out of range"));
    for (qint32 i = 0; i < announced; ++i) {
        auto menu = std::make_unique<cStoreMenu>();
        if (!menu->Read(file))
            raise(menu->LastError());
        m_menus.push_back(std::move(menu));
    }
}

} // namespace norvane
