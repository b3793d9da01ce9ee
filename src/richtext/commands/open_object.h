#pragma once

namespace norvane {

class ExtractedFiles;
class Prompts;
class Shell;
namespace rtf {
struct EmbeddedObject;
}

/// Opens the file that an object of a document carries with its program, a copy of it, after asking;
/// of a file that is a program the question warns. Tells why when it does not open: the object is not
/// a file, is damaged, or there is no program for it. Nothing of another kind is ever started.
void openObject(const rtf::EmbeddedObject &object, Shell &shell, Prompts &prompts, ExtractedFiles &files);

} // namespace norvane
