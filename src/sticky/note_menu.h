#pragma once

#include <QString>

namespace norvane {

class PopupMenuModel;

/// Keys of the entries of a note's menu.
namespace note_menu {
inline const QString kNew = QStringLiteral("NEW");
inline const QString kOpen = QStringLiteral("OPEN");
inline const QString kSave = QStringLiteral("SAVE");
inline const QString kDelete = QStringLiteral("DELETE");
inline const QString kPrint = QStringLiteral("PRINT");
inline const QString kMail = QStringLiteral("EMAIL");
inline const QString kImport = QStringLiteral("IMPORT");
inline const QString kImportNote = QStringLiteral("IMPORTNOTE");
inline const QString kImportExport = QStringLiteral("IMPORTEXPORT");
inline const QString kExport = QStringLiteral("EXPORT");
inline const QString kExportOutlook = QStringLiteral("EXPORTOL");
inline const QString kCapture = QStringLiteral("CAPTURE");
inline const QString kCaptureWindow = QStringLiteral("CAPTUREWINDOW");
inline const QString kCaptureDesktop = QStringLiteral("CAPTUREDESKTOP");
inline const QString kProperties = QStringLiteral("PROPERTIES");
inline const QString kClose = QStringLiteral("CLOSE");
} // namespace note_menu

/// Fills a menu with the entries of a note's menu. SAVE is the default item and starts disabled.
/// @param closeKey  the text of the hot key that closes a note: "Ctrl+Alt+D"
void fillNoteMenu(PopupMenuModel &menu, const QString &closeKey);

} // namespace norvane
