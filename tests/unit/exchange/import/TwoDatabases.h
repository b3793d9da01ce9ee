#pragma once

#include "exchange/import/ImportSource.h"
#include "exchange/import/NoteImport.h"
#include "exchange/import/import_report.h"
#include "platform/errors.h"
#include "unit/store/StoreOnDisk.h"

#include <QDir>
#include <QMap>

namespace norvane::test {

/// The open database, and another one in a folder of its own that notes are imported from.
class TwoDatabases : public StoreOnDisk
{
public:
    TwoDatabases()
    {
        makeDatabase();
        store.open();
        other.makeDatabase();
        other.store.open();
    }

    /// A note of the other database. @return its ID there
    int addOther(const QString &name, const QVariant &url, const QByteArray &body = {})
    {
        if (!other.store.database())
            other.store.open();
        const int ID = other.addNote(name, url);
        EXPECT_TRUE(body.isEmpty() || putBytes(other.store.bodyFile(ID), body));
        return ID;
    }
    /// All notes of the other database, which is closed for it.
    QVector<int> otherIDs()
    {
        other.store.close();
        const ImportSource source(*engine, other.store.DatabaseFile, {});
        QVector<int> IDs;
        for (const ImportRow &row : source.rows())
            IDs.append(row.ID);
        return IDs;
    }
    /// Imports them; the other database is closed before.
    ImportResult import(
        const QVector<int> &IDs, std::optional<int> category = {},
        const std::function<bool(int)> &goOn = [](int) { return true; })
    {
        other.store.close();
        const ImportSource source(*engine, other.store.DatabaseFile, otherPassword);
        return NoteImport(store, source.database(), other.store.DatabaseFolder, category).run(IDs, goOn);
    }
    ImportResult importAll() { return import(otherIDs()); }
    /// The values of a column, in the order of the IDs.
    QStringList column(const QString &name)
    {
        QStringList values;
        for (const auto rows = notes(u"true"_s); !rows->eof(); rows->moveNext())
            values.append(rows->field(name).toString());
        return values;
    }

    /// Each file of a folder with what is in it and when it was written last.
    static QMap<QString, QString> everythingIn(const QString &folder)
    {
        QMap<QString, QString> all;
        const auto kinds = QDir::Files | QDir::Dirs | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
        for (const QFileInfo &info : QDir(folder).entryInfoList(kinds))
            all.insert(info.fileName(), info.lastModified().toString(Qt::ISODateWithMs) + u' ' +
                                            QString::fromLatin1(bytesOf(info.filePath()).toHex()));
        return all;
    }

    StoreOnDisk other;
    QString otherPassword;
};

} // namespace norvane::test
