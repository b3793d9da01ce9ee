#pragma once

#include "store/note_row.h"

#include <QDateTime>
#include <QString>
#include <QVector>

namespace norvane {

class FormList;
class NoteGridView;
class NoteStore;
class WindowSystem;

/// Values of a check box.
enum CheckValue {
    kCleared = 0,
    kChecked = 1,
    kGreyed = 2, ///< several notes: each keeps its own, except where told otherwise
};

inline constexpr int kKeepCategory = -1; ///< in place of a `CAT_ID`: "(Do Not Change)"

// Lengths of the columns, in UTF-16 units.
inline constexpr int kLongestName = 255;
inline constexpr int kLongestKeywords = 255;
inline constexpr int kLongestSoundFile = 50;

/// The settings of a note, or of several at once, as the Properties dialog shows and saves them. What it
/// starts with is what several notes start with.
struct NoteProperties
{
    QString FriendlyName; ///< of one note only
    QString URL;          ///< of one note only; cleaned before it is saved
    CheckValue ACTIVE = kGreyed;
    CheckValue AutoSave = kGreyed;
    CheckValue PlaySound = kGreyed;
    quint32 BackColor = kDefaultNoteColor; ///< blue-green-red
    CheckValue ShowToolbar = kGreyed;
    CheckValue AutoURLDetect = kGreyed; ///< greyed is saved as True
    CheckValue TypeEffect = kGreyed;    ///< greyed is saved as True
    QString WAVFileName;                ///< empty: the default sound
    QString keyWords;                   ///< several notes: empty keeps each note's own
    int CAT_ID = kKeepCategory;
    int formposition = 0; ///< a FormPosition
};

/// What a note's row tells when its properties are opened.
struct StoredProperties
{
    NoteProperties properties;
    QDateTime DateCreated; ///< invalid when the row has none
    QDateTime LastUpdate;  ///< invalid when the row has none
};

/// Raises 3021 when there is no such row, 91 when no database is open, and what the engine raises.
StoredProperties readProperties(const NoteStore &store, int ID);

/// What saving has an effect on.
struct PropertyTargets
{
    NoteStore &store;
    const FormList &forms;
    const WindowSystem &windows;
    NoteGridView &browser;
};

/// Saves what belongs to one note, and shows it in the note's window, if it has one: colours, tool bar,
/// name and place at once; a note that is no longer active is unloaded. An open note that keeps its place
/// is stored where it stands. The browser is brought up to date.
///
/// Raises what the engine raises, with row and window as they were, as long as the row was not written.
/// @return false when the row is gone; nothing has changed then
bool saveProperties(const PropertyTargets &targets, int ID, const NoteProperties &properties);

/// The same for several notes, without names and locations. The first row that is gone, and the first
/// error, ends it: the notes before it stay as they were saved.
/// @return false when a row is gone
bool saveProperties(const PropertyTargets &targets, const QVector<int> &IDs,
                    const NoteProperties &properties);

} // namespace norvane
