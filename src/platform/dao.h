#pragma once

#include <QDateTime>
#include <QSet>
#include <QString>
#include <QVariant>
#include <QVector>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// The database engine: workspaces, databases, recordsets, in the shape of data access objects.
///
/// Every member may raise RuntimeError with a number of errors.h. Statements and conditions are a
/// small grammar of their own (README of the engine's folder), parsed and checked, never pasted
/// into another language. Text compares without case (Unicode folding) and without regard to
/// trailing blanks; the column `URL` compares exactly with "=". True is -1.
///
/// Values: Long int, Integer qint16 (as int), Yes/No bool, Text and Memo QString, Date QDateTime
/// (local, whole seconds). Null is an invalid QVariant.
///
/// Objects are owned by whoever opened them. A database outlives its recordsets; a recordset of a
/// closed database raises 91 for every member but its destructor.
namespace norvane::dao {

enum class FieldType { Boolean = 1, Integer = 3, Long = 4, Date = 8, Text = 10, Memo = 12 };

enum FieldAttribute { kFixedField = 1, kVariableField = 2, kAutoIncrField = 16 };

struct FieldDef
{
    QString name;
    FieldType type = FieldType::Text;
    int size = 0; ///< UTF-16 units of a Text; the other types have their own
    int attributes = 0;
    QString defaultValue; ///< text; blanks around it do not count; empty is none
    int ordinalPosition = 0;
    bool required = false;
    bool allowZeroLength = false;
    QString validationRule;
    QString validationText;
};

struct IndexDef
{
    QString name;
    QString field;
    bool primary = false;
    bool unique = false;
    bool required = false;
    bool clustered = false;
    bool ignoreNulls = false;
};

struct TableDef
{
    QString name;
    QVector<FieldDef> fields; ///< in field order
    QVector<IndexDef> indexes;
    int attributes = 0;
    QString connect;
    QString sourceTableName;
    QString validationRule;
    QString validationText;
};

enum class RecordsetType {
    Dynaset,     ///< updatable; holds the keys of its rows, reads each row when it is current
    Snapshot,    ///< read-only; shows changes only after requery()
    ForwardOnly, ///< read-only, only moveNext(); shows what was there when it was opened
};

/// Rows of a select statement, with a current record and one edit buffer.
class Recordset
{
public:
    virtual ~Recordset();

    virtual bool bof() const = 0;
    virtual bool eof() const = 0;
    /// Whether the last find found nothing.
    virtual bool noMatch() const = 0;
    virtual void moveFirst() = 0;
    virtual void moveLast() = 0;
    virtual void moveNext() = 0;
    virtual void movePrevious() = 0;
    /// Makes the first (next) record that satisfies the condition current; else noMatch() is true
    /// and the current record stays.
    virtual void findFirst(const QString &condition) = 0;
    virtual void findNext(const QString &condition) = 0;

    /// The value in the edit buffer if there is one, else of the current record.
    virtual QVariant field(const QString &name) const = 0;
    /// Names of the columns, in order.
    virtual QStringList fieldNames() const = 0;

    /// Opens the edit buffer with the defaults of a new record, or with the current record.
    virtual void addNew() = 0;
    virtual void edit() = 0;
    /// Checks the kind of the value; required, length and zero length are checked by update() too.
    virtual void setField(const QString &name, const QVariant &value) = 0;
    /// Writes the edit buffer in one durable transaction. After addNew() the current record is the
    /// one that was current before.
    virtual void update() = 0;
    virtual void cancelUpdate() = 0;
    /// Deletes the current record; it stays current, unreadable, until the next move.
    virtual void remove() = 0;

    /// Reads the rows anew; the first record is current.
    virtual void requery() = 0;
    /// The same, and tells which records that can have changed: the keys (values of the counted field)
    /// of those that this database wrote, added or deleted since the rows were read last. Nothing when
    /// it could be any: too many changed, somebody else wrote, or the recordset is forward-only.
    virtual std::optional<QSet<int>> requeryChanged() = 0;
    /// The keys of the records in their order; none of a forward-only recordset.
    virtual std::vector<int> keys() const = 0;
    virtual int recordCount() const = 0;
    /// How many records the engine may keep at hand for the current place. A hint.
    virtual void setCacheSize(int records) = 0;
    virtual void fillCache() = 0;

