#pragma once

#include "platform/linux/SessionFolders.h"

#include <QMap>
#include <QString>
#include <QStringList>

namespace norvane {

/// Which programs the desktop has for types of files and for kinds of addresses, read from the
/// lists that desktops keep. Reads them anew at every question: they are asked rarely, and a
/// program may have been installed meanwhile.
class DesktopAssociations
{
public:
    explicit DesktopAssociations(SessionFolders folders);

    /// Whether an installed program opens files of a MIME type, or of one that it is a kind of.
    bool hasHandlerForType(const QString &mimeType) const;
    /// Whether an installed program opens addresses of a scheme ("http", "mailto").
    bool hasHandlerForScheme(const QString &scheme) const;

    /// The path of a program's desktop entry ("org.example.Editor", with or without ".desktop");
    /// empty when it is not installed.
    QString desktopEntry(const QString &id) const;

private:
    QStringList associationFiles() const;
    bool hasInstalledHandler(const QString &mimeType) const;

    SessionFolders m_folders;
};

} // namespace norvane
