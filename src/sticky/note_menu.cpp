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
    QString key = {};
    int level = 1;
    int image = kNoImage;
};

} // namespace

void fillNoteMenu(PopupMenuModel &menu, const QString &closeKey)
{
    using namespace note_menu;
    static const Entry kEntries[] = {
        {QT_TRANSLATE_NOOP("frmSticky", "&New"), kNew, 1, kImageNew},
        {QT_TRANSLATE_NOOP("frmSticky", "&Open"), kOpen, 1, kImageOpen},
        {QT_TRANSLATE_NOOP("frmSticky", "&Save"), kSave, 1, kImageSave},
        {QT_TRANSLATE_NOOP("frmSticky", "Delete Note"), kDelete, 1, kImageDelete},
        {"-"},
        {QT_TRANSLATE_NOOP("frmSticky", "&Print"), kPrint, 1, kImagePrint},
        {"-"},
        {QT_TRANSLATE_NOOP("frmSticky", "E&mail"), kMail, 1, kImageMail},
        {QT_TRANSLATE_NOOP("frmSticky", "&Import/Export"), kImportExport, 1, kImageImportExport},
        {QT_TRANSLATE_NOOP("frmSticky", "&Import Document File..."), kImport, 2, kImageImport},
        {QT_TRANSLATE_NOOP("frmSticky", "Import Norvane &Notes..."), kImportNote, 2, kImageImportNotes},
        {"-", {}, 2},
        {QT_TRANSLATE_NOOP("frmSticky", "&Export Document File..."), kExport, 2, kImageExport},
        {"-", {}, 2},
        {QT_TRANSLATE_NOOP("frmSticky", "Export to Microsoft &Outlook Notes"), kExportOutlook, 2,
         kImageOrganizer},
        {QT_TRANSLATE_NOOP("frmSticky", "&Capture Screen"), kCapture, 1, kImageCapture},
        {QT_TRANSLATE_NOOP("frmSticky", "Capture &Window"), kCaptureWindow, 2, kImageCaptureWindow},
        {"-", {}, 2},
        {QT_TRANSLATE_NOOP("frmSticky", "Capture &Desktop"), kCaptureDesktop, 2, kImageCaptureDesktop},
        {"-"},
        {QT_TRANSLATE_NOOP("frmSticky", "P&roperties..."), kProperties, 1, kImageProperties},
        {"-"},
        {QT_TRANSLATE_NOOP("frmSticky", "Close"), kClose, 1, kImageClose},
    };
    int parent = 0; // of entries of the second level: the last one of the first
    for (const Entry &entry : kEntries) {
        QString caption = QCoreApplication::translate("frmSticky", entry.caption);
        if (entry.key == kClose)
            caption += u'\t' + closeKey;
        const int index = menu.AddItem(caption, {}, 0, entry.level == 1 ? 0 : parent, entry.image, false,
                                       entry.key != kSave, entry.key);
        if (entry.level == 1)
            parent = index;
        if (entry.key == kSave)
            menu.setDefault(index, true);
    }
}

} // namespace norvane
