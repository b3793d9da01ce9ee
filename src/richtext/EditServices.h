#pragma once

namespace norvane {

class Clock;
struct EditState;
class FileSystem;
class Printing;
class Prompts;
class Shell;

/// What a rich text editor uses of the program. Everything outlives every editor.
struct EditServices
{
    FileSystem &files;
    Shell &shell;
    Prompts &prompts;
    Printing &printing;
    Clock &clock;
    EditState &state; ///< shared by all editors
};

} // namespace norvane
