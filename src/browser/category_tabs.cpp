#include "browser/category_tabs.h"

#include "shell/numeric_prefix.h"

#include <QCoreApplication>

namespace norvane {

QVector<CategoryTab> categoryTabs(const QVector<Category> &categories)
{
    QVector<CategoryTab> tabs;
    tabs.reserve(categories.size() + 2);
    tabs.append({QCoreApplication::translate("frmMain", "(All Categories)"), keyOfFilter(0)});
    for (const Category &category : categories)
        tabs.append({captionOfName(category.Name), keyOfFilter(category.ID)});
    tabs.append({QCoreApplication::translate("frmMain", "(No Category)"), keyOfFilter(-1)});
    return tabs;
}

int filterOfKey(const QString &key)
{
    return numericPrefixInt(key.mid(1));
}

QString keyOfFilter(int filter)
{
    return u'K' + QString::number(filter);
}

QString captionOfName(const QString &name)
{
    return QString(name).replace(u'&', QStringLiteral("&&"));
}

QString nameOfCaption(const QString &caption)
{
    return QString(caption).replace(QStringLiteral("&&"), QStringLiteral("&"));
}

} // namespace norvane
