#pragma once

#include "store/categories.h"

namespace norvane {

/// A tab of the category bar.
struct CategoryTab
{
    QString caption; ///< with each "&" doubled
    QString key;     ///< "K" and the filter value: "K0" all, "K-1" without a category, "K17" category 17

    bool operator==(const CategoryTab &) const = default;
};

/// "(All Categories)", each category, "(No Category)".
QVector<CategoryTab> categoryTabs(const QVector<Category> &categories);
/// The filter value behind the first letter of a key.
int filterOfKey(const QString &key);
QString keyOfFilter(int filter);
/// A name as a caption that shows each "&" of it, and back.
QString captionOfName(const QString &name);
QString nameOfCaption(const QString &caption);

} // namespace norvane
