#include "richtext/rtf/package_object.h"

#include "richtext/rtf/code_pages.h"

#include <QtEndian>

namespace norvane::rtf {
namespace {

constexpr quint32 kVersion = 0x0501;
constexpr quint32 kEmbedded = 2;
constexpr quint32 kNoPresentation = 0;
constexpr quint16 kSignature = 2;
constexpr quint16 kFileInside = 3; ///< another number: only a name of a file

template <typename Number> void append(QByteArray &data, Number value)
{
    const Number little = qToLittleEndian(value);
    data.append(reinterpret_cast<const char *>(&little), sizeof little);
}

/// For readers without Unicode: what Latin 1 lacks is a line.
QByteArray ansi(const QString &text)
{
    QByteArray bytes;
    for (const QChar unit : text) {
        const char16_t code = unit.unicode();
        const bool hasByte = (code >= 0x20 && code < 0x7F) || (code >= 0xA0 && code <= 0xFF);
        if (!unit.isLowSurrogate())
            bytes += hasByte ? char(code) : '_';
    }
    return bytes + '\0';
}

void appendCounted(QByteArray &data, const QByteArray &terminated)
{
    append(data, quint32(terminated.size()));
    data += terminated;
}

void appendUnicode(QByteArray &data, const QString &text)
{
    append(data, quint32(text.size()));
    for (const QChar unit : text)
        append(data, quint16(unit.unicode()));
}

/// Reads forward. Beyond the end it fails, and gives zeros and nothing from then on.
class Bytes
{
public:
    explicit Bytes(QByteArrayView data) : m_rest(data) {}

    bool failed() const { return m_failed; }

    QByteArrayView take(quint32 count)
    {
        if (m_failed || count > quint64(m_rest.size())) {
            m_failed = true;
            return {};
        }
        const QByteArrayView taken = m_rest.first(qsizetype(count));
        m_rest = m_rest.sliced(qsizetype(count));
        return taken;
    }
    template <typename Number> Number number()
    {
        const QByteArrayView taken = take(sizeof(Number));
        return m_failed ? Number(0) : qFromLittleEndian<Number>(taken.data());
    }
    /// Bytes before a NUL, which is taken too.
    QByteArrayView terminated()
    {
        const qsizetype length = m_rest.indexOf('\0');
        if (length < 0) {
            m_failed = true;
            return {};
        }
        return take(quint32(length) + 1).chopped(1);
    }
    QByteArrayView counted() { return take(number<quint32>()); }
    /// Counted in UTF-16 units.
    QString unicode()
    {
        const quint32 length = number<quint32>();
        if (length > quint64(m_rest.size()) / 2)
            m_failed = true;
        const QByteArrayView units = take(m_failed ? 0 : length * 2);
        QString text(units.size() / 2, Qt::Uninitialized);
        for (qsizetype i = 0; i < text.size(); ++i)
            text[i] = QChar(qFromLittleEndian<quint16>(units.data() + i * 2));
        return text;
    }

private:
    QByteArrayView m_rest;
    bool m_failed = false;
};

QString western(QByteArrayView bytes)
{
    QString text;
    CodePages().decode(bytes, kWesternCodePage, text);
    return text;
}

std::optional<PackagedFile> fileOfStream(QByteArrayView stream)
{
    Bytes bytes(stream);
    if (bytes.number<quint16>() != kSignature)
        return std::nullopt;
    PackagedFile file;
    file.label = western(bytes.terminated());
    file.source = western(bytes.terminated());
    bytes.number<quint16>(); // which icon of its file
    if (bytes.number<quint16>() != kFileInside)
        return std::nullopt;
    bytes.number<quint32>(); // length of what follows, which ends itself
    file.command = western(bytes.terminated());
    const QByteArrayView content = bytes.counted();
    if (bytes.failed())
        return std::nullopt;
    file.bytes = content.toByteArray();

    // Newer writers give the names once more, with every letter.
    for (QString *name : {&file.command, &file.label, &file.source}) {
        const QString unicode = bytes.unicode();
        if (!bytes.failed() && !unicode.isEmpty())
            *name = unicode;
    }
    return file;
}

} // namespace

QByteArray packageData(const PackagedFile &file)
{
    QByteArray stream;
    append(stream, kSignature);
    stream += ansi(file.label) + ansi(file.source);
    append(stream, quint16(0));
    append(stream, kFileInside);
    appendCounted(stream, ansi(file.command));
    append(stream, quint32(file.bytes.size()));
    stream += file.bytes;
    for (const QString &name : {file.command, file.label, file.source})
        appendUnicode(stream, name);

    QByteArray data;
    append(data, kVersion);
    append(data, kEmbedded);
    appendCounted(data, ansi(kPackageClass));
    append(data, quint32(0)); // no topic
    append(data, quint32(0)); // no item
    appendCounted(data, stream);
    append(data, kVersion);
    append(data, kNoPresentation);
    return data;
}

std::optional<PackagedFile> packagedFileOf(const QByteArray &data)
{
    Bytes bytes(data);
    bytes.number<quint32>(); // version
    if (bytes.number<quint32>() != kEmbedded)
        return std::nullopt;
    QByteArrayView name = bytes.counted();
    while (name.endsWith('\0'))
        name.chop(1);
    if (western(name).compare(kPackageClass, Qt::CaseInsensitive) != 0)
        return std::nullopt;
    bytes.counted(); // topic
    bytes.counted(); // item
    const QByteArrayView stream = bytes.counted();
    return bytes.failed() ? std::nullopt : fileOfStream(stream);
}

} // namespace norvane::rtf
