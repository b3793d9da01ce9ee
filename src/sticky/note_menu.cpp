#include "sticky/note_menu.h"

#include "controls/menu/PopupMenuModel.h"
#include "controls/menuview/menu_images.h"

#include <QCoreApplication>

namespace norvane {

namespace {

constexpr int kNoImage = -1;

struct Entry
{
    const char *caption;
    const char *key = "";
    int level = 1;
    int image = kNoImage;
};

constexpr Entry kEntries[] = {
    {QT_TRANSLATE_NOOP("frmSticky", "&New"), "NEW", 1, kImageNew},
    {QT_TRANSLATE_NOOP("frmSticky", "&Open"), "OPEN", 1, kImageOpen},
    {QT_TRANSLATE_NOOP("frmSticky", "&Save"), "SAVE", 1, kImageSave},
    {QT_TRANSLATE_NOOP("frmSticky", "Delete Note"), "DELETE", 1, kImageDelete},
    {"-"},
    {QT_TRANSLATE_NOOP("frmSticky", "&Print"), "PRINT", 1, kImagePrint},
    {"-"},
    {QT_TRANSLATE_NOOP("frmSticky", "E&mail"), "EMAIL", 1, kImageMail},
    {QT_TRANSLATE_NOOP("frmSticky", "&Import/Export"), "IMPORTEXPORT", 1, kImageImportExport},
    {QT_TRANSLATE_NOOP("frmSticky", "&Import Document File..."), "IMPORT", 2, kImageImport},
    {QT_TRANSLATE_NOOP("frmSticky", "Import Norvane &Notes..."), "IMPORTNOTE", 2, kImageImportNotes},
    {"-", "", 2},
    {QT_TRANSLATE_NOOP("frmSticky", "&Export Document File..."), "EXPORT", 2, kImageExport},
    {"-", "", 2},
    {QT_TRANSLATE_NOOP("frmSticky", "Export to Microsoft &Outlook Notes"), "EXPORTOL", 2, kImageOrganizer},
    {QT_TRANSLATE_NOOP("frmSticky", "&Capture Screen"), "CAPTURE", 1, kImageCapture},
    {QT_TRANSLATE_NOOP("frmSticky", "Capture &Window"), "CAPTUREWINDOW", 2, kImageCaptureWindow},
    {"-", "", 2},
    {QT_TRANSLATE_NOOP("frmSticky", "Capture &Desktop"), "CAPTUREDESKTOP", 2, kImageCaptureDesktop},
    {"-"},
    {QT_TRANSLATE_NOOP("frmSticky", "P&roperties..."), "PROPERTIES", 1, kImageProperties},
    {"-"},
    {QT_TRANSLATE_NOOP("frmSticky", "Close"), "CLOSE", 1, kImageClose},
};

} // namespace

void fillNoteMenu(PopupMenuModel &menu, const QString &closeKey)
{
    int parent = 0; // of entries of the second level: the last one of the first
    for (const Entry &entry : kEntries) {
        const QString key = QString::fromLatin1(entry.key);
        QString caption = QCoreApplication::translate("frmSticky", entry.caption);
        if (key == note_menu::kClose)
            caption += u'\t' + closeKey;
        const int index = menu.AddItem(caption, {}, 0, entry.level == 1 ? 0 : parent, entry.image, false,
                                       key != note_menu::kSave, key);
        if (entry.level == 1)
            parent = index;
        if (key == note_menu::kSave)
            menu.setDefault(index, true);
    }
}

} // namespace norvane
