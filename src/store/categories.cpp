#include "store/categories.h"

#include "store/NoteStore.h"

namespace norvane {

QVector<Category> readCategories(const NoteStore &store)
{
    QVector<Category> result;
    dao::Recordset *categories = store.CategorySet();
    if (!categories || categories->recordCount() == 0)
        return result;
    for (categories->moveFirst(); !categories->eof(); categories->moveNext())
        result.append({categories->field(QStringLiteral("ID")).toInt(),
                       categories->field(QStringLiteral("Name")).toString()});
    return result;
}

} // namespace norvane
