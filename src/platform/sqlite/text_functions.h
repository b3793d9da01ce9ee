#pragma once

#include <QByteArray>
#include <QString>

struct sqlite3;

namespace norvane::dao {

/// How texts compare: each character folded by Unicode, blanks at the end dropped. Two texts are
/// equal when their keys are; a text comes before another when its key does, byte by byte.
QByteArray textKey(const QString &text);

/// Registers the functions that emitted statements use (nv_...), on texts in UTF-8 with positions
/// and lengths in UTF-16 units. None of them may stand in the schema.
void registerTextFunctions(sqlite3 *handle);

} // namespace norvane::dao
