#include "search/SearchTabs.h"

#include "controls/named_button.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <limits>

namespace norvane {

namespace {

constexpr int kShownCharacters = 20;
/// The earliest day that a note's date can hold.
const QDate kEarliest(100, 1, 1);

QComboBox *comboBox(const QString &name, bool isEditable)
{
    auto *box = new QComboBox;
    box->setObjectName(name);
    box->setEditable(isEditable);
    // It takes the room that there is, whatever its entries need.
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(kShownCharacters);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    box->view()->setTextElideMode(Qt::ElideRight);
    return box;
}

/// The locale's short form, with all digits of the year.
QString dayFormat(const QLocale &locale)
{
    QString format = locale.dateFormat(QLocale::ShortFormat);
    if (!format.contains(QStringLiteral("yyyy")))
        format.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
    return format;
}

QDateEdit *dateBox(const QString &name, const QString &accessibleName, QDate day)
{
    auto *box = new QDateEdit;
    box->setObjectName(name);
    box->setAccessibleName(accessibleName);
    box->setMinimumDate(kEarliest);
    box->setDisplayFormat(dayFormat(box->locale()));
    box->setCalendarPopup(true);
    box->setDate(day);
    return box;
}

QLabel *label(const QString &name, const QString &text, QWidget *buddy)
{
    auto *caption = new QLabel(text);
    caption->setObjectName(name);
    caption->setBuddy(buddy);
    return caption;
}

} // namespace

SearchTabs::SearchTabs(QDate today, QWidget *parent)
    : QTabWidget(parent), m_text(comboBox(QStringLiteral("cmbSearch"), true)),
      m_category(comboBox(QStringLiteral("cmbCat"), false)),
      m_createdFrom(dateBox(QStringLiteral("DTPicker1"), tr("Creation Date From"), today)),
      m_createdTo(dateBox(QStringLiteral("DTPicker2"), tr("Creation Date To"), today)),
      m_updatedFrom(dateBox(QStringLiteral("DTPicker3"), tr("Last Update From"), today)),
      m_updatedTo(dateBox(QStringLiteral("DTPicker4"), tr("Last Update To"), today)),
      m_inNoteText(namedButton<QCheckBox>(QStringLiteral("Check1"), tr("Search in Notes Text"))),
      m_inLocation(namedButton<QCheckBox>(QStringLiteral("Check2"), tr("Search in Address/URL"))),
      m_exactMatch(namedButton<QCheckBox>(QStringLiteral("Check3"), tr("Find Exact Match")))
{
    setObjectName(QStringLiteral("Frame1"));
    addTab(textPage(), tr("Text"));
    addTab(datePage(), tr("Date"));
    addTab(optionsPage(), tr("Options"));
}

QWidget *SearchTabs::textPage()
{
    m_text->setInsertPolicy(QComboBox::NoInsert);
    m_text->setCompleter(nullptr); // what is typed is what is searched for
    m_text->setMaxCount(std::numeric_limits<int>::max());
    m_text->lineEdit()->setMaxLength(std::numeric_limits<int>::max());
    auto *page = new QWidget;
    auto *layout = new QGridLayout(page);
    layout->addWidget(label(QStringLiteral("Label1"), tr("Search for:"), m_text), 0, 0);
    layout->addWidget(m_text, 0, 1);
    layout->addWidget(label(QStringLiteral("Label7"), tr("Category:"), m_category), 1, 0);
    layout->addWidget(m_category, 1, 1);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(2, 1);
    return page;
}

QWidget *SearchTabs::datePage()
{
    auto *reset = namedButton(QStringLiteral("Command2"), tr("&Reset"));
    connect(reset, &QPushButton::clicked, this, &SearchTabs::resetAsked);
    auto *page = new QWidget;
    auto *layout = new QGridLayout(page);
    layout->addWidget(label(QStringLiteral("Label2"), tr("Creation Date From:"), m_createdFrom), 0, 0);
    layout->addWidget(m_createdFrom, 0, 1);
    layout->addWidget(label(QStringLiteral("Label4"), tr("To:"), m_createdTo), 0, 2);
    layout->addWidget(m_createdTo, 0, 3);
    layout->addWidget(label(QStringLiteral("Label3"), tr("Last Update From:"), m_updatedFrom), 1, 0);
    layout->addWidget(m_updatedFrom, 1, 1);
    layout->addWidget(label(QStringLiteral("Label5"), tr("To:"), m_updatedTo), 1, 2);
    layout->addWidget(m_updatedTo, 1, 3);
    layout->addWidget(reset, 2, 3, Qt::AlignRight);
    layout->setColumnStretch(4, 1);
    layout->setRowStretch(3, 1);
    return page;
}

QWidget *SearchTabs::optionsPage()
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    for (QCheckBox *box : {m_inNoteText, m_inLocation, m_exactMatch})
        layout->addWidget(box);
    layout->addStretch();
    return page;
}

SearchCriteria SearchTabs::criteria() const
{
    return {.text = m_text->currentText(),
            .options = {m_inNoteText->isChecked(), m_inLocation->isChecked(), m_exactMatch->isChecked()},
            .dates = {m_createdFrom->date(), m_createdTo->date(), m_updatedFrom->date(), m_updatedTo->date()},
            .category = m_category->currentData().toInt()};
}

void SearchTabs::setOptions(const SearchOptions &options)
{
    m_inNoteText->setChecked(options.inNoteText);
    m_inLocation->setChecked(options.inLocation);
    m_exactMatch->setChecked(options.exactMatch);
}

void SearchTabs::setDates(const SearchDates &dates)
{
    m_createdFrom->setDate(dates.createdFrom);
    m_createdTo->setDate(dates.createdTo);
    m_updatedFrom->setDate(dates.updatedFrom);
    m_updatedTo->setDate(dates.updatedTo);
}

void SearchTabs::setCategories(const QVector<Category> &categories)
{
    const QVariant chosen = m_category->currentData();
    m_category->clear();
    for (const Category &category : searchCategories(categories))
        m_category->addItem(category.Name, category.ID);
    m_category->setCurrentIndex(std::max(0, m_category->findData(chosen)));
}

void SearchTabs::selectCategory(int category)
{
    if (const int index = m_category->findData(category); index >= 0)
        m_category->setCurrentIndex(index);
}

void SearchTabs::keepText()
{
    m_text->addItem(m_text->currentText());
}

void SearchTabs::clearText()
{
    m_text->clear();
    m_text->clearEditText();
}

void SearchTabs::editText()
{
    setCurrentIndex(0);
    m_text->setFocus();
    m_text->lineEdit()->selectAll();
}

} // namespace norvane
