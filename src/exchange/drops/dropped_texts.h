#pragma once

#include <QString>

namespace norvane {

class FileSystem;

/// Whether a text is a location: a file that is there, an address ("://"), or the name of a shared folder
/// ("\\"). Trims @p s.
bool IsLocationText(QString &s, const FileSystem &files);

/// What stands behind the last separator of a native path; empty when it ends in one.
/// @param stripExtension whether the name is cut before its first "."
QString FileNameOf(const QString &path, bool stripExtension);

/// What a note on a dropped file is called: its name without extension, or as much as is needed for not being
/// empty. A "file:" address counts as the path that it stands for.
QString noteNameOf(const QString &file);

} // namespace norvane
