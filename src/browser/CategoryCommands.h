#pragma once

#include <QString>

namespace norvane {

class NoteStore;
class Prompts;

/// Adds and removes categories as the category bar's menu asks for it. What stands in the way is told;
/// errors of the engine are raised.
class CategoryCommands
{
public:
    /// Both outlive this object.
    CategoryCommands(const NoteStore &store, Prompts &prompts) : m_store(store), m_prompts(prompts) {}

    /// Asks for a name and adds a category of it. @return whether there is a new one
    bool addNew();
    /// Removes a category that no note has. @return whether it is gone
    bool remove(int ID);

private:
    const NoteStore &m_store;
    Prompts &m_prompts;
};

} // namespace norvane
