#include "controls/menustore/cStoreMenu.h"

#include "controls/menu/PopupMenuModel.h"
#include "controls/menustore/menu_records.h"

#include <QCoreApplication>
#include <QIODevice>
#include <QVersionNumber>

namespace norvane {

namespace {

constexpr QByteArrayView kSignature = "cStoreMenu";
constexpr qint32 kTooManyItems = 32767;

QString versionText()
{
    const auto version = QVersionNumber::fromString(QCoreApplication::applicationVersion());
    return QStringLiteral("%1:%2,100").arg(version.majorVersion()).arg(version.minorVersion());
}

} // namespace

bool cStoreMenu::fail(const QString &error)
{
    m_items.clear();
    m_lastError = error;
    return false;
}

bool cStoreMenu::Write(QIODevice &file)
{
    QByteArray stream = kSignature.toByteArray();
    appendText32(stream, versionText());
    appendText32(stream, m_key);
    appendInt32(stream, Count());
    for (const MenuItem &item : m_items)
        appendMenuRecord(stream, item);
    m_lastError = file.write(stream) == stream.size() ? QString() : file.errorString();
    return m_lastError.isEmpty();
}

bool cStoreMenu::Read(QIODevice &file)
{
    const QString pastEnd = QStringLiteral("Input past end of file");
    m_lastError.clear();
    MenuStreamReader stream(file);
    if (stream.bytes(kSignature.size()) != kSignature)
        return fail(QStringLiteral("Not a cNewMenu data stream"));
    stream.text32(); // the version
    m_key = stream.text32();
    const qint32 count = stream.int32();
    if (stream.isShort())
        return fail(pastEnd);
    if (count < 0 || count >= kTooManyItems)
        return fail(QStringLiteral("Invalid number of Menu items"));
    if (count > stream.left() / kSmallestMenuRecord)
        return fail(pastEnd);
    QVector<MenuItem> items;
    items.reserve(count);
    for (qint32 i = 0; i < count; ++i) {
        items.append(readMenuRecord(stream));
        if (stream.isShort())
            return fail(pastEnd);
    }
    m_items = items;
    return true;
}

void cStoreMenu::Restore(PopupMenuModel &menu) const
{
    for (const MenuItem &item : m_items) {
        const int index = menu.AddItem(item.caption, item.helpText, item.ItemData, item.ItemParentIndex,
                                       item.ItemIcon, item.Checked, item.Enabled, item.ItemKey);
        menu.setHeader(index, item.Header);
        menu.setDefault(index, item.Default);
        menu.setOwnerDraw(index, item.OwnerDraw);
        menu.setRadioCheck(index, item.RadioCheck);
    }
}

} // namespace norvane
