#include "browser/CategoryCommands.h"

#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "platform/errors.h"
#include "shell/internal_error.h"
#include "store/NoteStore.h"

#include <QCoreApplication>

namespace norvane {

namespace {

QString text(const char *source)
{
    return QCoreApplication::translate("frmMain", source);
}

dao::Recordset &openCategories(const NoteStore &store)
{
    if (!store.CategorySet())
        throw RuntimeError(kErrorNothingThere, QStringLiteral("No note database is open."));
    return *store.CategorySet();
}

} // namespace

bool CategoryCommands::addNew()
{
    const QString name =
        m_prompts.inputBox(text("New Category Name:"), text("Add New Category"), text("New Category"));
    if (name.trimmed().isEmpty())
        return false;
    dao::Recordset &categories = openCategories(m_store);
    // A quote in the name ends the condition: no category can be asked for by such a name.
    categories.findFirst(QStringLiteral("Name=\"") + name + u'"');
    if (!categories.noMatch()) {
        tell(m_prompts, text("Category already exist. Please use a different name and try again."));
        return false;
    }
    categories.addNew();
    try {
        categories.setField(QStringLiteral("Name"), name);
        categories.update();
    } catch (const RuntimeError &) {
        categories.cancelUpdate();
        throw;
    }
    categories.requery();
    return true;
}

bool CategoryCommands::remove(int ID)
{
    dao::Recordset &categories = openCategories(m_store);
    const auto notes = m_store.database()->openRecordset(
        QStringLiteral("Select Count(ID) as MCount from Memos where cat_id=") + QString::number(ID));
    const int count = notes->field(QStringLiteral("mcount")).toInt();
    if (count > 0) {
        tell(m_prompts, text("This category can not be removed. It is in use by %1 Note(s).").arg(count));
        return false;
    }
    categories.findFirst(QStringLiteral("ID=") + QString::number(ID));
    if (!categories.noMatch())
        categories.remove();
    categories.requery();
    return true;
}

} // namespace norvane
