#include "Programs.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace norvane::test {

namespace {

bool writeFile(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/// @return the folder of the profile; empty when it cannot be written
QString makeFirefoxProfile(const VirtualDesktop &desktop, const QString &profile)
{
    const QString folder = desktop.home() + QStringLiteral("/firefox-") + profile;
    const bool isMade =
        writeFile(folder + QStringLiteral("/user.js"),
                  "user_pref('browser.aboutwelcome.enabled', false);\n"
                  "user_pref('browser.startup.homepage_override.mstone', 'ignore');\n"
                  "user_pref('browser.shell.checkDefaultBrowser', false);\n"
                  "user_pref('browser.sessionstore.resume_from_crash', false);\n"
                  "user_pref('browser.tabs.warnOnClose', false);\n"
                  "user_pref('browser.translations.enable', false);\n"
                  "user_pref('browser.uitour.enabled', false);\n"
                  "user_pref('browser.urlbar.suggest.searches', false);\n"
                  "user_pref('datareporting.policy.dataSubmissionEnabled', false);\n"
                  "user_pref('datareporting.policy.dataSubmissionPolicyBypassNotification', true);\n"
                  "user_pref('termsofuse.bypassNotification', true);\n"
                  "user_pref('toolkit.telemetry.reportingpolicy.firstRun', false);\n"
                  "user_pref('trailhead.firstrun.didSeeAboutWelcome', true);\n"
                  "user_pref('app.update.enabled', false);\n"
                  "user_pref('network.captive-portal-service.enabled', false);\n"
                  "user_pref('network.connectivity-service.enabled', false);\n");
    return isMade ? folder : QString();
}

} // namespace

bool makeFirefoxTheBrowser(const VirtualDesktop &desktop, const QString &profile)
{
    const QString folder = makeFirefoxProfile(desktop, profile);
    const QByteArray entry =
        "[Desktop Entry]\nType=Application\nName=Reader\nMimeType=x-scheme-handler/http;\n"
        "Exec=firefox-esr --no-remote --new-instance --profile " +
        folder.toLocal8Bit() + " %u\n";
    return !folder.isEmpty() &&
           writeFile(desktop.home() + QStringLiteral("/.local/share/applications/reader.desktop"), entry) &&
           writeFile(desktop.home() + QStringLiteral("/.config/mimeapps.list"),
                     "[Default Applications]\nx-scheme-handler/http=reader.desktop\n");
}

QProcess *startFirefox(VirtualDesktop &desktop, const QString &profile, const QStringList &addresses)
{
    const QString folder = makeFirefoxProfile(desktop, profile);
    if (folder.isEmpty())
        return nullptr;
    QProcessEnvironment extra;
    extra.insert(QStringLiteral("MOZ_CRASHREPORTER_DISABLE"), QStringLiteral("1"));
    return desktop.run(QStringLiteral("firefox-esr"),
                       QStringList{QStringLiteral("--no-remote"), QStringLiteral("--new-instance"),
                                   QStringLiteral("--profile"), folder} +
                           addresses,
                       extra);
}

QProcess *startChromium(VirtualDesktop &desktop, const QString &profile, const QStringList &addresses)
{
    const QString folder = desktop.home() + QStringLiteral("/chromium-") + profile;
    return desktop.run(
        QStringLiteral("chromium"),
        QStringList{QStringLiteral("--no-sandbox"), QStringLiteral("--disable-gpu"),
                    QStringLiteral("--disable-quic"), QStringLiteral("--no-first-run"),
                    QStringLiteral("--disable-background-networking"),
                    QStringLiteral("--disable-component-update"), QStringLiteral("--disable-sync"),
                    QStringLiteral("--disable-dev-shm-usage"), QStringLiteral("--password-store=basic"),
                    QStringLiteral("--hide-crash-restore-bubble"), QStringLiteral("--test-type"),
                    QStringLiteral("--user-data-dir=") + folder} +
            addresses);
}

void browseTo(VirtualDesktop &desktop, const QString &address)
{
    desktop.x().press(QStringLiteral("ctrl+l"));
    desktop.x().type(address + QLatin1Char('\n'));
}

} // namespace norvane::test
