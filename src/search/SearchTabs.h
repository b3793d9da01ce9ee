#pragma once

#include "search/search_criteria.h"

#include <QTabWidget>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QGridLayout;

namespace norvane {

/// The three tabs of the search, `Frame1`: what is searched for, between which days, and in what.
class SearchTabs : public QTabWidget
{
    Q_OBJECT

public:
    /// @param today stands in the date boxes until they are set
    explicit SearchTabs(QDate today, QWidget *parent = nullptr);

    /// What stands in the boxes.
    SearchCriteria criteria() const;
    void setOptions(const SearchOptions &options);
    void setDates(const SearchDates &dates);
    /// Offers these besides "(All Categories)" and "(No Category)". The chosen one stays chosen while it is
    /// there, else all are.
    void setCategories(const QVector<Category> &categories);
    /// @param category kAllCategories, kNoCategory or an ID; without such an entry nothing changes
    void selectCategory(int category);

    /// Adds the text to the list of those that were searched for, whatever that holds already.
    void keepText();
    /// Empties the text and that list.
    void clearText();
    /// Shows the first tab and gives its text the keyboard.
    void editText();

signals:
    /// The dates are to be those of all notes.
    void resetAsked();

private:
    QWidget *textPage();
    QWidget *datePage();
    QWidget *optionsPage();
    void addDates(QGridLayout &layout, const QString &caption, QDateEdit *from, QDateEdit *to);

    QComboBox *m_text;
    QComboBox *m_category;
    QDateEdit *m_createdFrom;
    QDateEdit *m_createdTo;
    QDateEdit *m_updatedFrom;
    QDateEdit *m_updatedTo;
    QCheckBox *m_inNoteText;
    QCheckBox *m_inLocation;
    QCheckBox *m_exactMatch;
};

} // namespace norvane
