#include "exchange/shortcuts/shell_link.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "shell/windows_1252.h"

#include <QtEndian>

namespace norvane {

namespace {

constexpr quint32 kHeaderSize = 76;
constexpr char kClassId[] = "\x01\x14\x02\x00\x00\x00\x00\x00\xC0\x00\x00\x00\x00\x00\x00\x46";
constexpr qsizetype kClassIdSize = 16;

// Places in the header, and bits of its flags.
constexpr qsizetype kFlagsAt = 20;
constexpr qsizetype kIconIndexAt = 56;
constexpr qsizetype kShowCommandAt = 60;
constexpr quint8 kHasIdListAndInfo = 3;
constexpr quint8 kHasWorkingFolder = 16;
constexpr quint8 kHasArguments = 32;
constexpr quint8 kHasIcon = 64;

constexpr qsizetype kLongestText = 255;
constexpr quint32 kFixedDrive = 3;

template <typename Number> void append(QByteArray &bytes, Number number)
{
    char little[sizeof(Number)];
    qToLittleEndian(number, little);
    bytes.append(little, sizeof(Number));
}

char oneByte(int number)
{
    if (number < 0 || number > 255)
        throw RuntimeError(kErrorOverflow,
                           QStringLiteral("A shortcut has no room for the number %1.").arg(number));
    return static_cast<char>(number);
}

void appendText(QByteArray &bytes, const QString &text)
{
    const QByteArray letters = toWindows1252(text);
    if (letters.size() > kLongestText || fromWindows1252(letters) != text)
        throw RuntimeError(kErrorInvalidCall,
                           QStringLiteral("A shortcut cannot hold the text \"%1\".").arg(text));
    append(bytes, static_cast<quint16>(letters.size()));
    bytes.append(letters);
}

QByteArray header(const ShellLink &link)
{
    QByteArray bytes(kHeaderSize, '\0');
    qToLittleEndian(kHeaderSize, bytes.data());
    bytes.replace(sizeof kHeaderSize, kClassIdSize, kClassId, kClassIdSize);
    quint8 flags = kHasIdListAndInfo;
    if (!link.workingFolder.isEmpty())
        flags |= kHasWorkingFolder;
    if (!link.arguments.isEmpty())
        flags |= kHasArguments;
    if (!link.iconPath.isEmpty() || link.iconIndex >= 1)
        flags |= kHasIcon;
    bytes[kFlagsAt] = static_cast<char>(flags);
    bytes[kIconIndexAt] = oneByte(link.iconIndex);
    bytes[kShowCommandAt] = oneByte(link.showCommand);
    return bytes;
}

/// A volume without a name, and the target's path on it in both alphabets.
QByteArray linkInfo(const QString &target)
{
    QByteArray volume;
    append(volume, quint32(17)); // its size
    append(volume, kFixedDrive);
    append(volume, quint32(0));  // serial number
    append(volume, quint32(16)); // where its name stands
    volume.append('\0');

    const QByteArray path = toWindows1252(target) + '\0';
    const QByteArray noSuffix(1, '\0');
    QByteArray unicodePath;
    for (const QChar unit : target + QChar(QChar::Null))
        append(unicodePath, unit.unicode());
    const QByteArray noUnicodeSuffix(2, '\0');

    constexpr quint32 kHeader = 36;
    constexpr quint32 kVolumeAndPath = 1;
    const auto pathAt = kHeader + static_cast<quint32>(volume.size());
    const auto suffixAt = pathAt + static_cast<quint32>(path.size());
    const auto unicodePathAt = suffixAt + static_cast<quint32>(noSuffix.size());
    const auto unicodeSuffixAt = unicodePathAt + static_cast<quint32>(unicodePath.size());
    QByteArray bytes;
    append(bytes, unicodeSuffixAt + static_cast<quint32>(noUnicodeSuffix.size()));
    append(bytes, kHeader);
    append(bytes, kVolumeAndPath);
    append(bytes, kHeader); // where the volume stands
    append(bytes, pathAt);
    append(bytes, quint32(0)); // no network share
    append(bytes, suffixAt);
    append(bytes, unicodePathAt);
    append(bytes, unicodeSuffixAt);
    return bytes + volume + path + noSuffix + unicodePath + noUnicodeSuffix;
}

} // namespace

QByteArray shellLinkBytes(const ShellLink &link)
{
    QByteArray bytes = header(link);
    // A list of items that has none but its end.
    append(bytes, quint16(2));
    append(bytes, quint16(0));
    bytes += linkInfo(link.target);
    if (!link.workingFolder.isEmpty())
        appendText(bytes, link.workingFolder);
    if (!link.arguments.isEmpty())
        appendText(bytes, link.arguments);
    if (!link.iconPath.isEmpty())
        appendText(bytes, link.iconPath);
    else if (link.iconIndex > 0)
        appendText(bytes, link.target);
    append(bytes, quint32(0)); // no blocks behind
    return bytes;
}

} // namespace norvane
