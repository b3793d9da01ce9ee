#pragma once

#include "platform/dao.h"

#include <QDateTime>
#include <QRectF>
#include <QString>

namespace norvane {

class NoteStore;

inline constexpr quint32 kDefaultNoteColor = 0xC0FFFF; ///< blue-green-red: a pale yellow

/// The rows of Memos that satisfy a condition. Raises 91 when no database is open, and what the engine
/// raises.
std::unique_ptr<dao::Recordset> openNoteRows(const NoteStore &store, const QString &condition,
                                             const QString &columns = QStringLiteral("*"),
                                             dao::RecordsetType type = dao::RecordsetType::Dynaset);

/// The row of one note; at its end when it is gone. Raises as openNoteRows().
std::unique_ptr<dao::Recordset> openNoteRow(const NoteStore &store, int ID,
                                            const QString &columns = QStringLiteral("*"),
                                            dao::RecordsetType type = dao::RecordsetType::Dynaset);

/// What a sticky note writes into its row of Memos.
struct NoteRowValues
{
    QDateTime LastUpdate; ///< local, whole seconds
    QRectF place;         ///< twips in the target's client area: `Wintop`, `winLeft`, `winWidth`, `winHeight`
    QString NoteText;     ///< the plain text
};

/// Writes them in one update. Raises 3021 when the row is gone, 91 when no database is open, 6 when
/// the place fits no 32-bit number, and what the engine raises. Requeries nothing.
void SaveNoteRow(const NoteStore &store, int ID, const NoteRowValues &values);

/// Writes the text of a note and when it was changed, and nothing else; a row that is gone stays so.
/// Raises 91 when no database is open, and what the engine raises. Requeries nothing.
/// @param NoteText the plain text
void SaveNoteText(const NoteStore &store, int ID, const QString &NoteText, const QDateTime &LastUpdate);

} // namespace norvane
