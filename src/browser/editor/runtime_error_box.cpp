#include "browser/editor/runtime_error_box.h"

#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "shell/internal_error.h"

namespace norvane {

void showRuntimeError(Prompts &prompts, const RuntimeError &error)
{
    prompts.messageBox(
        QStringLiteral("Run-time error '%1':\r\n\r\n%2").arg(error.number()).arg(error.description()),
        Prompts::kCritical, kApplicationTitle.toString());
}

} // namespace norvane
