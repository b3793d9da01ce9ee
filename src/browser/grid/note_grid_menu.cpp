#include "browser/grid/note_grid_menu.h"

#include "browser/grid/note_columns.h"
#include "controls/menu/PopupMenuModel.h"

#include <QCoreApplication>

namespace norvane {

namespace {

struct Entry
{
    const char *caption = "-";
    const char *accelerator = "";
    QString key;
    int icon = -1;
};

QString translated(const char *text)
{
    return QCoreApplication::translate("NoteGrid", text);
}

QString captionOf(const char *caption, const char *accelerator)
{
    const QString text = translated(caption);
    return *accelerator == '\0' ? text : text + u'\t' + QLatin1StringView(accelerator);
}

constexpr const char *kDeactivate = QT_TRANSLATE_NOOP("NoteGrid", "De&activate");
constexpr const char *kActivate = QT_TRANSLATE_NOOP("NoteGrid", "&Activate");
constexpr const char *kActiveAccelerator = "Alt+A";

} // namespace

void fillGridMenu(PopupMenuModel &menu)
{
    using namespace grid_menu;
    const Entry entries[] = {
        {QT_TRANSLATE_NOOP("NoteGrid", "&Open Location"), "Enter", kOpen, kIconOpen},
        {},
        {kDeactivate, kActiveAccelerator, kActive, kIconActivate},
        {},
        {QT_TRANSLATE_NOOP("NoteGrid", "New Note"), "Ins", kNew, kIconNew},
        {QT_TRANSLATE_NOOP("NoteGrid", "&Edit Note"), "Alt+E", kEdit, kIconEdit},
        {QT_TRANSLATE_NOOP("NoteGrid", "Delete Note"), "Del", kDelete, kIconDelete},
        {QT_TRANSLATE_NOOP("NoteGrid", "Save As..."), "", kSaveAs, kIconSaveAs},
        {},
        {QT_TRANSLATE_NOOP("NoteGrid", "Email..."), "", kMail, kIconMail},
        {QT_TRANSLATE_NOOP("NoteGrid", "Add to Favorites..."), "", kFavorites, kIconFavorites},
        {},
        {QT_TRANSLATE_NOOP("NoteGrid", "&Search"), "Alt+S", kSearch, kIconSearch},
        {},
        {QT_TRANSLATE_NOOP("NoteGrid", "&Properties..."), "Alt+P", kProperties, kIconProperties},
    };
    for (const Entry &entry : entries)
        menu.AddItem(captionOf(entry.caption, entry.accelerator), {}, 0, 0, entry.icon, false, true,
                     entry.key);
    menu.setDefault(menu.IndexForKey(kOpen), true);
    menu.Store(QStringLiteral("MNU_GRID"));
}

void updateGridMenu(PopupMenuModel &menu, const GridMenuState &state)
{
    using namespace grid_menu;
    const auto enable = [&menu](const QString &key, bool on) { menu.setEnabled(menu.IndexForKey(key), on); };
    const bool isOne = state.hasRow && state.selectedRows < 2;
    const bool isSeveral = state.hasRow && state.selectedRows >= 2;
    const bool isPlaceless = state.location.trimmed().isEmpty();
    enable(kEdit, isOne);
    enable(kOpen, isSeveral || (isOne && !state.location.isEmpty()));
    enable(kMail, isOne);
    enable(kActive, isOne);
    enable(kSaveAs, isOne);
    enable(kFavorites, isOne && state.hasFavorites && !isPlaceless);
    enable(kDelete, state.hasRow);
    enable(kProperties, state.hasRow);
    menu.setCaption(menu.IndexForKey(kActive),
                    captionOf(state.isActive ? kDeactivate : kActivate, kActiveAccelerator));
    menu.setDefault(menu.IndexForKey(kOpen), !isPlaceless);
    menu.setDefault(menu.IndexForKey(kEdit), isPlaceless);
}

} // namespace norvane
