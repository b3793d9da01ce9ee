#include "options/settings/TrackedPrograms.h"

#include "platform/WindowSystem.h"
#include "shell/Forms.h"
#include "shell/tracked_classes.h"
#include "watcher/WatchSettings.h"
#include "watcher/clsClips.h"
#include "windowlist/CTaskList.h"

#include <QCoreApplication>
#include <QMap>
#include <algorithm>

namespace norvane {

QVector<TrackedPrograms::Family> TrackedPrograms::families()
{
    const auto text = [](const char *source) { return QCoreApplication::translate("ProgramsPage", source); };
    return {
        {QStringLiteral("IEFrame"), text("Web browsers")},
        {QStringLiteral("CabinetWClass"), text("File managers")},
        {QStringLiteral("OpusApp"), text("Word processors")},
        {QStringLiteral("XLMAIN"), text("Spreadsheets")},
        {QStringLiteral("WordPadClass"), text("Text editors and document viewers")},
        {QStringLiteral("Outlook Express Browser Class"), text("Mail programs")},
    };
}

QStringList TrackedPrograms::own() const
{
    return ownTrackedClasses(m_parts.settings);
}

QVector<TrackedPrograms::Program> TrackedPrograms::running() const
{
    QMap<QString, Program> byName;
    for (const WindowHandle window : m_parts.tasks.applicationWindows()) {
        const QString className = m_parts.windows.className(window);
        if (className.isEmpty() || m_parts.windows.processId(window) == QCoreApplication::applicationPid())
            continue;
        Program &program = byName[className.toLower()];
        if (program.windows++ == 0) {
            program.className = className;
            program.caption = m_parts.windows.caption(window);
            program.trackedAs = trackedAs(className);
        }
    }
    return byName.values();
}

bool TrackedPrograms::mayAdd(const QString &name) const
{
    const QString entry = name.trimmed();
    return !entry.isEmpty() && !m_parts.watch.TrackedClasses.contains(entry, Qt::CaseInsensitive);
}

void TrackedPrograms::add(const QString &name)
{
    if (!mayAdd(name))
        return;
    addTrackedClass(m_parts.settings, name.trimmed());
    follow();
}

void TrackedPrograms::remove(const QString &name)
{
    removeTrackedClass(m_parts.settings, name);
    follow();
}

QString TrackedPrograms::trackedAs(const QString &className) const
{
    const auto fits = [&](const QString &tracked) {
        return className.contains(tracked, Qt::CaseInsensitive);
    };
    for (const Family &family : families()) {
        if (fits(family.className))
            return family.name;
    }
    const QStringList &tracked = m_parts.watch.TrackedClasses;
    const auto found = std::find_if(tracked.begin(), tracked.end(), fits);
    return found == tracked.end() ? QString() : *found;
}

void TrackedPrograms::follow()
{
    m_parts.watch.TrackedClasses = trackedClasses(m_parts.settings);
    const QVector<WindowHandle> dropped = m_parts.tasks.followTrackedClasses();
    // The watcher looks at windows of the table alone: it would leave these notes where they are.
    for (const clsClip &clip : m_parts.clips.copies()) {
        Form *note = dropped.contains(clip.ParentHwnd) ? m_parts.forms.byHwnd(clip.hWnd) : nullptr;
        if (note)
            note->unload();
    }
}

} // namespace norvane
