#pragma once

#include <QStringView>

namespace norvane {

/// The wildcard operator over a whole text, case counting: "?" is any one character, "*" any run of
/// them, "#" one digit, "[abc]" and "[a-z]" one of a list, "[!abc]" one that is not in it. An empty
/// list "[]" stands for nothing. Inside a list the other wildcards are themselves.
///
/// Raises 93 when a list does not end.
bool matchesWildcard(QStringView text, QStringView pattern);

} // namespace norvane
