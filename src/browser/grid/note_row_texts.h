#pragma once

#include <QDateTime>
#include <QHash>
#include <QLocale>
#include <QString>

namespace norvane {

class Shell;

/// A date as a list of notes shows it: the locale's short date, two blanks, its short time. Empty for an
/// invalid date.
class NoteDateTexts
{
public:
    explicit NoteDateTexts(const QLocale &locale) : m_locale(locale) {}
    QString operator()(const QDateTime &date);

private:
    QLocale m_locale;
    // Notes that are listed together share most days and times of day.
    QHash<QDate, QString> m_dates;
    QHash<int, QString> m_times; ///< by minute of the day
};

/// A date as a whole number: the nearest number of days since the end of 1899. 0 for an invalid date.
int wholeNumberOf(const QDateTime &date);

/// What the column "Type" shows of a note.
struct NoteType
{
    QString text;
    int icon = -1;    ///< a NoteIcon; -1 where the shell has the icon
    QString shellKey; ///< the path or extension whose icon the shell has
};

/// Tells the types of notes by their locations, and remembers them: for one reading of a list.
class NoteTypes
{
public:
    explicit NoteTypes(const Shell &shell) : m_shell(shell) {}
    NoteType operator()(const QString &location);

private:
    const Shell &m_shell;
    QHash<QString, QString> m_names; ///< by what the shell goes by
};

} // namespace norvane
