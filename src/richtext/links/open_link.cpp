#include "richtext/links/open_link.h"

#include "platform/Prompts.h"
#include "platform/Shell.h"
#include "shell/internal_error.h"

namespace norvane::links {

void openLink(const QString &address, Shell &shell, Prompts &prompts)
{
    const QString scheme = address.left(address.indexOf(u':')).toLower();
    const bool isFile = scheme == u"file";
    if (!isFile && scheme != u"http" && scheme != u"https" && scheme != u"mailto" && scheme != u"ftp")
        return;
    if (isFile && shell.runsProgram(address)) {
        const QString question =
            QStringLiteral("'%1' is a program. Are you sure you want to run it?").arg(address);
        if (!ask(prompts, question, Prompts::kQuestion))
            return;
    }
    shell.open(address);
}

} // namespace norvane::links
