#pragma once

namespace norvane {

class Prompts;
class RuntimeError;

/// Shows an error that no routine has handled, with its number and its text.
void showRuntimeError(Prompts &prompts, const RuntimeError &error);

} // namespace norvane
