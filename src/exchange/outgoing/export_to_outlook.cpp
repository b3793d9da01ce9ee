#include "exchange/outgoing/export_to_outlook.h"

#include "platform/OutlookNotes.h"
#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "shell/internal_error.h"

namespace norvane {

void ExportToOutlook(OutlookNotes &outlook, Prompts &prompts, const QString &text)
{
    if (text.isEmpty()) {
        tell(prompts, QStringLiteral("There is nothing to export."));
        return;
    }
    try {
        outlook.save(text);
    } catch (const RuntimeError &) {
        // The words, too, are as they always were.
        tell(prompts, QStringLiteral("It seems you don't have Micosoft Outlook installed on this machine."),
             Prompts::kCritical);
        return;
    }
    tell(prompts, QStringLiteral("Successfully exported to Microsoft Outlook"), Prompts::kInformation);
}

} // namespace norvane
