#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace norvane {

/// The folder that a file manager's path entry names: a native path without a separator at the end
/// ("/" itself stands), or an address with another scheme than "file:" as it stands. Nothing for
/// a text that is neither.
/// @param home the home folder, for "~"
std::optional<QString> folderFromEntryText(const QString &text, const QString &home);

/// The folder of an address: of a "file:" address the decoded native path, else the address itself.
QString folderFromUri(const QString &uri);

/// The folder that a file manager's caption spells out ("/usr/share - Thunar"); nothing when the
/// caption holds no full path. Whether the folder exists is not looked at.
std::optional<QString> folderFromCaption(const QString &caption, const QString &home);

/// Whether a file manager showing @p folder could have this caption: it starts with the folder's
/// last name or with its path.
bool captionNamesFolder(const QString &caption, const QString &folder, const QString &home);

/// The folder of the window among those of its tabs.
/// @param uris of all tabs of the window
/// @param last the window's last known folder, preferred among equals
QString folderOfTabs(const QStringList &uris, const QString &caption, const QString &last,
                     const QString &home);

/// The address of a page whose document tells @p uri and whose address bar shows @p shown.
///
/// A script may change a page's address without a new document: then only the address bar knows.
/// It can only do so within the page's own site, so a text that names another site is one that the
/// user is typing, and the document's address stands. The bar leaves out the scheme and "www.".
QString pageAddress(const QString &uri, const QString &shown);

} // namespace norvane
