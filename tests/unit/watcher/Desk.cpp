#include "Desk.h"

#include "platform/sqlite/SqliteEngine.h"
#include "store/note_schema.h"

namespace norvane::tests {

Desk::Desk(StickyFactory *factory)
    : engine(dao::makeSqliteEngine()), store(*engine, files),
      location(windows, shellWindows, processes, settings), tasks(windows, shellWindows, location),
      stickies(forms, Clips), parts{store,        settings, windows,
                                    shellWindows, location, tasks,
                                    LiveWindows,  Clips,    forms,
                                    timer,        events,   shell,
                                    clock,        sound,    factory ? *factory : stickies},
      cycle(parts)
{
    settings.IEAvailable = true;
    settings.TrackedClasses = {QStringLiteral("IEFrame"), QStringLiteral("CabinetWClass"),
                               QStringLiteral("WordPadClass")};
    store.DatabaseFolder = folder.path() + u'/';
    store.DatabaseFile = store.DatabaseFolder + QStringLiteral("Norvane.DAT");
    files.addFolder(store.DatabaseFolder);
    if (!CreateNoteDatabase(*engine, files, store.DatabaseFile))
        qFatal("The test's database could not be made");
    store.open();
    timer.setEnabled(true);
    timer.setInterval(settings.WatchInterval);
    timer.intervals.clear();
}

Desk::~Desk() = default;

WindowHandle Desk::openPage(const QString &title, const QString &url)
{
    const WindowHandle window = windows.open(QStringLiteral("IEFrame"), title);
    shellWindows.setLocation(window, url);
    return window;
}

void Desk::goTo(WindowHandle window, const QString &title, const QString &url)
{
    windows.setCaption(window, title);
    shellWindows.setLocation(window, url);
}

WindowHandle Desk::openFolder(const QString &title, const QString &path)
{
    const WindowHandle window = windows.open(QStringLiteral("CabinetWClass"), title);
    shellWindows.setLocation(window, path);
    return window;
}

WindowHandle Desk::openDocument(const QString &title, const QString &program)
{
    const qint64 process = processes.programs.size() + 1;
    processes.programs.insert(process, program);
    shell.typeNames.insert(program, QStringLiteral("Application"));
    return windows.open(QStringLiteral("WordPadClass"), title, process);
}

int Desk::addNote(const QString &title, const QString &url, const QMap<QString, QVariant> &values)
{
    QMap<QString, QVariant> row = {
        {QStringLiteral("WindowName"), title},   {QStringLiteral("LocationName"), title},
        {QStringLiteral("FriendlyName"), title}, {QStringLiteral("URL"), url},
        {QStringLiteral("Active"), true},        {QStringLiteral("CAT_ID"), 0},
    };
    row.insert(values);
    const auto notes = store.database()->openRecordset(QStringLiteral("select * from Memos"));
    notes->addNew();
    for (auto field = row.begin(); field != row.end(); ++field)
        notes->setField(field.key(), field.value());
    notes->update();
    store.requeryNoteIndex();
    store.requeryNoteSet();
    const auto last = store.database()->openRecordset(QStringLiteral("select ID from Memos order by ID"));
    last->moveLast();
    return last->field(QStringLiteral("ID")).toInt();
}

QVariant Desk::noteField(int id, const QString &column) const
{
    const auto row = store.database()->openRecordset(QStringLiteral("select * from Memos where ID=") +
                                                     QString::number(id));
    return row->field(column);
}

int Desk::noteCount() const
{
    const auto count = store.database()->openRecordset(QStringLiteral("select count(*) as n from Memos"),
                                                       dao::RecordsetType::ForwardOnly);
    return count->field(QStringLiteral("n")).toInt();
}

void Desk::tick(int times)
{
    for (int i = 0; i < times; ++i)
        timer.fire();
}

std::vector<int> Desk::openNotes() const
{
    std::vector<int> ids;
    for (const fakes::FakeStickyNote *note : stickies.open())
        ids.push_back(note->fields.ID);
    return ids;
}

fakes::FakeStickyNote *Desk::note(int id) const
{
    for (fakes::FakeStickyNote *note : stickies.open()) {
        if (note->fields.ID == id)
            return note;
    }
    return nullptr;
}

} // namespace norvane::tests
