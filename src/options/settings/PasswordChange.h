#pragma once

#include <QString>

namespace norvane {

class NoteStore;
class Prompts;

/// Gives the open database another password, and tells how that went; an empty one takes the password
/// away. Wrong entries change nothing.
/// @return whether the password is the new one
bool changePassword(NoteStore &store, Prompts &prompts, const QString &current, const QString &wanted,
                    const QString &confirmed);

} // namespace norvane
