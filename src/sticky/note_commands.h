#pragma once

#include <QString>

namespace norvane {

class frmSticky;
struct StickyServices;

/// Runs the command of an entry of a note's menu; a key without a command does nothing.
///
/// A command may open questions and dialogs. Events run behind them: the note may be gone when they
/// close, and what is left of the command is dropped then. Nothing is raised: a document that cannot
/// be read or written is told to the user, other faults end the step that they happen in.
void runNoteCommand(frmSticky &note, const StickyServices &services, const QString &key);

} // namespace norvane
