#pragma once

#include "platform/RuntimeError.h"
#include "platform/Shell.h"

#include <QHash>
#include <QPromise>
#include <QStringList>

namespace norvane::fakes {

/// Opens nothing and keeps what it was asked to open. Type names come from a table of the test's;
/// without an entry by a rule of thumb: an address is a web page, a name without a dot "File", any
/// other "XYZ File".
class FakeShell : public Shell
{
public:
    QStringList opened;
    QHash<QString, int> openResults; ///< kOpened where a location is not in it
    QHash<QString, QString> typeNames;
    QStringList programs;           ///< the locations that open() would run
    QStringList installed;          ///< programs that run() finds by name
    QStringList ran;                ///< what run() has started, "program|argument|argument"
    QHash<QString, int> runResults; ///< of programs; where one is not in it, kOpened for an installed one
    /// By the path of their folder, with " all" behind it where hidden ones are among them.
    QHash<QString, QStringList> names;
    QHash<QString, QFuture<QStringList>> slowNames; ///< of folders that tell when the test does
    bool startsItself = false;                      ///< with the session
    int sessionError = 0;                           ///< what changing that raises
    QHash<SpecialFolder, QString> specialFolders;
    QString folder = QStringLiteral("/home/user/.local/share/norvane");

    int open(const QString &location) override
    {
        opened.append(location);
        return openResults.value(location, kOpened);
    }

    bool runsProgram(const QString &location) const override { return programs.contains(location); }

    bool isAddress(const QString &text) const override
    {
        return text.contains(u"://") || text.startsWith(u"mailto:") || text.startsWith(u"www.");
    }
    int run(const QString &program, const QStringList &arguments) override
    {
        const int result = runResults.value(program, installed.contains(program) ? kOpened : kFileNotFound);
        if (result == kOpened)
            ran.append((QStringList(program) + arguments).join(u'|'));
        return result;
    }
    QStringList programNames() const override { return installed; }
    QFuture<QStringList> namesIn(const QString &of, bool withHidden) const override
    {
        if (slowNames.contains(of))
            return slowNames.value(of);
        QPromise<QStringList> told;
        told.start();
        told.addResult(names.value(withHidden ? of + QStringLiteral(" all") : of));
        told.finish();
        return told.future();
    }

    QString typeName(const QString &path) const override
    {
        if (typeNames.contains(path))
            return typeNames.value(path);
        if (path.contains(u"://"))
            return QStringLiteral("HTML document");
        const qsizetype dot = path.lastIndexOf(u'.');
        if (dot <= path.lastIndexOf(u'/'))
            return QStringLiteral("File");
        return path.mid(dot + 1).toUpper() + QStringLiteral(" File");
    }

    QString typeKey(const QString &path) const override { return path; }

    QStringList iconNames(const QString &path) const override
    {
        return {QStringLiteral("icon-of-") + path.section(u'.', -1).toLower()};
    }

    bool startsWithSession() const override { return startsItself; }
    void setStartsWithSession(bool starts) override
    {
        if (sessionError)
            throw RuntimeError(sessionError, QStringLiteral("The entry cannot be written."));
        startsItself = starts;
    }

    QString specialFolder(SpecialFolder of) const override { return specialFolders.value(of); }

    QString programFolder() const override { return folder; }
};

} // namespace norvane::fakes
