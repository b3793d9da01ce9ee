#include "platform/linux/NoOutlookNotes.h"

#include "platform/RuntimeError.h"
#include "platform/errors.h"

namespace norvane {

void NoOutlookNotes::save(const QString &)
{
    throw RuntimeError(kErrorNoAutomation, QStringLiteral("There is no Microsoft Outlook on this desktop."));
}

} // namespace norvane
