#include "controls/menuview/menu_images.h"

#include "controls/svg_icon.h"

namespace norvane {

IconList sharedMenuImages()
{
    // In the order of MenuImage.
    static constexpr const char *kFiles[] = {
        "document-new",  "document-open",   "document-save",  "note-delete",     "document-print",
        "import-export", "note-properties", "note-close",     "document-import", "document-export",
        "organizer",     "capture",         "capture-window", "capture-desktop", "mail",
        "import-notes",
    };
    QVector<QIcon> icons;
    for (const char *file : kFiles)
        icons.append(svgIcon(QStringLiteral(":/norvane/icons/%1.svg").arg(QLatin1StringView(file))));
    return IconList(icons);
}

} // namespace norvane
