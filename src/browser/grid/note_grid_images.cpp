#include "browser/grid/note_grid_images.h"

#include "browser/grid/note_columns.h"
#include "controls/svg_icon.h"

namespace norvane {

namespace {

struct Image
{
    int number;
    const char *theme; ///< its name there; empty for what is drawn here always
    const char *file;
};

constexpr Image kImages[] = {
    {kIconOpen, "document-open", "location-open"},
    {kIconEdit, "document-edit", "note-edit"},
    {kIconDelete, "edit-delete", "note-delete"},
    {kIconSaveAs, "document-save-as", "document-save-as"},
    {kIconProperties, "document-properties", "note-properties"},
    {kIconNew, "document-new", "note-new"},
    {kIconNote, "", "note"},
    {kIconActivate, "", "note-activate"},
    {kIconSearch, "edit-find", "note-search"},
    {kIconActive, "", "note-active"},
    {kIconMail, "mail-send", "mail"},
    {kIconFolder, "folder", "folder"},
    {kIconFavorites, "bookmark-new", "favorite"},
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
