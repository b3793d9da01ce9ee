#pragma once

#include "exchange/windows/frmImport.h"
#include "ui/browser/BrowserDesk.h"

namespace norvane::tests {

/// The open database of a desk, and another one that notes are imported from.
class ImportDesk : public BrowserDesk
{
public:
    ImportDesk()
    {
        other.makeDatabase();
        other.store.open();
    }

    /// That many notes in the other database, with a body each: "note 1", "note 2" and on.
    void addOthers(int count)
    {
        other.store.database()->beginTrans();
        for (int i = 1; i <= count; ++i)
            addOther(u"note %1"_s.arg(i), u"https://example.org/%1"_s.arg(i));
        other.store.database()->commitTrans();
    }
    int addOther(const QString &name, const QString &url)
    {
        const int ID = other.addNote(name, url);
        EXPECT_TRUE(putBytes(other.store.bodyFile(ID), "{\\rtf1 " + name.toUtf8() + '}'));
        return ID;
    }
    int addOtherCategory(const QString &name)
    {
        dao::Recordset &categories = *other.store.CategorySet();
        categories.addNew();
        categories.setField(u"Name"_s, name);
        const int ID = categories.field(u"ID"_s).toInt();
        categories.update();
        return ID;
    }
    void setOther(int ID, const QString &column, const QVariant &value)
    {
        const auto row = other.notes(u"ID=%1"_s.arg(ID));
        row->edit();
        row->setField(column, value);
        row->update();
    }

    /// The import window with the notes of the other database, which is closed for it.
    frmImport *makeWindow()
    {
        other.store.close();
        auto *window = new frmImport(services, nullptr);
        window->ImpDB(other.store.DatabaseFile, {});
        return window;
    }

    test::StoreOnDisk other;
};

} // namespace norvane::tests
