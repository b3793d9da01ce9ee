#pragma once

#include "options/HotKeyRecords.h"
#include "platform/WindowHandle.h"

#include <QVector>

namespace norvane {

/// The program around the Options window: the note browser and what else shows what is set there.
class OptionsHost
{
public:
    virtual ~OptionsHost() = default;

    /// The window that owns the hot keys; kNoWindow while there is no browser.
    virtual WindowHandle hotKeyOwner() const = 0;
    /// Another database is open now, or none.
    virtual void databaseChanged() = 0;
    /// Fills the category bar from the categories as they are now.
    virtual void Refresh_tbCAT() = 0;
    /// Shows or hides the category bar and the list's category caption, and shows all categories.
    virtual void setShowCategoryBar(bool shown) = 0;
    /// The hot keys are registered again, as they are in the records now.
    /// @param refused those that the system does not give
    virtual void hotKeysRegistered(const QVector<HotKeyId> &refused) = 0;
};

} // namespace norvane
