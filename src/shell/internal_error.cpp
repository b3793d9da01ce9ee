#include "shell/internal_error.h"

#include "platform/Prompts.h"
#include "platform/RuntimeError.h"

#include <QStringList>

namespace norvane {

QString internalErrorText(const QString &what, const RuntimeError &error)
{
    const QStringList lines = {
        what,
        QStringLiteral("Error Code: ") + QString::number(error.number()),
        QStringLiteral("Error Description: ") + error.description(),
    };
    return lines.join(QStringLiteral("\r\n"));
}

void showInternalError(Prompts &prompts, const QString &what, const RuntimeError &error)
{
    prompts.messageBox(internalErrorText(what, error), Prompts::kCritical,
                       QStringLiteral("Norvane Internal Error"));
}

} // namespace norvane
