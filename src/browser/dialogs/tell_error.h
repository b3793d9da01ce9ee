#pragma once

namespace norvane {

class Prompts;
class RuntimeError;

/// Tells a run-time error that ended a command, with its text and number, and goes on.
void tellError(Prompts &prompts, const RuntimeError &error);

} // namespace norvane
