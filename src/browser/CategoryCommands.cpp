#include "browser/CategoryCommands.h"

#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
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
    store.checkOpen();
    return *store.CategorySet();
}

} // namespace

bool CategoryCommands::addNew()
{
    const QString name =
        m_prompts.inputBox(text("New Category Name:"), text("Add New Category"), text("New Category"));
    if (name.trimmed().isEmpty())
        return false;
    // A quote in the name ends the condition: no category can be asked for by such a name.
    if (isThere(QStringLiteral("Name=\"") + name + u'"')) {
        tell(m_prompts, text("Category already exist. Please use a different name and try again."));
        return false;
    }
    write(name, true);
    openCategories(m_store).requery();
    return true;
}

bool CategoryCommands::addAll(const QStringList &names)
{
    for (const QString &name : names) {
        if (!isThere(QStringLiteral("Name=\"") + name + u'"'))
            write(name, true);
    }
    if (!names.isEmpty())
        openCategories(m_store).requery();
    return !names.isEmpty();
}

bool CategoryCommands::rename(int ID, const QString &name)
{
    if (isThere(QStringLiteral("Name='") + name + u'\'')) {
        tell(m_prompts, text("Category already exist. Please use a different name and try again."));
        return false;
    }
    if (!isThere(QStringLiteral("ID=") + QString::number(ID)))
        return false;
    write(name, false);
    openCategories(m_store).requery();
    return true;
}

bool CategoryCommands::isThere(const QString &condition)
{
    dao::Recordset &categories = openCategories(m_store);
    categories.findFirst(condition);
    return !categories.noMatch();
}

/// Names a new category, or the current one.
void CategoryCommands::write(const QString &name, bool isNew)
{
    dao::Recordset &categories = openCategories(m_store);
    if (isNew)
        categories.addNew();
    else
        categories.edit();
    try {
        categories.setField(QStringLiteral("Name"), name);
        categories.update();
    } catch (const RuntimeError &) {
        categories.cancelUpdate();
        throw;
    }
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
