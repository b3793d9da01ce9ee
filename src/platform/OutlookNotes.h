#pragma once

#include <QString>

namespace norvane {

/// The notes of Microsoft Outlook.
class OutlookNotes
{
public:
    virtual ~OutlookNotes();

    /// Makes one and saves it. Raises 429 where there is no Outlook, and what Outlook raises.
    /// @param body plain text
    virtual void save(const QString &body) = 0;
};

} // namespace norvane
