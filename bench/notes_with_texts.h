#pragma once

#include <QString>

namespace norvane::bench {

/// Adds notes with a kilobyte of text each to a database that no program has open: Latin words, in every
/// tenth note Cyrillic ones. All of them hold "everywhere", the one in the middle holds "Needle".
/// @param bodies file that gets all texts, a line each; empty: none
void addNotesWithTexts(const QString &database, int count, const QString &bodies = {});

} // namespace norvane::bench
