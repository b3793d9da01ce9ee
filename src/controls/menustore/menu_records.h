#pragma once

#include <QByteArray>
#include <QString>

class QIODevice;

namespace norvane {

struct MenuItem;

/// Takes values out of a menu stream, all little-endian. What is not there reads as nothing, and
/// isShort() tells. A length that a stream claims allocates no more than the stream has.
class MenuStreamReader
{
public:
    /// Reads from where the file stands to its end; the file must not be sequential.
    explicit MenuStreamReader(QIODevice &file);

    QByteArray bytes(qint64 length);
    qint16 int16();
    qint32 int32();
    bool boolean() { return int16() != 0; }
    /// A text behind a 16-bit length in bytes.
    QString text16();
    /// A text behind a 32-bit length in bytes.
    QString text32();

    qint64 left() const { return m_left; }
    /// True once something was asked for that is not there.
    bool isShort() const { return m_isShort; }

private:
    QIODevice &m_file;
    qint64 m_left;
    bool m_isShort = false;
};

/// No record is shorter: its numbers and the lengths of its texts.
inline constexpr int kSmallestMenuRecord = 82;

void appendInt16(QByteArray &stream, int value);
void appendInt32(QByteArray &stream, qint32 value);
/// A text behind its 32-bit length in bytes.
void appendText32(QByteArray &stream, const QString &text);

/// One item as a stored menu keeps it. Texts are cut at 65535 bytes.
void appendMenuRecord(QByteArray &stream, const MenuItem &item);
/// Ask the reader afterwards whether all was there.
MenuItem readMenuRecord(MenuStreamReader &stream);

} // namespace norvane
