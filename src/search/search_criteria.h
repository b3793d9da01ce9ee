#pragma once

#include "search/search_options.h"
#include "store/categories.h"

#include <QDate>
#include <QString>

namespace norvane {

/// Days on which notes were made and changed, the last ones included.
struct SearchDates
{
    QDate createdFrom;
    QDate createdTo;
    QDate updatedFrom;
    QDate updatedTo;

    bool operator==(const SearchDates &) const = default;
};

inline constexpr int kAllCategories = -1;
inline constexpr int kNoCategory = 0;

/// What notes are searched for.
struct SearchCriteria
{
    QString text;
    SearchOptions options;
    SearchDates dates;
    int category = kAllCategories; ///< kNoCategory, or a category's ID
};

/// What can be chosen as a category: all, none, and each of @p categories. Their IDs are what
/// SearchCriteria takes.
QVector<Category> searchCategories(const QVector<Category> &categories);

/// The select statement of a search: the text alone. Wildcards in it act as such, and a double quote ends
/// the pattern, so that the statement is none.
QString searchStatement(const SearchCriteria &criteria);
/// The condition that the hits of the statement must meet besides: dates and category.
QString searchFilter(const SearchCriteria &criteria);

} // namespace norvane
