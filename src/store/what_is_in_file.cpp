#include "store/what_is_in_file.h"

#include "platform/FileSystem.h"
#include "platform/errors.h"
#include "store/note_database.h"

namespace norvane {

namespace {

FoundInFile withAdvice(FileContent kind, const QString &text)
{
    return {kind, text + QStringLiteral(" Select another database, or cancel.")};
}

} // namespace

FoundInFile whatIsInFile(dao::Engine &engine, const FileSystem &files, const QString &path)
{
    if (!files.exists(path))
        return withAdvice(
            FileContent::Missing,
            QStringLiteral("There is no note database in this folder, and none could be made there."));
    const std::optional<RuntimeError> fault = openingFault(engine, path, QString());
    if (!fault)
        return {};
    if (fault->number() == kErrorNotAPassword)
        return {FileContent::NeedsPassword, QStringLiteral("The database is protected by a password.")};
    return withAdvice(FileContent::Unusable, fault->description());
}

} // namespace norvane
