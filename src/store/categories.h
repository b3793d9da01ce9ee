#pragma once

#include <QString>
#include <QVector>

namespace norvane {

class NoteStore;

struct Category
{
    int ID = 0;
    QString Name;
};

/// The categories by name; empty while no database is open. The current record of the held recordset is
/// another afterwards. Raises what the engine raises.
QVector<Category> readCategories(const NoteStore &store);

} // namespace norvane
