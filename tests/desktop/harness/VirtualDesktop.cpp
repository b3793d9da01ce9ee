#include "VirtualDesktop.h"

#include "ForeignWindows.h"
#include "file_bytes.h"

#include <QDir>
#include <QFile>
#include <csignal>

namespace norvane::test {

namespace {

constexpr int kProbes = 20;
constexpr int kProbeMs = 1000;

} // namespace

VirtualDesktop::VirtualDesktop() = default;

VirtualDesktop::~VirtualDesktop()
{
    m_x.reset();
    for (auto process = m_processes.rbegin(); process != m_processes.rend(); ++process)
        end(process->get(), 3000);
}

bool VirtualDesktop::fail(const QString &what)
{
    m_error = what;
    return false;
}

bool VirtualDesktop::start(const Options &options)
{
    const QProcessEnvironment outer = QProcessEnvironment::systemEnvironment();
    const QString paths[][2] = {{QStringLiteral("XDG_CONFIG_HOME"), QStringLiteral("/.config")},
                                {QStringLiteral("XDG_DATA_HOME"), QStringLiteral("/.local/share")},
                                {QStringLiteral("XDG_CACHE_HOME"), QStringLiteral("/.cache")},
                                {QStringLiteral("XDG_RUNTIME_DIR"), QStringLiteral("/run")}};
    for (const QString &name : {QStringLiteral("PATH"), QStringLiteral("LANG"), QStringLiteral("LC_ALL"),
                                QStringLiteral("ASAN_OPTIONS"), QStringLiteral("LSAN_OPTIONS")}) {
        if (outer.contains(name))
            m_environment.insert(name, outer.value(name));
    }
    if (!m_environment.contains(QStringLiteral("LC_ALL")))
        m_environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    // The keys and buttons of the most common desktop; it needs nothing that is not in the toolkit.
    m_environment.insert(QStringLiteral("QT_QPA_PLATFORMTHEME"), QStringLiteral("gnome"));
    m_environment.insert(QStringLiteral("HOME"), home());
    for (const auto &[name, folder] : paths) {
        QDir().mkpath(home() + folder);
        QFile::setPermissions(home() + folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        m_environment.insert(name, home() + folder);
    }
    if (!startServer(options.size) || !startSessionBus() || (options.accessibility && !startAccessibility()))
        return false;
    m_x = std::make_unique<XClient>(m_display);
    if (!options.windowManager)
        return true;
    if (!startWindowManager())
        return fail(QStringLiteral("the window manager did not start"));
    m_x->paintRoot(0x4f6d7a);
    if (options.tray &&
        run(QStringLiteral("trayer"),
            {QStringLiteral("--edge"), QStringLiteral("bottom"), QStringLiteral("--align"),
             QStringLiteral("right"), QStringLiteral("--widthtype"), QStringLiteral("request"),
             QStringLiteral("--height"), QStringLiteral("32")}) == nullptr)
        return fail(QStringLiteral("the tray did not start"));
    return true;
}

bool VirtualDesktop::startServer(const QSize &size)
{
    m_server = run(QStringLiteral("Xvfb"),
                   {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                    QStringLiteral("0"), QStringLiteral("%1x%2x24").arg(size.width()).arg(size.height()),
                    QStringLiteral("-nolisten"), QStringLiteral("tcp")});
    QByteArray number;
    if (m_server == nullptr || !waitFor([&] {
            number += m_server->readAllStandardOutput();
            return number.endsWith('\n');
        }))
        return fail(QStringLiteral("the X server did not start"));
    m_display = QLatin1Char(':') + QString::fromLatin1(number).trimmed();
    m_environment.insert(QStringLiteral("DISPLAY"), m_display);
    return true;
}

bool VirtualDesktop::startSessionBus()
{
    QProcess *bus =
        run(QStringLiteral("dbus-daemon"),
            {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address=1")});
    QByteArray address;
    if (bus == nullptr || !waitFor([&] {
            address += bus->readAllStandardOutput();
            return address.endsWith('\n');
        }))
        return fail(QStringLiteral("the session bus did not start"));
    m_environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QString::fromLatin1(address).trimmed());
    return true;
}

bool VirtualDesktop::startWindowManager()
{
    run(QStringLiteral("openbox"), {QStringLiteral("--sm-disable")});
    if (!waitFor([this] { return m_x->hasWindowManager(); }))
        return false;
    // One that is starting may overlook a window for good: it is ready when it has taken one.
    ForeignWindows probes(m_display);
    for (int attempt = 0; attempt < kProbes; ++attempt) {
        const xcb_window_t probe = probes.open({});
        const auto isTaken = [&] { return m_x->clients().contains(probe); };
        const bool taken = waitFor(isTaken, kProbeMs);
        probes.destroy(probe);
        if (taken)
            return waitFor([&] { return !isTaken(); });
    }
    return false;
}

bool VirtualDesktop::stopAccessibility()
{
    return end(m_accessibility);
}

bool VirtualDesktop::startAccessibility()
{
    m_accessibility =
        run(QStringLiteral("/usr/libexec/at-spi-bus-launcher"), {QStringLiteral("--launch-immediately")});
    if (m_accessibility == nullptr)
        return fail(QStringLiteral("the accessibility bus did not start"));
    const auto switchedOn = [this] {
        QProcess call;
        call.setProcessEnvironment(m_environment);
        call.start(QStringLiteral("dbus-send"),
                   {QStringLiteral("--session"), QStringLiteral("--print-reply"),
                    QStringLiteral("--dest=org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                    QStringLiteral("org.freedesktop.DBus.Properties.Set"),
                    QStringLiteral("string:org.a11y.Status"), QStringLiteral("string:IsEnabled"),
                    QStringLiteral("variant:boolean:true")});
        return call.waitForFinished(5000) && call.exitCode() == 0;
    };
    return waitFor(switchedOn) || fail(QStringLiteral("the accessibility bus did not answer"));
}

QProcess *VirtualDesktop::run(const QString &program, const QStringList &arguments,
                              const QProcessEnvironment &extra)
{
    auto process = std::make_unique<QProcess>();
    QProcessEnvironment environment = m_environment;
    environment.insert(extra);
    process->setProcessEnvironment(environment);
    process->setWorkingDirectory(home());
    process->setStandardErrorFile(home() + QStringLiteral("/stderr.%1").arg(m_processes.size()));
    process->setProperty("errors", home() + QStringLiteral("/stderr.%1").arg(m_processes.size()));
    process->start(program, arguments);
    if (!process->waitForStarted())
        return nullptr;
    m_processes.push_back(std::move(process));
    return m_processes.back().get();
}

bool VirtualDesktop::end(QProcess *process, int timeoutMs)
{
    if (process == nullptr || process->state() == QProcess::NotRunning)
        return true;
    ::kill(static_cast<pid_t>(process->processId()), SIGCONT);
    process->terminate();
    if (process->waitForFinished(timeoutMs))
        return true;
    process->kill();
    process->waitForFinished(timeoutMs);
    return false;
}

QString VirtualDesktop::errorOutput(const QProcess *process) const
{
    return QString::fromUtf8(bytesOf(process->property("errors").toString()));
}

void VirtualDesktop::killDisplay()
{
    m_server->kill();
    m_server->waitForFinished();
}

} // namespace norvane::test
