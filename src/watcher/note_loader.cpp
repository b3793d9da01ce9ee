#include "watcher/note_loader.h"

#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"
#include "platform/WindowSystem.h"
#include "platform/errors.h"
#include "store/NoteStore.h"
#include "store/note_row.h"
#include "watcher/StickyFactory.h"
#include "watcher/StickyNote.h"
#include "watcher/clsClips.h"
#include "watcher/clsWindows.h"
#include "watcher/note_sound.h"
#include "watcher/placement.h"
#include "watcher/titles.h"
#include "watcher/window_location.h"

namespace norvane {

namespace {

/// Holds back painting of the desktop while a note is being made; lets it go on every way out.
class UpdateLock
{
public:
    explicit UpdateLock(WindowSystem &windows) : m_windows(windows)
    {
        m_windows.lockWindowUpdate(m_windows.desktopWindow());
    }
    ~UpdateLock() { m_windows.lockWindowUpdate(kNoWindow); }
    Q_DISABLE_COPY_MOVE(UpdateLock)

private:
    WindowSystem &m_windows;
};

} // namespace

NoteRow readNoteRow(const dao::Recordset &notes)
{
    const auto field = [&](const QString &name) { return notes.field(name); };
    NoteRow row;
    row.ID = field(QStringLiteral("ID")).toInt();
    row.FriendlyName = field(QStringLiteral("FriendlyName")).toString();
    row.ShowToolbar = field(QStringLiteral("ShowToolbar")).toBool();
    row.TypeEffect = field(QStringLiteral("TypeEffect")).toBool();
    row.FormPosition = static_cast<qint16>(field(QStringLiteral("FormPosition")).toInt());
    row.place = QRectF(field(QStringLiteral("winLeft")).toInt(), field(QStringLiteral("winTop")).toInt(),
                       field(QStringLiteral("winWidth")).toInt(), field(QStringLiteral("winHeight")).toInt());
    row.BackColor = static_cast<quint32>(field(QStringLiteral("BackColor")).toInt());
    row.LastUpdate = field(QStringLiteral("LastUpdate")).toDateTime();
    row.AutoURLDetect = field(QStringLiteral("AutoURLDetect")).toBool();
    row.AutoSave = field(QStringLiteral("AutoSave")).toBool();
    row.PlaySound = field(QStringLiteral("PlaySound")).toBool();
    row.WAVFileName = field(QStringLiteral("WAVFileName")).toString();
    return row;
}

NoteLoader::NoteLoader(const NoteStore &store, WindowSystem &windows, const WindowLocation &location,
                       clsClips &Clips, const FormList &forms, const Clock &clock, Sound &sound,
                       StickyFactory &stickies)
    : m_store(store), m_windows(windows), m_location(location), m_clips(Clips), m_forms(forms),
      m_clock(clock), m_sound(sound), m_stickies(stickies)
{
}

void NoteLoader::load(const NoteRow &row, const clsWindow &target)
{
    StickyNote *note = m_stickies.create();
    try {
        requireLoaded(note);
        if (!m_windows.isWindow(target.hWnd))
            throw RuntimeError(kErrorNothingThere, QStringLiteral("The window of the note has gone."));
        fill(note, row, target);
    } catch (const RuntimeError &) {
        // Unloaded clean: while it was being filled nothing could mark it as changed.
        if (m_forms.contains(note))
            note->unload();
        throw;
    }
}

void NoteLoader::fill(StickyNote *note, const NoteRow &row, const clsWindow &target)
{
    const QString title = trimBlanks(target.WindowTitle);
    StickyFields &fields = note->fields;
    fields.Loading = true;
    fields.ID = row.ID;
    fields.WindowName = title;
    fields.wURL = trimBlanks(target.DocumentName);
    fields.ParentHwnd = target.hWnd;
    fields.FriendlyName = row.FriendlyName;
    note->setParentWindow(target.hWnd);
    requireLoaded(note);

    const UpdateLock lock(m_windows);
    fields.ParentClassName = m_location.GetClassText(target.hWnd);
    note->setTextBackColor(kDefaultNoteColor);
    note->setToolBar(row.ShowToolbar);
    fields.TypeEffect = row.TypeEffect;
    place(*note, row, target.hWnd);
    fields.formposition = row.FormPosition;
    note->setTextBackColor(row.BackColor);
    fields.LastUpdate = row.LastUpdate.isValid() ? row.LastUpdate : m_clock.now();
    m_clips.Add(fields.WindowName, fields.ParentHwnd, fields.ID, note->hWnd(), fields.ParentClassName,
                fields.WindowName, fields.wURL);

    note->setCaption(row.FriendlyName);
    note->clearText();
    const QString body = m_store.bodyFile(row.ID);
    if (m_store.files().exists(body))
        note->loadBody(body);
    requireLoaded(note);
    note->setAutoURLDetect(row.AutoURLDetect);
    fields.AutoSave = row.AutoSave;
    note->resetSaveState();
    note->SetSaveMode(false);

    note->showNote();
    if (row.PlaySound)
        PlayNoteSound(m_sound, row.WAVFileName);
    requireLoaded(note);
    note->nudge();
    fields.Loading = false;
    m_windows.setFocus(target.hWnd);
    m_windows.bringWindowToTop(note->hWnd());
}

void NoteLoader::place(StickyNote &note, const NoteRow &row, WindowHandle target) const
{
    if (row.FormPosition == kStoredPosition) {
        note.moveTwips(row.place);
        return;
    }
    note.moveTwips(QRectF(note.rectTwips().topLeft(), row.place.size()));
    note.movePixels(cornerPlace(row.FormPosition, m_windows.windowRect(target).size(), note.sizePixels()));
}

/// Building, parenting and showing a window may let events run that unload the note.
void NoteLoader::requireLoaded(const StickyNote *note) const
{
    if (!m_forms.contains(note))
        throw RuntimeError(kErrorNothingThere, QStringLiteral("The note was closed while it was opened."));
}

} // namespace norvane
