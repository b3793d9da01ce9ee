#include "MainJob.h"
#include "PageServer.h"
#include "file_bytes.h"

#include <QDir>

namespace norvane::test {

namespace {

class BrowserTarget : public Target
{
public:
    using Starter = QProcess *(*)(VirtualDesktop &, const QString &, const QStringList &);

    BrowserTarget(QString name, QString wmClass, Starter starter, QString first)
        : m_name(std::move(name)), m_wmClass(std::move(wmClass)), m_start(starter), m_first(std::move(first))
    {
    }

    QString name() const override { return m_name; }
    QProcess *start(VirtualDesktop &desktop) override
    {
        return m_start(desktop, QStringLiteral("main"), {m_first});
    }
    // The pages listen to the keys 1 and 2: a busy browser loses what is typed into its address bar.
    void show(VirtualDesktop &desktop, int thing) override { desktop.x().press(QString::number(thing)); }
    QString title(int thing) const override
    {
        return thing == 1 ? QStringLiteral("Reading list") : QStringLiteral("Garden plan");
    }
    QString wmClass() const override { return m_wmClass; }

private:
    QString m_name;
    QString m_wmClass;
    Starter m_start;
    QString m_first;
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
        putBytes(desktop.home() + QLatin1Char('/') + title(thing), "A text file.\n");
    }
};

/// Two pages, neither address inside the other. @return the address of the first
QString addTwoPages(PageServer &pages)
{
    const QString keys = QStringLiteral("addEventListener('keydown', event => {"
                                        " if (event.key === '1') location = '/reading';"
                                        " if (event.key === '2') location = '/garden'; });");
    pages.addPage(QStringLiteral("/garden"), QStringLiteral("Garden plan"),
                  QStringLiteral("Beds, seeds and dates."), keys);
    return pages.addPage(QStringLiteral("/reading"), QStringLiteral("Reading list"),
                         QStringLiteral("Books for the autumn, and what to look up in them."), keys);
}

} // namespace

std::unique_ptr<Target> firefoxTarget(PageServer &pages)
{
    return std::make_unique<BrowserTarget>(QStringLiteral("firefox"), QStringLiteral("firefox"),
                                           &startFirefox, addTwoPages(pages));
}

std::unique_ptr<Target> chromiumTarget(PageServer &pages)
{
    return std::make_unique<BrowserTarget>(QStringLiteral("chromium"), QStringLiteral("chromium"),
                                           &startChromium, addTwoPages(pages));
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
