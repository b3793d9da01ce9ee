#pragma once

#include <QString>
#include <exception>

namespace norvane {

/// A run-time error: what a routine that "arms a handler" catches.
///
/// Errors of libraries and of the system are turned into this type at the edge of their backend,
/// with the number that a message box will show and a description that tells the user what to do.
class RuntimeError : public std::exception
{
public:
    /// @param number      one of errors.h, or the number that the behaviour names
    /// @param description one or more sentences for the user
    /// @param source      the part of the program that raised it; may be empty
    RuntimeError(int number, QString description, QString source = {});

    int number() const noexcept { return m_number; }
    const QString &description() const noexcept { return m_description; }
    const QString &source() const noexcept { return m_source; }
    const char *what() const noexcept override { return m_what.constData(); }

private:
    int m_number;
    QString m_description;
    QString m_source;
    QByteArray m_what; ///< UTF-8 copy of the description for std::exception's users
};

} // namespace norvane
