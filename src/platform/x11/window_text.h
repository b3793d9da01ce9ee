#pragma once

#include <QByteArray>
#include <QString>

/// What texts of windows become: pure functions of the bytes that windows carry.
namespace norvane::x11 {

/// The longest caption and class name, in UTF-16 units.
inline constexpr int kMaxCaption = 254;
inline constexpr int kMaxClassName = 49;

/// Enough bytes of UTF-8 to hold any caption of kMaxCaption units, in units of four bytes.
inline constexpr quint32 kCaptionLongs = 256;

enum class TextEncoding { Utf8, Latin1, Compound };

/// The text of a name property, as it stands.
QString decodeText(const QByteArray &bytes, TextEncoding encoding);

/// A text cut at its first NUL and at @p maxLength units, without half a surrogate pair at the end.
QString cutText(const QString &text, int maxLength);

/// A caption as two captions are compared: trimmed, "|" a blank, double quotes single ones, without
/// regard to case.
QString foldedCaption(const QString &caption);

/// The two texts of WM_CLASS.
struct WmClass
{
    QString instance;
    QString className;
};
WmClass splitWmClass(const QByteArray &bytes);

/// A caption without the name of its program at the end; the text itself if nothing would be left.
QString withoutProgramSuffix(const QString &title);

} // namespace norvane::x11
