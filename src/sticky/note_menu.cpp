#include "sticky/note_menu.h"

#include "controls/menu/PopupMenuModel.h"
#include "controls/menuview/menu_images.h"

#include <QCoreApplication>

namespace norvane {

namespace {

constexpr int kNoImage = -1;

struct Entry
{
    int level;
    const char *caption;
    const char *key = "";
    int image = kNoImage;
};

constexpr Entry kEntries[] = {
    {1, QT_TRANSLATE_NOOP("frmSticky", "&New"), "NEW", kImageNew},
    {1, QT_TRANSLATE_NOOP("frmSticky", "&Open"), "OPEN", kImageOpen},
    {1, QT_TRANSLATE_NOOP("frmSticky", "&Save"), "SAVE", kImageSave},
    {1, QT_TRANSLATE_NOOP("frmSticky", "Delete Note"), "DELETE", kImageDelete},
    {1, "-"},
    {1, QT_TRANSLATE_NOOP("frmSticky", "&Print"), "PRINT", kImagePrint},
    {1, "-"},
    {1, QT_TRANSLATE_NOOP("frmSticky", "E&mail"), "EMAIL", kImageMail},
    {1, QT_TRANSLATE_NOOP("frmSticky", "&Import/Export"), "IMPORTEXPORT", kImageImportExport},
    {2, QT_TRANSLATE_NOOP("frmSticky", "&Import Document File..."), "IMPORT", kImageImport},
    {2, QT_TRANSLATE_NOOP("frmSticky", "Import Norvane &Notes..."), "IMPORTNOTE", kImageImportNotes},
    {2, "-"},
    {2, QT_TRANSLATE_NOOP("frmSticky", "&Export Document File..."), "EXPORT", kImageExport},
    {2, "-"},
    {2, QT_TRANSLATE_NOOP("frmSticky", "Export to Microsoft &Outlook Notes"), "EXPORTOL", kImageOrganizer},
    {1, QT_TRANSLATE_NOOP("frmSticky", "&Capture Screen"), "CAPTURE", kImageCapture},
    {2, QT_TRANSLATE_NOOP("frmSticky", "Capture &Window"), "CAPTUREWINDOW", kImageCaptureWindow},
    {2, "-"},
    {2, QT_TRANSLATE_NOOP("frmSticky", "Capture &Desktop"), "CAPTUREDESKTOP", kImageCaptureDesktop},
    {1, "-"},
    {1, QT_TRANSLATE_NOOP("frmSticky", "P&roperties..."), "PROPERTIES", kImageProperties},
    {1, "-"},
    {1, QT_TRANSLATE_NOOP("frmSticky", "Close"), "CLOSE", kImageClose},
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
