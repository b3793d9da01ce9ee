#include "richtext/commands/document_kind.h"

namespace norvane {

QString documentExtension(const QString &path)
{
    const qsizetype dot = path.indexOf(u'.');
    return dot < 0 ? QString() : path.mid(dot + 1, 3).toUpper();
}

} // namespace norvane
