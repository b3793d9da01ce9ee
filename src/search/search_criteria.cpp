#include "search/search_criteria.h"

#include <QCoreApplication>

namespace norvane {

namespace {

QString pattern(const SearchCriteria &criteria)
{
    if (criteria.text.isEmpty())
        return QStringLiteral("*");
    return criteria.options.exactMatch ? criteria.text : u'*' + criteria.text + u'*';
}

QString textCondition(const SearchCriteria &criteria)
{
    const QString quoted = u'"' + pattern(criteria) + u'"';
    QString condition = QStringLiteral("WindowName like ") + quoted;
    if (criteria.options.inLocation)
        condition += QStringLiteral(" OR  URL like ") + quoted;
    condition += QStringLiteral(" OR FriendlyName like ") + quoted;
    if (criteria.options.inNoteText) {
        condition += criteria.options.inLocation ? QStringLiteral(" OR ") : QStringLiteral(" Or ");
        condition += QStringLiteral("NoteText like ") + quoted;
    }
    return condition + QStringLiteral(" Or KeyWords Like ") + quoted + u' ';
}

} // namespace

QVector<Category> searchCategories(const QVector<Category> &categories)
{
    QVector<Category> choices{{kAllCategories, QCoreApplication::translate("frmSearch", "(All Categories)")},
                              {kNoCategory, QCoreApplication::translate("frmSearch", "(No Category)")}};
    return choices += categories;
}

QString searchStatement(const SearchCriteria &criteria)
{
    return QStringLiteral("Select * From Memos where ") + textCondition(criteria) +
           QStringLiteral("order by FriendlyName");
}

QString searchFilter(const SearchCriteria &criteria)
{
    const auto day = [](QDate date) { return u'\'' + date.toString(QStringLiteral("yyyy-MM-dd")) + u'\''; };
    const SearchDates &dates = criteria.dates;
    QString condition = QStringLiteral("format(DateCreated,'yyyy-mm-dd') >= ") + day(dates.createdFrom) +
                        QStringLiteral(" AND format(DateCreated,'yyyy-mm-dd') <= ") + day(dates.createdTo) +
                        QStringLiteral(" AND format(LastUpdate,'yyyy-mm-dd') >=") + day(dates.updatedFrom) +
                        QStringLiteral(" AND format(LastUpdate,'yyyy-mm-dd') <=") + day(dates.updatedTo);
    if (criteria.category != kAllCategories)
        condition += QStringLiteral(" And Cat_ID=") + QString::number(criteria.category);
    return condition;
}

} // namespace norvane
