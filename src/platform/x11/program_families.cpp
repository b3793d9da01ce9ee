#include "platform/x11/program_families.h"

#include "platform/x11/window_text.h"

namespace norvane::x11 {

namespace {

constexpr QStringView kBrowser = u"IEFrame";
constexpr QStringView kFolder = u"CabinetWClass";
constexpr QStringView kWordProcessor = u"OpusApp";
constexpr QStringView kSpreadsheet = u"XLMAIN";
constexpr QStringView kDocument = u"WordPadClass";
constexpr QStringView kMail = u"Outlook Express Browser Class";

struct Program
{
    QStringView name; ///< of WM_CLASS, class or instance
    QStringView family;
};

constexpr Program kPrograms[] = {
    {u"firefox", kBrowser},
    {u"firefox-esr", kBrowser},
    {u"firefox-beta", kBrowser},
    {u"firefox-nightly", kBrowser},
    {u"firefox-aurora", kBrowser},
    {u"firefoxdeveloperedition", kBrowser},
    {u"firefox-developer-edition", kBrowser},
    {u"org.mozilla.firefox", kBrowser},
    {u"librewolf", kBrowser},
    {u"waterfox", kBrowser},
    {u"floorp", kBrowser},
    {u"zen", kBrowser},
    {u"zen-browser", kBrowser},
    {u"icecat", kBrowser},
    {u"tor browser", kBrowser},
    {u"mullvad browser", kBrowser},
    {u"palemoon", kBrowser},
    {u"pale moon", kBrowser},
    {u"seamonkey", kBrowser},
    {u"chromium", kBrowser},
    {u"chromium-browser", kBrowser},
    {u"org.chromium.chromium", kBrowser},
    {u"ungoogled-chromium", kBrowser},
    {u"google-chrome", kBrowser},
    {u"google-chrome-beta", kBrowser},
    {u"google-chrome-unstable", kBrowser},
    {u"google-chrome-for-testing", kBrowser},
    {u"com.google.chrome", kBrowser},
    {u"brave-browser", kBrowser},
    {u"brave-browser-beta", kBrowser},
    {u"brave-browser-nightly", kBrowser},
    {u"microsoft-edge", kBrowser},
    {u"microsoft-edge-beta", kBrowser},
    {u"microsoft-edge-dev", kBrowser},
    {u"vivaldi", kBrowser},
    {u"vivaldi-stable", kBrowser},
    {u"vivaldi-snapshot", kBrowser},
    {u"opera", kBrowser},
    {u"opera-beta", kBrowser},
    {u"epiphany", kBrowser},
    {u"epiphany-browser", kBrowser},
    {u"org.gnome.epiphany", kBrowser},
    {u"falkon", kBrowser},
    {u"org.kde.falkon", kBrowser},
    {u"konqueror", kBrowser},
    {u"org.kde.konqueror", kBrowser},
    {u"qutebrowser", kBrowser},
    {u"midori", kBrowser},

    {u"thunar", kFolder},
    {u"pcmanfm", kFolder},
    {u"pcmanfm-qt", kFolder},
    {u"caja", kFolder},
    {u"nautilus", kFolder},
    {u"org.gnome.nautilus", kFolder},
    {u"dolphin", kFolder},
    {u"org.kde.dolphin", kFolder},
    {u"nemo", kFolder},
    {u"spacefm", kFolder},
    {u"io.elementary.files", kFolder},
    {u"dde-file-manager", kFolder},
    {u"krusader", kFolder},
    {u"doublecmd", kFolder},

    {u"libreoffice-writer", kWordProcessor},
    {u"abiword", kWordProcessor},
    {u"calligrawords", kWordProcessor},
    {u"libreoffice-calc", kSpreadsheet},
    {u"gnumeric", kSpreadsheet},
    {u"calligrasheets", kSpreadsheet},

    {u"mousepad", kDocument},
    {u"gedit", kDocument},
    {u"org.gnome.gedit", kDocument},
    {u"gnome-text-editor", kDocument},
    {u"org.gnome.texteditor", kDocument},
    {u"kate", kDocument},
    {u"org.kde.kate", kDocument},
    {u"kwrite", kDocument},
    {u"org.kde.kwrite", kDocument},
    {u"geany", kDocument},
    {u"pluma", kDocument},
    {u"xed", kDocument},
    {u"featherpad", kDocument},
    {u"leafpad", kDocument},
    {u"l3afpad", kDocument},
    {u"gvim", kDocument},
    {u"emacs", kDocument},
    {u"okular", kDocument},
    {u"org.kde.okular", kDocument},
    {u"evince", kDocument},
    {u"org.gnome.evince", kDocument},
    {u"papers", kDocument},
    {u"org.gnome.papers", kDocument},
    {u"atril", kDocument},
    {u"xreader", kDocument},
    {u"zathura", kDocument},
    {u"org.pwmt.zathura", kDocument},
    {u"mupdf", kDocument},
    {u"qpdfview", kDocument},
    {u"xpdf", kDocument},
    {u"libreoffice-impress", kDocument},
    {u"libreoffice-draw", kDocument},

    {u"thunderbird", kMail},
    {u"thunderbird-esr", kMail},
    {u"net.thunderbird.thunderbird", kMail},
    {u"thunderbird-default", kMail},
    {u"evolution", kMail},
    {u"org.gnome.evolution", kMail},
    {u"kmail", kMail},
    {u"org.kde.kmail2", kMail},
    {u"geary", kMail},
    {u"org.gnome.geary", kMail},
    {u"claws-mail", kMail},
    {u"sylpheed", kMail},
    {u"betterbird", kMail},
};

bool isProgram(QStringView text, QStringView name)
{
    if (!text.startsWith(name, Qt::CaseInsensitive)) {
        return false;
    }
    return text.size() == name.size() || text.at(name.size()) == u' ' || text.at(name.size()) == u'(';
}

QStringView familyOf(QStringView text)
{
    for (const Program &program : kPrograms) {
        if (isProgram(text, program.name)) {
            return program.family;
        }
    }
    return {};
}

} // namespace

QString classNameOf(const QString &instance, const QString &wmClass)
{
    QStringView family = familyOf(wmClass);
    if (family.isEmpty()) {
        family = familyOf(instance);
    }
    if (!family.isEmpty()) {
        return family.toString();
    }
    return cutText(wmClass.isEmpty() ? instance : wmClass, kMaxClassName);
}

} // namespace norvane::x11
