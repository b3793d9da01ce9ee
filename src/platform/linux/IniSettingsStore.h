#pragma once

#include "platform/SettingsStore.h"

#include <QByteArrayList>
#include <QMap>
#include <QTimer>
#include <optional>

namespace norvane {

class FileSystem;

/// Settings in a text file that a person can read and edit: "[section]", "key=value", lines of
/// comment with "#" or ";". UTF-8; a backslash escapes line ends, blanks at the ends and other
/// characters that would not survive.
///
/// Saved values are written together a moment later, since windows save several at every resize.
/// The file may change under us at any time: it is read again when it has, and lines that we do
/// not know stay as they are.
class IniSettingsStore : public SettingsStore
{
public:
    /// @p files must outlive the store. The file's folder is made with the first write.
    IniSettingsStore(QString file, FileSystem &files);
    /// Writes what is still to be written.
    ~IniSettingsStore() override;

    QString get(const QString &section, const QString &key, const QString &defaultValue) const override;
    void save(const QString &section, const QString &key, const QString &value) override;
    QStringList list(const QString &section) const override;

    /// Writes what is still to be written, at once.
    void flush();

private:
    using Values = QMap<QString, QMap<QString, QString>>; ///< section, key, value

    /// What tells one state of the file from another.
    struct FileState
    {
        quint64 device = 0;
        quint64 inode = 0;
        qint64 size = -1; ///< -1: no file
        qint64 seconds = 0;
        qint64 nanoseconds = 0;

        bool operator==(const FileState &) const = default;
    };

    FileState currentState() const;
    void readIfChanged() const;
    QByteArrayList linesWith(const Values &changes) const;

    QString m_file;
    FileSystem &m_files;
    QTimer m_flushTimer;
    Values m_pending; ///< saved and not yet written; they hold against the file

    // What the file said when it was read last.
    mutable std::optional<FileState> m_readState;
    mutable bool m_readable = true;
    mutable QByteArrayList m_lines;
    mutable Values m_values;
};

} // namespace norvane
