#pragma once

#include <QString>

namespace norvane {

struct BrowserServices;
class NoteGrid;

/// Runs the command of an entry of a list's menu; a key without a command does nothing, and so does a
/// command on a row where there is none. A fault ends it without a word; what was done so far stands.
///
/// A command may open questions and dialogs and lets events run: the rows that it works on are those of
/// its beginning, and when the list is gone the rest of it that shows there is dropped.
void runGridCommand(NoteGrid &list, const BrowserServices &services, const QString &key);

} // namespace norvane
