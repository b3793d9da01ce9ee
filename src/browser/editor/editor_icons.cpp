#include "browser/editor/editor_icons.h"

#include "controls/svg_icon.h"

#include <algorithm>
#include <array>

namespace norvane {

namespace {

struct Picture
{
    const char *themeName;
    const char *file;
};

/// In the order of EditorIcon.
constexpr std::array<Picture, 4> kPictures = {{{"window-close", "window-close"},
                                               {"document-edit", "note-edit"},
                                               {"document-open-remote", "location-open"},
                                               {"document-save", "document-save"}}};

} // namespace

QIcon editorIcon(EditorIcon icon)
{
    const Picture &picture = kPictures.at(static_cast<std::size_t>(icon));
    const bool fromTheme = std::all_of(kPictures.begin(), kPictures.end(), [](const Picture &each) {
        return QIcon::hasThemeIcon(QString::fromLatin1(each.themeName));
    });
    return fromTheme ? QIcon::fromTheme(QString::fromLatin1(picture.themeName))
                     : svgIcon(QStringLiteral(":/norvane/icons/%1.svg").arg(QLatin1StringView(picture.file)));
}

} // namespace norvane
