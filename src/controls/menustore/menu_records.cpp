#include "controls/menustore/menu_records.h"

#include "controls/menu/MenuItem.h"
#include "shell/windows_1252.h"

#include <QIODevice>
#include <QtEndian>

namespace norvane {

namespace {

constexpr int kLongestText = 0xFFFF;
constexpr int kTrue = 0xFFFF;

template <typename Integer> void append(QByteArray &stream, Integer value)
{
    char bytes[sizeof(Integer)];
    qToLittleEndian(value, bytes);
    stream.append(bytes, sizeof(Integer));
}

template <typename Integer> Integer taken(MenuStreamReader &stream)
{
    const QByteArray bytes = stream.bytes(sizeof(Integer));
    return stream.isShort() ? Integer(0) : qFromLittleEndian<Integer>(bytes.constData());
}

void appendBoolean(QByteArray &stream, bool value)
{
    appendInt16(stream, value ? kTrue : 0);
}

void appendText16(QByteArray &stream, const QString &text)
{
    const QByteArray bytes = toWindows1252(QStringView(text).left(kLongestText));
    appendInt16(stream, int(bytes.size()));
    stream.append(bytes);
}

} // namespace

MenuStreamReader::MenuStreamReader(QIODevice &file) : m_file(file), m_left(file.bytesAvailable()) {}

QByteArray MenuStreamReader::bytes(qint64 length)
{
    if (m_isShort || length < 0 || length > m_left) {
        m_isShort = true;
        return {};
    }
    QByteArray read = m_file.read(length);
    m_left -= read.size();
    m_isShort = read.size() != length;
    return read;
}

qint16 MenuStreamReader::int16()
{
    return taken<qint16>(*this);
}

qint32 MenuStreamReader::int32()
{
    return taken<qint32>(*this);
}

QString MenuStreamReader::text16()
{
    return fromWindows1252(bytes(quint16(int16())));
}

QString MenuStreamReader::text32()
{
    return fromWindows1252(bytes(int32()));
}

void appendInt16(QByteArray &stream, int value)
{
    append(stream, quint16(value));
}

void appendInt32(QByteArray &stream, qint32 value)
{
    append(stream, value);
}

void appendText32(QByteArray &stream, const QString &text)
{
    const QByteArray bytes = toWindows1252(text);
    appendInt32(stream, qint32(bytes.size()));
    stream.append(bytes);
}

void appendMenuRecord(QByteArray &stream, const MenuItem &item)
{
    appendText16(stream, item.helpText);
    appendText16(stream, item.caption);
    appendText16(stream, item.displayCaption);
    appendText16(stream, item.accessKey);
    appendText16(stream, item.shortcutText);

    appendInt16(stream, item.shortcutShift);
    appendInt16(stream, item.shortcutKey);
    appendInt32(stream, item.id);
    appendInt32(stream, item.actualId);
    appendInt32(stream, item.ItemData);
    appendInt32(stream, item.reserved);
    appendInt32(stream, item.parentId);
    appendInt32(stream, item.ItemIcon);
    appendBoolean(stream, item.Checked);
    appendBoolean(stream, item.RadioCheck);
    appendBoolean(stream, item.Enabled);

    appendInt32(stream, item.menuHandle);
    appendInt32(stream, item.height);
    appendInt32(stream, item.width);
    appendBoolean(stream, item.visible);
    appendInt16(stream, 0);
    appendInt32(stream, item.shortcutColumn);
    appendInt16(stream, 0);

    appendText16(stream, item.ItemKey);

    appendInt32(stream, item.ItemParentIndex);
    appendBoolean(stream, item.Header);
    appendBoolean(stream, item.Default);
    appendBoolean(stream, item.OwnerDraw);
    appendBoolean(stream, item.columnBreak);
    appendBoolean(stream, item.barColumnBreak);
}

MenuItem readMenuRecord(MenuStreamReader &stream)
{
    MenuItem item;
    item.helpText = stream.text16();
    item.caption = stream.text16();
    item.displayCaption = stream.text16();
    item.accessKey = stream.text16();
    item.shortcutText = stream.text16();

    item.shortcutShift = stream.int16();
    item.shortcutKey = stream.int16();
    item.id = stream.int32();
    item.actualId = stream.int32();
    item.ItemData = stream.int32();
    item.reserved = stream.int32();
    item.parentId = stream.int32();
    item.ItemIcon = stream.int32();
    item.Checked = stream.boolean();
    item.RadioCheck = stream.boolean();
    item.Enabled = stream.boolean();

    item.menuHandle = stream.int32();
    item.height = stream.int32();
    item.width = stream.int32();
    item.visible = stream.boolean();
    stream.int16();
    item.shortcutColumn = stream.int32();
    stream.int16();

    item.ItemKey = stream.text16();

    item.ItemParentIndex = stream.int32();
    item.Header = stream.boolean();
    item.Default = stream.boolean();
    item.OwnerDraw = stream.boolean();
    item.columnBreak = stream.boolean();
    item.barColumnBreak = stream.boolean();
    return item;
}

} // namespace norvane
