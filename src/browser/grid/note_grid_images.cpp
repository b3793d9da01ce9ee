#include "browser/grid/note_grid_images.h"

#include "browser/grid/note_columns.h"
#include "controls/svg_icon.h"

namespace norvane {

namespace {

struct Image
{
    int number;
    const char *file;
    const char *theme = ""; ///< its name there; empty for what is always drawn
};

// Themes differ so much from each other and from these that a menu of both looks patched.
constexpr Image kImages[] = {
    {kIconOpen, "location-open"},
    {kIconEdit, "note-edit"},
    {kIconDelete, "note-delete"},
    {kIconSaveAs, "document-save-as"},
    {kIconProperties, "note-properties"},
    {kIconNew, "note-new"},
    {kIconNote, "note"},
    {kIconActivate, "note-activate"},
    {kIconSearch, "note-search"},
    {kIconActive, "note-active"},
    {kIconMail, "mail"},
    {kIconFolder, "folder", "folder"},
    {kIconFavorites, "favorite"},
};

QIcon drawing(const char *file)
{
    return svgIcon(QStringLiteral(":/norvane/icons/%1.svg").arg(QLatin1StringView(file)));
}

} // namespace

QIcon NoteGridImages::icon(int index) const
{
    const auto known = m_icons.constFind(index);
    if (known != m_icons.constEnd())
        return *known;
    QIcon icon;
    for (const Image &image : kImages) {
        if (image.number == index)
            icon = QIcon::fromTheme(QString::fromLatin1(image.theme), drawing(image.file));
    }
    m_icons.insert(index, icon);
    return icon;
}

IconList noteHeaderImages()
{
    return IconList({drawing("note-active-header")});
}

QIcon FileIcons::operator()(const QStringList &names)
{
    QIcon &icon = m_icons[names.value(0)];
    if (!icon.isNull())
        return icon;
    for (const QString &name : names) {
        icon = QIcon::fromTheme(name);
        if (!icon.isNull())
            return icon;
    }
    icon = drawing(names.contains(QStringLiteral("text-html")) ? "web-page" : "document");
    return icon;
}

} // namespace norvane
