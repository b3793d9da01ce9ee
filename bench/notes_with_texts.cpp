#include "notes_with_texts.h"

#include <QDateTime>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>

namespace norvane::bench {

namespace {

constexpr int kWordsOfNote = 150; // about a kilobyte

QStringList makeWords(QRandomGenerator &random, char16_t first, int letters)
{
    QStringList words;
    for (int i = 0; i < 2000; ++i) {
        QString word;
        for (int length = static_cast<int>(random.bounded(2, 11)); length > 0; --length)
            word += QChar(first + random.bounded(letters));
        words.append(word);
    }
    return words;
}

} // namespace

/// By the shell of the database's own program: a note that is saved takes a sync of the disk.
void addNotesWithTexts(const QString &database, int count, const QString &bodies)
{
    QRandomGenerator random(11);
    const QStringList latin = makeWords(random, u'a', 26);
    const QStringList cyrillic = makeWords(random, u'\u0430', 32);
    const QDateTime start(QDate(2004, 1, 1), QTime(8, 0));
    QFile texts(bodies);
    QProcess program;
    program.start(QStringLiteral("sqlite3"), {database});
    if (!program.waitForStarted() || (!bodies.isEmpty() && !texts.open(QIODevice::WriteOnly)))
        qFatal("The notes cannot be made.");
    program.write("begin;\n");
    for (int i = 0; i < count; ++i) {
        const QStringList &words = i % 10 == 9 ? cyrillic : latin;
        QString text = QStringLiteral("This is found everywhere.");
        for (int word = 0; word < kWordsOfNote; ++word)
            text += u' ' + words[random.bounded(words.size())];
        if (i == count / 2)
            text += QStringLiteral(" Needle");
        if (texts.isOpen())
            texts.write(text.toUtf8() + '\n');
        const auto date = [&] {
            return start.addSecs(random.bounded(600'000'000)).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
        };
        program.write(
            QStringLiteral("insert into Memos(FriendlyName,WindowName,URL,Active,Cat_ID,DateCreated,"
                           "LastUpdate,KeyWords,NoteText) values('Note on page %1 of the site','Page %1',"
                           "'https://example.org/pages/%1/index.html',-1,%2,'%3','%4','','%5');\n")
                .arg(QString::number(random.bounded(1'000'000)), QString::number(i % 7), date(), date(), text)
                .toUtf8());
        if (i % 1000 == 0)
            while (program.bytesToWrite() > 0)
                program.waitForBytesWritten();
    }
    program.write("commit;\n");
    program.closeWriteChannel();
    if (!program.waitForFinished(300'000) || program.exitCode() != 0)
        qFatal("The notes could not be made: %s", program.readAllStandardError().constData());
}

} // namespace norvane::bench
