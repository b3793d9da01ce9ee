#pragma once

#include <QStringList>

namespace norvane {

class NoteStore;
class Prompts;

/// Adds, renames and removes categories, for the category bar's menu and the Options window. What stands in
/// the way is told; errors of the engine are raised.
class CategoryCommands
{
public:
    /// Both outlive this object.
    CategoryCommands(const NoteStore &store, Prompts &prompts) : m_store(store), m_prompts(prompts) {}

    /// Asks for a name and adds a category of it. @return whether there is a new one
    bool addNew();
    /// Adds those that are not there yet, without a word on the others. @return whether any was asked for
    bool addAll(const QStringList &names);
    /// Gives a category another name, unless one has it: itself, too. @return whether it has it now
    bool rename(int ID, const QString &name);
    /// Removes a category that no note has. @return whether it is gone
    bool remove(int ID);

private:
    bool isThere(const QString &condition);
    void write(const QString &name, bool isNew);

    const NoteStore &m_store;
    Prompts &m_prompts;
};

} // namespace norvane
