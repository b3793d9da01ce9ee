#include "exchange/import/identical_note.h"

#include "platform/RuntimeError.h"
#include "platform/dao.h"
#include "platform/errors.h"

#include <QStringList>
#include <optional>

namespace norvane {

namespace {

/// Nothing where it is undecided.
std::optional<bool> areEqual(const QVariant &one, const QVariant &other)
{
    if (!one.isValid() || !other.isValid())
        return std::nullopt;
    return one == other;
}

} // namespace

bool isIdenticalNote(const dao::Recordset &T, const dao::Recordset &S, bool identical)
{
    const QStringList inTarget = T.fieldNames();
    const QStringList inSource = S.fieldNames();
    for (qsizetype i = 1; i < inTarget.size() && !identical; ++i) {
        if (i >= inSource.size())
            throw RuntimeError(kErrorItemNotFound, QStringLiteral("The source has fewer fields."));
        const std::optional<bool> equal = areEqual(T.field(inTarget[i]), S.field(inSource[i]));
        if (!equal)
            throw RuntimeError(kErrorNullUse, QStringLiteral("Invalid use of Null."));
        identical = *equal;
    }
    return identical;
}

} // namespace norvane
