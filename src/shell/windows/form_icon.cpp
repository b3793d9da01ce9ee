#include "shell/windows/form_icon.h"

#include "controls/svg_icon.h"

#include <QApplication>
#include <QWidget>
#include <algorithm>

namespace norvane {

namespace {

struct ToolIcon
{
    const char16_t *key;
    const char16_t *themeName;
    const char16_t *file;
};

constexpr ToolIcon kToolIcons[] = {
    {u"NOTEBROWSER", u"knotes", u"note-browser"},
    {u"WINDOWLIST", u"preferences-system-windows", u"window-list"},
    {u"SETTINGS", u"configure", u"settings"},
    {u"SEARCH", u"edit-find", u"search"},
    {u"RUN", u"system-run", u"run"},
    {u"EXIT", u"application-exit", u"exit"},
};

QString text(const char16_t *literal)
{
    return QString::fromUtf16(literal);
}

bool themeHasAll()
{
    return std::all_of(std::begin(kToolIcons), std::end(kToolIcons),
                       [](const ToolIcon &icon) { return QIcon::hasThemeIcon(text(icon.themeName)); });
}

} // namespace

QIcon applicationIcon()
{
    // Looked for and drawn once.
    if (const QIcon icon = QApplication::windowIcon(); !icon.isNull())
        return icon;
    const QString name = QStringLiteral("norvane");
    if (QIcon::hasThemeIcon(name))
        return QIcon::fromTheme(name);
    return svgIcon(QStringLiteral(":/norvane/icons/norvane.svg"));
}

void SetFormIcon(QWidget *form)
{
    form->setWindowIcon(applicationIcon());
}

QIcon toolIcon(const QString &key)
{
    const auto *found = std::find_if(std::begin(kToolIcons), std::end(kToolIcons),
                                     [&](const ToolIcon &icon) { return text(icon.key) == key; });
    if (found == std::end(kToolIcons))
        return {};
    if (themeHasAll())
        return QIcon::fromTheme(text(found->themeName));
    return svgIcon(QStringLiteral(":/norvane/icons/%1.svg").arg(text(found->file)));
}

} // namespace norvane