    /// A condition for recordsets opened from this one; it does not change this one.
    virtual void setFilter(const QString &condition) = 0;
    virtual QString filter() const = 0;
    /// The rows of this recordset that satisfy filter().
    virtual std::unique_ptr<Recordset> openRecordset(RecordsetType type) = 0;

    virtual void close() = 0;
};

class Database
{
public:
    virtual ~Database();

    virtual QString path() const = 0;
    virtual std::unique_ptr<Recordset>
    openRecordset(const QString &sql, RecordsetType type = RecordsetType::Dynaset, bool readOnly = false) = 0;

    virtual QVector<TableDef> tableDefs() const = 0;
    virtual void appendTable(const TableDef &table) = 0;
    /// Writes only when it changes something.
    virtual void setAllowZeroLength(const QString &table, const QString &field, bool allow) = 0;

    /// Changes the file password; empty is none. Raises 3031 when @p oldPassword is wrong. The
    /// database stays open, with the new password.
    virtual void newPassword(const QString &oldPassword, const QString &newPassword) = 0;

    /// What is written from here on, by any recordset, is written together by commitTrans(): durable and
    /// whole, or not at all. Only few statements should be in between, no requery, and no event loop.
    virtual void beginTrans() = 0;
    /// Raises with nothing of it written. Raises 91 when a failure has ended the transaction already.
    virtual void commitTrans() = 0;
    /// Does nothing where no transaction is open. Never raises.
    virtual void rollback() noexcept = 0;
    /// Gives out numbers for new records of @p table, durably, so that @p count of them are at hand for
    /// the next ones; those that nobody uses are never given out again. Not inside a transaction.
    virtual void reserveNumbers(const QString &table, int count) = 0;

    /// Called about fifty times a second while a dynaset reads its rows, between two statements: events
    /// may run in it and the database may be used, for which it is not called anew. False stops the
    /// reading, which raises 3059; so does whatever it raises itself. A reading that it watches has no
    /// time limit. Empty for none.
    virtual void setProgress(std::function<bool()> goOn) = 0;

    /// Statements run against the file so far, for tests and figures.
    virtual quint64 statementCount() const = 0;

    virtual void close() = 0;
};

class Workspace
{
public:
    virtual ~Workspace();

    /// Makes an empty database file and opens it. Raises when the file is there or cannot be made.
    virtual std::unique_ptr<Database> createDatabase(const QString &path, const QString &locale) = 0;
    /// A database that is opened read-only leaves its folder as it is: no byte and no side file is
    /// written, and a save that was interrupted is rolled back in a temporary copy. Exclusive and
    /// read-only it keeps others from writing as long as it is open.
    /// @param connect ";pwd=" and the password, in any case
    virtual std::unique_ptr<Database> openDatabase(const QString &path, bool exclusive, bool readOnly,
                                                   const QString &connect) = 0;
    virtual void close() = 0;
};

class Engine
{
public:
    virtual ~Engine();

    /// Workspace @p index of the engine; only 0 is there.
    virtual std::shared_ptr<Workspace> workspace(int index) = 0;
    /// Writes a compacted copy of a closed database to a new file and verifies it. Raises 3356 when
    /// anyone has the database open.
    virtual void compactDatabase(const QString &source, const QString &target, const QString &password) = 0;
    /// Puts a verified copy in the place of a database: copied beside it, synced, renamed.
    virtual void replaceDatabase(const QString &source, const QString &target) = 0;
    /// Whether the file is there and someone, in this process or another, has it open as a database.
    /// Never opens the file.
    virtual bool isLocked(const QString &path) const = 0;
};

} // namespace norvane::dao
