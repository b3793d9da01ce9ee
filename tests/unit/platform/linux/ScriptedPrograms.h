#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace norvane::test {

/// A folder of the test's own with files and, as the whole PATH, programs that write down how they
/// were called.
class ScriptedPrograms
{
protected:
    ScriptedPrograms() : m_path(qgetenv("PATH")) { qputenv("PATH", QFile::encodeName(path(u"bin"_qs))); }
    ~ScriptedPrograms() { qputenv("PATH", m_path); }

    QString path(const QString &name) const { return m_folder.path() + u'/' + name; }
    void makeFile(const QString &name, const QByteArray &text)
    {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path(name)).path()));
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(text), text.size());
    }
    /// @param body lines of the shell behind the one that writes the log
    void makeProgram(const QString &name, const QByteArray &body = {},
                     const QByteArray &interpreter = "/bin/sh")
    {
        makeFile(name, "#!" + interpreter + "\necho \"${0##*/} $*\" >> \"" + path(u"log"_qs).toUtf8() +
                           "\"\n" + body + '\n');
        setMode(name, 0755);
    }
    void setMode(const QString &name, mode_t mode)
    {
        ASSERT_EQ(::chmod(QFile::encodeName(path(name)).constData(), mode), 0);
    }

    /// The calls so far, oldest first; paths in the folder are told from there on.
    QStringList log() const
    {
        QFile file(path(u"log"_qs));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        QString text = QString::fromUtf8(file.readAll());
        return text.remove(m_folder.path() + u'/').split(u'\n', Qt::SkipEmptyParts);
    }
    bool waitForLog(const QStringList &expected)
    {
        return QTest::qWaitFor([&] { return log() == expected; }, 20000);
    }

    QTemporaryDir m_folder;

private:
    QByteArray m_path;
};

} // namespace norvane::test
