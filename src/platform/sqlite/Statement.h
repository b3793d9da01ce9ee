#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>
#include <QVector>
#include <string_view>

struct sqlite3_stmt;

namespace norvane::dao {

class Connection;
class LocalDates;

/// A compiled statement, kept by its connection.
struct PreparedStatement
{
    PreparedStatement() = default;
    ~PreparedStatement();
    PreparedStatement(const PreparedStatement &) = delete;
    PreparedStatement &operator=(const PreparedStatement &) = delete;

    sqlite3_stmt *handle = nullptr;
    bool busy = false;
    quint64 lastUse = 0;
};

/// The use of a compiled statement from binding to its last row.
class Statement
{
public:
    ~Statement();
    Statement(Statement &&other) noexcept;
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;
    Statement &operator=(Statement &&) = delete;

    void bind(const QVector<QVariant> &values);
    /// Begins again with another number for one parameter; the first one is 1.
    void restart(int parameter, qint64 number);
    /// Whether there is a (further) row.
    bool step();
    int columnCount() const;
    bool isNull(int column) const;
    bool isText(int column) const;
    qint64 integer(int column) const;
    double real(int column) const;
    QString text(int column) const;
    /// The text as it stands in the file, until the next step.
    std::string_view bytes(int column) const;
    /// An integer, a double, a text, or an invalid value.
    QVariant value(int column) const;
    /// Of the connection.
    LocalDates &localDates() const;

private:
    friend class Connection;
    Statement(Connection &connection, PreparedStatement &prepared);

    Connection &m_connection;
    PreparedStatement *m_prepared;
    bool m_started = false;
};

} // namespace norvane::dao
