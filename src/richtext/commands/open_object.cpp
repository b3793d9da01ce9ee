#include "richtext/commands/open_object.h"

#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "platform/Shell.h"
#include "richtext/commands/ExtractedFiles.h"
#include "richtext/rtf/operations.h"
#include "richtext/rtf/package_object.h"
#include "shell/internal_error.h"

namespace norvane {
namespace {

/// Whether the user wants it opened.
bool askToOpen(Prompts &prompts, const QString &name, bool isProgram)
{
    const QString warning = QStringLiteral(
        "'%1' is a program, or a file that runs one.\n\nA program that came with a document can damage or "
        "steal your files. Open it only if you trust whoever gave you the document.\n\nAre you sure you "
        "want to open it?");
    const QString question = QStringLiteral(
        "Do you want to open '%1' with its program?\n\nIt opens as a copy: changes to it are not kept here.");
    const int icon = isProgram ? Prompts::kExclamation : Prompts::kQuestion;
    return ask(prompts, (isProgram ? warning : question).arg(name), icon);
}

QString nameOf(const rtf::PackagedFile &file)
{
    for (const QString &name : {file.source, file.command, file.label}) {
        if (!name.isEmpty())
            return name;
    }
    return {};
}

} // namespace

void openObject(const rtf::EmbeddedObject &object, Shell &shell, Prompts &prompts, ExtractedFiles &files)
{
    const std::optional<rtf::PackagedFile> file = rtf::packagedFileOf(object.data);
    if (!file) {
        const bool isPackage = object.className.compare(rtf::kPackageClass, Qt::CaseInsensitive) == 0;
        tell(prompts, isPackage ? QStringLiteral("The file in this object is damaged, or is not in the "
                                                 "document at all. It cannot be opened.")
                                : QStringLiteral("There is no program here that opens objects of the kind "
                                                 "'%1'.\n\nThe object stays in the document as it is.")
                                      .arg(object.className));
        return;
    }
    try {
        const QString path = files.add(nameOf(*file), file->bytes);
        const QString name = safeFileName(path);
        if (!askToOpen(prompts, name, shell.runsProgram(path))) {
            files.remove(path);
            return;
        }
        const int result = shell.open(path);
        if (result > Shell::kShellLastError)
            return;
        files.remove(path);
        tell(prompts, result == Shell::kNoAssociation
                          ? QStringLiteral("There is no program here that opens '%1'.").arg(name)
                          : QStringLiteral("'%1' could not be opened.").arg(name));
    } catch (const RuntimeError &error) {
        tell(prompts, error.description());
    }
}

} // namespace norvane
