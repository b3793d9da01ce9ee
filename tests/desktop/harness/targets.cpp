#include "MainJob.h"

#include <QDir>
#include <QFile>

namespace norvane::test {

namespace {

class BrowserTarget : public Target
{
public:
    using Starter = QProcess *(*)(VirtualDesktop &, const QString &, const QStringList &);

    BrowserTarget(QString name, QString wmClass, Starter starter, QString first, QString second)
        : m_name(std::move(name)), m_wmClass(std::move(wmClass)),
          m_start(starter), m_addresses{std::move(first), std::move(second)}
    {
    }

    QString name() const override { return m_name; }
    QProcess *start(VirtualDesktop &desktop) override
    {
        return m_start(desktop, QStringLiteral("main"), {m_addresses[0]});
    }
    void show(VirtualDesktop &desktop, int thing) override { browseTo(desktop, m_addresses[thing - 1]); }
    QString title(int thing) const override
    {
        return thing == 1 ? QStringLiteral("Reading list") : QStringLiteral("Garden plan");
    }
    QString wmClass() const override { return m_wmClass; }

private:
    QString m_name;
    QString m_wmClass;
    Starter m_start;
    QString m_addresses[2];
};

class FolderTarget : public Target
{
public:
    explicit FolderTarget(QString program) : m_program(std::move(program)) {}

    QString name() const override { return m_program; }
    QProcess *start(VirtualDesktop &desktop) override
    {
        for (int thing : {1, 2})
            QDir().mkpath(folder(desktop, thing));
        return desktop.run(m_program, {folder(desktop, 1)});
    }
    void show(VirtualDesktop &desktop, int thing) override { browseTo(desktop, folder(desktop, thing)); }
    QString title(int thing) const override
    {
        return thing == 1 ? QStringLiteral("letters") : QStringLiteral("pictures");
    }
    QString wmClass() const override { return m_program; }

private:
    QString folder(const VirtualDesktop &desktop, int thing) const
    {
        return desktop.home() + QLatin1Char('/') + title(thing);
    }

    QString m_program;
};

class MousepadTarget : public Target
{
public:
    QString name() const override { return QStringLiteral("mousepad"); }
    QProcess *start(VirtualDesktop &desktop) override
    {
        write(desktop, 1);
        write(desktop, 2);
        return desktop.run(QStringLiteral("mousepad"), {QStringLiteral("--disable-server"),
                                                        desktop.home() + QLatin1Char('/') + title(1)});
    }
    void show(VirtualDesktop &desktop, int thing) override
    {
        desktop.run(QStringLiteral("mousepad"), {desktop.home() + QLatin1Char('/') + title(thing)});
    }
    QString title(int thing) const override
    {
        return thing == 1 ? QStringLiteral("one.txt") : QStringLiteral("two.txt");
    }
    QString wmClass() const override { return QStringLiteral("mousepad"); }
    bool noteFollowsThing() const override { return false; }

private:
    void write(const VirtualDesktop &desktop, int thing) const
    {
        QFile file(desktop.home() + QLatin1Char('/') + title(thing));
        if (file.open(QIODevice::WriteOnly))
            file.write("A text file.\n");
    }
};

} // namespace

std::unique_ptr<Target> firefoxTarget(const QString &first, const QString &second)
{
    return std::make_unique<BrowserTarget>(QStringLiteral("firefox"), QStringLiteral("firefox"),
                                           &startFirefox, first, second);
}

std::unique_ptr<Target> chromiumTarget(const QString &first, const QString &second)
{
    return std::make_unique<BrowserTarget>(QStringLiteral("chromium"), QStringLiteral("chromium"),
                                           &startChromium, first, second);
}

std::unique_ptr<Target> folderTarget(const QString &program)
{
    return std::make_unique<FolderTarget>(program);
}

std::unique_ptr<Target> mousepadTarget()
{
    return std::make_unique<MousepadTarget>();
}

} // namespace norvane::test
