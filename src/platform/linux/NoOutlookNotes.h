#pragma once

#include "platform/OutlookNotes.h"

namespace norvane {

/// Where there is no Outlook.
class NoOutlookNotes : public OutlookNotes
{
public:
    /// Raises 429.
    void save(const QString &body) override;
};

} // namespace norvane
