#include "browser/dialogs/note_properties.h"

#include "browser/dialogs/location_cleaning.h"
#include "platform/RuntimeError.h"
#include "platform/WindowSystem.h"
#include "platform/errors.h"
#include "shell/numeric_prefix.h"
#include "store/NoteStore.h"
#include "watcher/NoteGridView.h"
#include "watcher/StickyNote.h"
#include "watcher/note_forms.h"
#include "watcher/placement.h"

namespace norvane {

namespace {

enum class Extent { OneNote, SeveralNotes };

CheckValue checkValue(const dao::Recordset &row, const QString &column)
{
    return row.field(column).toBool() ? kChecked : kCleared;
}

void writeCheck(dao::Recordset &row, const QString &column, CheckValue value)
{
    row.setField(column, value != kCleared);
}

void writeCheckUnlessGreyed(dao::Recordset &row, const QString &column, CheckValue value)
{
    if (value != kGreyed)
        writeCheck(row, column, value);
}

/// The texts keep their empty value; Null is for rows that nobody has saved.
QString notNull(const QString &text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

void writeProperties(dao::Recordset &row, const NoteProperties &properties, Extent extent)
{
    writeCheckUnlessGreyed(row, QStringLiteral("ACTIVE"), properties.ACTIVE);
    if (extent == Extent::OneNote) {
        row.setField(QStringLiteral("FriendlyName"), notNull(properties.FriendlyName));
        row.setField(QStringLiteral("URL"), notNull(cleanLocation(properties.URL)));
    }
    writeCheckUnlessGreyed(row, QStringLiteral("AutoSave"), properties.AutoSave);
    writeCheckUnlessGreyed(row, QStringLiteral("PlaySound"), properties.PlaySound);
    row.setField(QStringLiteral("BackColor"), static_cast<int>(properties.BackColor));
    writeCheckUnlessGreyed(row, QStringLiteral("ShowToolbar"), properties.ShowToolbar);
    // These two are not left alone where the others are.
    writeCheck(row, QStringLiteral("AutoURLDetect"), properties.AutoURLDetect);
    writeCheck(row, QStringLiteral("TypeEffect"), properties.TypeEffect);
    row.setField(QStringLiteral("WAVFileName"), notNull(properties.WAVFileName));
    if (extent == Extent::OneNote || !properties.keyWords.isEmpty())
        row.setField(QStringLiteral("keyWords"), notNull(properties.keyWords));
    if (properties.CAT_ID != kKeepCategory)
        row.setField(QStringLiteral("CAT_ID"), properties.CAT_ID);
}

int wholeTwips(double twips)
{
    return static_cast<int>(roundHalfEven(twips));
}

/// A note that keeps its place is to keep the one where it stands now.
void writePlace(dao::Recordset &row, const StickyNote &note)
{
    const QRectF place = note.rectTwips();
    row.setField(QStringLiteral("Wintop"), wholeTwips(place.top()));
    row.setField(QStringLiteral("winLeft"), wholeTwips(place.left()));
    row.setField(QStringLiteral("winWidth"), wholeTwips(place.width()));
    row.setField(QStringLiteral("winHeight"), wholeTwips(place.height()));
}

QRectF storedPlace(const dao::Recordset &row)
{
    return {row.field(QStringLiteral("winLeft")).toDouble(), row.field(QStringLiteral("Wintop")).toDouble(),
            row.field(QStringLiteral("winWidth")).toDouble(),
            row.field(QStringLiteral("winHeight")).toDouble()};
}

/// Brings an open note in line with its row.
void showRow(const PropertyTargets &targets, const dao::Recordset &row, StickyNote &note, Extent extent)
{
    if (!row.field(QStringLiteral("ACTIVE")).toBool()) {
        note.unload();
        return;
    }
    const QString name = row.field(QStringLiteral("FriendlyName")).toString();
    note.setTextBackColor(kDefaultNoteColor);
    if (extent == Extent::OneNote)
        note.fields.FriendlyName = name;
    note.fields.AutoSave = row.field(QStringLiteral("AutoSave")).toBool();
    note.fields.TypeEffect = row.field(QStringLiteral("TypeEffect")).toBool();
    note.fields.formposition = static_cast<qint16>(row.field(QStringLiteral("formposition")).toInt());
    if (note.fields.formposition == kStoredPosition) {
        note.moveTwips(storedPlace(row));
    } else {
        note.moveTwips(QRectF(note.rectTwips().topLeft(), storedPlace(row).size()));
        note.movePixels(cornerPlace(note.fields.formposition,
                                    targets.windows.windowRect(note.fields.ParentHwnd).size(),
                                    note.sizePixels()));
    }
    note.setTextBackColor(static_cast<quint32>(row.field(QStringLiteral("BackColor")).toInt()));
    note.setToolBar(row.field(QStringLiteral("ShowToolbar")).toBool());
    if (extent == Extent::OneNote)
        note.setCaption(name);
}

void refreshBrowser(NoteGridView &browser)
{
    browser.Refresh_Grid();
    browser.refreshAround();
}

/// @return false when the row is gone
bool saveRow(const PropertyTargets &targets, int ID, const NoteProperties &properties, Extent extent)
{
    const std::unique_ptr<dao::Recordset> row = openNoteRow(targets.store, ID);
    if (row->eof())
        return false;
    row->edit();
    writeProperties(*row, properties, extent);
    if (const StickyNote *note = noteOf(targets.forms, ID))
        writePlace(*row, *note);
    row->setField(QStringLiteral("formposition"), properties.formposition);
    row->update();
    // Not before the row is safe: where it cannot be written, its window stays as it is.
    if (StickyNote *note = noteOf(targets.forms, ID))
        note->setAutoURLDetect(properties.AutoURLDetect != kCleared);
    targets.store.requeryNoteIndex();
    if (extent == Extent::OneNote)
        refreshBrowser(targets.browser);
    if (StickyNote *note = noteOf(targets.forms, ID))
        showRow(targets, *row, *note, extent);
    return true;
}

} // namespace

StoredProperties readProperties(const NoteStore &store, int ID)
{
    const std::unique_ptr<dao::Recordset> row = openNoteRow(store, ID);
    if (row->eof())
        throw RuntimeError(kErrorNoCurrentRecord, QStringLiteral("This note is no longer in the database."));
    StoredProperties stored;
    NoteProperties &properties = stored.properties;
    properties.FriendlyName = row->field(QStringLiteral("FriendlyName")).toString();
    properties.URL = row->field(QStringLiteral("URL")).toString();
    properties.ACTIVE = checkValue(*row, QStringLiteral("ACTIVE"));
    properties.AutoSave = checkValue(*row, QStringLiteral("AutoSave"));
    properties.PlaySound = checkValue(*row, QStringLiteral("PlaySound"));
    properties.BackColor = static_cast<quint32>(row->field(QStringLiteral("BackColor")).toInt());
    properties.ShowToolbar = checkValue(*row, QStringLiteral("ShowToolbar"));
    properties.AutoURLDetect = checkValue(*row, QStringLiteral("AutoURLDetect"));
    properties.TypeEffect = checkValue(*row, QStringLiteral("TypeEffect"));
    properties.WAVFileName = row->field(QStringLiteral("WAVFileName")).toString();
    properties.keyWords = row->field(QStringLiteral("keyWords")).toString();
    properties.CAT_ID = row->field(QStringLiteral("CAT_ID")).toInt();
    properties.formposition = row->field(QStringLiteral("formposition")).toInt();
    stored.DateCreated = row->field(QStringLiteral("DateCreated")).toDateTime();
    stored.LastUpdate = row->field(QStringLiteral("LastUpdate")).toDateTime();
    return stored;
}

bool saveProperties(const PropertyTargets &targets, int ID, const NoteProperties &properties)
{
    return saveRow(targets, ID, properties, Extent::OneNote);
}

bool saveProperties(const PropertyTargets &targets, const QVector<int> &IDs, const NoteProperties &properties)
{
    for (const int ID : IDs) {
        if (!saveRow(targets, ID, properties, Extent::SeveralNotes))
            return false;
    }
    refreshBrowser(targets.browser);
    return true;
}

} // namespace norvane
