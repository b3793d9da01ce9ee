#pragma once

#include "exchange/import/ImportSource.h"

#include <QAbstractTableModel>
#include <QLocale>
#include <vector>

namespace norvane {

/// The notes of the source as a list with a check box each, sorted by any of its columns.
class ImportList : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { kName, kCategory, kURL, kCreated, kUpdated, kColumns };

    /// @param parent owns the list
    explicit ImportList(QObject *parent = nullptr) : QAbstractTableModel(parent) {}

    /// Shows these notes, in their order, all unchecked.
    void setRows(QVector<ImportRow> rows);
    /// Checks all notes, or none.
    void setAllChecked(bool checked);
    /// Flips every check.
    void invert();
    /// Flips the check of one row.
    void toggle(int row);
    int checkedCount() const { return m_checkedCount; }
    /// The numbers of the checked notes, in the present order.
    QVector<int> checkedIDs() const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

signals:
    /// Other notes are checked now, or in another number.
    void checksChanged();

private:
    const ImportRow &row(int place) const { return m_rows[m_order[static_cast<std::size_t>(place)]]; }
    QString text(const ImportRow &row, int column) const;
    QString text(const QDateTime &date) const;
    template <typename Key> void sortBy(const Key &keyOf, Qt::SortOrder order);
    void checksWereChanged(int first, int last);

    QVector<ImportRow> m_rows;
    std::vector<int> m_order;    ///< the row at each place
    std::vector<bool> m_checked; ///< by row
    int m_checkedCount = 0;
    QLocale m_locale;
};

} // namespace norvane
