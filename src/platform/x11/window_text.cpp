#include "platform/x11/window_text.h"

#include <array>

namespace norvane::x11 {

namespace {

/// What programs put between a document's name and their own.
constexpr std::array<QStringView, 3> kSeparators = {u" - ", u" \u2014 ", u" \u2013 "};

/// Names that programs put at the end of their captions. A longer form stands on its own: the end
/// of a caption is compared as a whole.
constexpr QStringView kProgramNames[] = {
    // Browsers
    u"Mozilla Firefox",
    u"Mozilla Firefox Private Browsing",
    u"Mozilla Firefox (Private Browsing)",
    u"Firefox Developer Edition",
    u"Firefox Nightly",
    u"LibreWolf",
    u"LibreWolf Private Browsing",
    u"Waterfox",
    u"Floorp",
    u"Zen Browser",
    u"GNU IceCat",
    u"Tor Browser",
    u"Mullvad Browser",
    u"Pale Moon",
    u"SeaMonkey",
    u"Chromium",
    u"Chromium (Incognito)",
    u"Google Chrome",
    u"Google Chrome (Incognito)",
    u"Google Chrome Beta",
    u"Google Chrome Dev",
    u"Google Chrome for Testing",
    u"Brave",
    u"Brave (Private)",
    u"Microsoft Edge",
    u"Microsoft\u200b Edge",
    u"Microsoft Edge (InPrivate)",
    u"Microsoft\u200b Edge (InPrivate)",
    u"Vivaldi",
    u"Opera",
    u"Falkon",
    u"Konqueror",
    u"qutebrowser",
    // File managers
    u"Thunar",
    u"Caja",
    u"Dolphin",
    u"File Browser",
    u"File Manager",
    // Editors, viewers, office programs, mail
    u"Mousepad",
    u"gedit",
    u"Text Editor",
    u"Pluma",
    u"Geany",
    u"FeatherPad",
    u"Kate",
    u"KWrite",
    u"Okular",
    u"qpdfview",
    u"LibreOffice Writer",
    u"LibreOffice Calc",
    u"LibreOffice Impress",
    u"LibreOffice Draw",
    u"LibreOffice Math",
    u"LibreOffice Base",
    u"AbiWord",
    u"Gnumeric",
    u"Mozilla Thunderbird",
    u"KMail",
    u"Evolution",
};

constexpr char kEscape = '\x1b';

/// A compound text: Latin-1, in which a segment between ESC % G and ESC % @ is UTF-8. Other escape
/// sequences choose character sets that no program of today writes; they are left out.
QString decodeCompound(const QByteArray &bytes)
{
    QString text;
    qsizetype from = 0;
    while (from < bytes.size()) {
        qsizetype escape = bytes.indexOf(kEscape, from);
        if (escape < 0) {
            escape = bytes.size();
        }
        text += QString::fromLatin1(bytes.mid(from, escape - from));
        from = escape;
        if (bytes.mid(from, 3) == "\x1b%G") {
            from += 3;
            const qsizetype end = bytes.indexOf("\x1b%@", from);
            text += QString::fromUtf8(bytes.mid(from, end < 0 ? -1 : end - from));
            from = end < 0 ? bytes.size() : end + 3;
        } else if (from < bytes.size()) {
            // ESC, intermediate bytes 0x20 to 0x2f, one final byte.
            ++from;
            while (from < bytes.size() && bytes[from] >= 0x20 && bytes[from] <= 0x2f) {
                ++from;
            }
            ++from;
        }
    }
    return text;
}

} // namespace

QString decodeText(const QByteArray &bytes, TextEncoding encoding)
{
    switch (encoding) {
    case TextEncoding::Utf8:
        return QString::fromUtf8(bytes);
    case TextEncoding::Compound:
        return decodeCompound(bytes);
    case TextEncoding::Latin1:
        break;
    }
    return QString::fromLatin1(bytes);
}

QString cutText(const QString &text, int maxLength)
{
    qsizetype length = qMin(text.size(), static_cast<qsizetype>(maxLength));
    const qsizetype nul = text.indexOf(QChar(0));
    if (nul >= 0) {
        length = qMin(length, nul);
    }
    if (length > 0 && length < text.size() && text.at(length - 1).isHighSurrogate()) {
        --length;
    }
    return text.left(length);
}

QString foldedCaption(const QString &caption)
{
    QString text = caption;
    text.replace(u'|', u' ').replace(u'"', u'\'');
    return text.trimmed().toCaseFolded();
}

WmClass splitWmClass(const QByteArray &bytes)
{
    const qsizetype end = bytes.indexOf('\0');
    if (end < 0) {
        return {QString::fromUtf8(bytes), {}};
    }
    const qsizetype end2 = bytes.indexOf('\0', end + 1);
    return {QString::fromUtf8(bytes.left(end)),
            QString::fromUtf8(bytes.mid(end + 1, end2 < 0 ? -1 : end2 - end - 1))};
}

QString withoutProgramSuffix(const QString &title)
{
    for (const QStringView name : kProgramNames) {
        if (!title.endsWith(name)) {
            continue;
        }
        for (const QStringView separator : kSeparators) {
            const QStringView rest = QStringView(title).chopped(name.size());
            if (rest.endsWith(separator) && !rest.chopped(separator.size()).trimmed().isEmpty()) {
                return rest.chopped(separator.size()).toString();
            }
        }
    }
    return title;
}

} // namespace norvane::x11
