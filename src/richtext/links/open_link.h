#pragma once

#include <QString>

namespace norvane {

class Prompts;
class Shell;

namespace links {

/// Opens an address of a document with the desktop's program for it, and says nothing if that
/// fails. Addresses of other kinds than http, https, mailto, ftp and file do not open; before a file
/// that is a program runs, the user is asked.
void openLink(const QString &address, Shell &shell, Prompts &prompts);

} // namespace links
} // namespace norvane
