#pragma once

#include <QString>

namespace norvane {

class NoteStore;
class Prompts;

/// Asks whether a database that is not there is to be made, and makes it. One that cannot be made is
/// told, with the reason.
/// @return whether it is there now
bool offerNewDatabase(const NoteStore &store, Prompts &prompts, const QString &path);

} // namespace norvane
