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

void showRuntimeError(Prompts &prompts, const RuntimeError &error)
{
    prompts.messageBox(
        QStringLiteral("Run-time error '%1':\r\n\r\n%2").arg(error.number()).arg(error.description()),
        Prompts::kCritical, kApplicationTitle.toString());
}

void tell(Prompts &prompts, const QString &text)
{
    tell(prompts, text, Prompts::kExclamation);
}

void tell(Prompts &prompts, const QString &text, int style)
{
    prompts.messageBox(text, style, kApplicationTitle.toString());
}

bool ask(Prompts &prompts, const QString &question, int style)
{
    return prompts.messageBox(question, Prompts::kYesNo | style, kApplicationTitle.toString()) ==
           Prompts::kYes;
}

} // namespace norvane
