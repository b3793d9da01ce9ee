#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace norvane {

/// LibreOffice, with a home of its own, as a converter of files.
class Office
{
public:
    /// Converts files into another format, all in one start of the program.
    /// @param format as its command line has it: "rtf", "txt:Text (encoded):UTF8"
    /// @return what it said when it failed; empty if it did not
    QString convert(const QStringList &files, const QString &format, const QString &folder) const;
    /// The text of a rich text file, as it exports it, with "\n" for line ends; one that has been
    /// converted into that folder.
    static QString exportedText(const QString &folder, const QString &baseName);

private:
    QTemporaryDir m_home;
};

/// The text export writes what a document's text does not have: the marks of lists, a blank line for
/// a page break. It counts pages anew, and leaves signs of the font Symbol by their number; blanks at
/// ends of lines differ. The text without all that, line by line.
QStringList comparableLines(const QString &text);
/// The first line in which two such texts differ; empty if they do not.
QString firstDifference(const QStringList &left, const QStringList &right);

} // namespace norvane
