#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <functional>

namespace norvane {

/// What a program damages, and how it looks at what becomes of it.
struct Fuzzing
{
    const char *program; ///< its name
    const char *suffix;  ///< of the files in which it keeps what it finds
    /// Sound inputs; @p folders are the program's arguments.
    std::function<QList<QByteArray>(const QStringList &folders)> corpus;
    /// Gives a damaged input at each call. The same seed damages the same way.
    std::function<std::function<QByteArray()>(const QList<QByteArray> &corpus, quint32 seed)> damage;
    /// What is wrong with what becomes of an input; empty if nothing is.
    /// @param thorough  whether to spend more time on it
    std::function<QByteArray(const QByteArray &input, bool thorough)> faultOf;
};

/// The whole of such a program, below its application object:
///   [--inputs N] [--seconds N] [--seed N] [--findings FOLDER] ARGUMENTS...
///       damages inputs, so many of them or so long
///   --try FILE...
///       tries files as they are
/// What has a fault is made as small as it goes and kept, as is what takes too long and what breaks the
/// program. @return the program's exit code
int runFuzzing(const Fuzzing &fuzzing);

} // namespace norvane
