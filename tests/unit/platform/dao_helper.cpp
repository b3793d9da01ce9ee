// A second program on a database, for the tests. Tells each thing that it did in one line.
//
//   dao_helper save FILE PASSWORD COUNT SIZE [reopen]  adds notes; tells the number of each
//   dao_helper hold FILE PASSWORD                      has it open until its input ends

#include "platform/RuntimeError.h"
#include "platform/dao.h"
#include "platform/sqlite/SqliteEngine.h"

#include <QCoreApplication>
#include <QStringList>
#include <cstdio>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

void tell(const QString &line)
{
    std::fputs(qPrintable(line + u'\n'), stdout);
    std::fflush(stdout);
}

std::unique_ptr<dao::Database> open(dao::Engine &engine, const QString &file, const QString &password)
{
    return engine.workspace(0)->openDatabase(file, false, false, u";pwd="_s + password);
}

int add(dao::Database &database, int size)
{
    const auto notes = database.openRecordset(u"select * from Memos where false"_s);
    notes->addNew();
    notes->setField(u"WindowName"_s, u"note"_s);
    notes->setField(u"URL"_s, QString(size, u'u'));
    notes->setField(u"CAT_ID"_s, 0);
    notes->update();
    notes->moveLast();
    return notes->field(u"ID"_s).toInt();
}

void save(dao::Engine &engine, const QStringList &arguments)
{
    const bool reopen = arguments.size() > 6;
    const int count = arguments[4].toInt();
    auto database = open(engine, arguments[2], arguments[3]);
    for (int i = 0; i < count; ++i) {
        tell(QString::number(add(*database, arguments[5].toInt())));
        if (reopen && i + 1 < count) {
            database.reset();
            database = open(engine, arguments[2], arguments[3]);
        }
    }
}

void hold(dao::Engine &engine, const QStringList &arguments)
{
    const auto database = open(engine, arguments[2], arguments[3]);
    tell(u"open"_s);
    while (std::getchar() != EOF) {
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const auto engine = dao::makeSqliteEngine();
    try {
        (arguments[1] == u"save" ? save : hold)(*engine, arguments);
        return 0;
    } catch (const RuntimeError &error) {
        tell(u"error %1"_s.arg(error.number()));
        return 1;
    }
}
