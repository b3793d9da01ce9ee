#include "browser/dialogs/tell_error.h"

#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "shell/internal_error.h"

namespace norvane {

void tellError(Prompts &prompts, const RuntimeError &error)
{
    prompts.messageBox(QStringLiteral("%1\n\nError Code: %2").arg(error.description()).arg(error.number()),
                       Prompts::kExclamation, kApplicationTitle.toString());
}

} // namespace norvane
