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

/// The open file, or the one of that name, which is then opened with @p open.
template <typename Open> QIODevice &chosenFile(QIODevice *openFile, QFile &named, Open open)
{
    if (named.fileName().isEmpty() && !openFile)
        raise(QStringLiteral("Invalid call to RestoreFromFile; specify file name or handle."));
    if (named.fileName().isEmpty())
        return *openFile;
    if (!open(named))
        raise(named.errorString());
    return named;
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
    QFile named(name);
    // Before an existing file is touched.
    if (openFile || !name.isEmpty()) {
        if (m_menus.empty())
            raise(QStringLiteral("No stored menus to save"));
    }
    write(chosenFile(openFile, named, [](QFile &file) {
        if (QFileInfo(file).isFile()) // never a device
            file.remove();
        return file.open(QIODevice::WriteOnly | QIODevice::Truncate,
                         QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    }));
}

void StoredMenus::fromFile(QIODevice *openFile, const QString &name)
{
    QFile named(name);
    read(chosenFile(openFile, named, [](QFile &file) { return file.open(QIODevice::ReadOnly); }));
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
