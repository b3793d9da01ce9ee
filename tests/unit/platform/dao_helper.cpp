// A second program on a database, for the tests. Tells each thing that it did in one line.
//
//   dao_helper save FILE PASSWORD COUNT SIZE [reopen]  adds notes; tells the number of each
//   dao_helper hold FILE PASSWORD                      has it open until its input ends
//   dao_helper try FILE rw|ro                          opens it without root rights; tells the error
//   dao_helper full FILE FREE                          saves and compacts with FREE bytes of room

#include "platform/RuntimeError.h"
#include "platform/dao.h"
#include "platform/sqlite/SqliteEngine.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <csignal>
#include <cstdio>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace norvane;

namespace {

void tell(const QString &line)
{
    std::fputs(qPrintable(line + u'\n'), stdout);
    std::fflush(stdout);
}

std::unique_ptr<dao::Database> open(dao::Engine &engine, const QString &file, const QString &password,
                                    bool readOnly = false)
{
    return engine.workspace(0)->openDatabase(file, false, readOnly, QStringLiteral(";pwd=") + password);
}

int add(dao::Database &database, int size)
{
    const auto notes = database.openRecordset(QStringLiteral("select * from Memos where false"));
    notes->addNew();
    notes->setField(QStringLiteral("WindowName"), QStringLiteral("note"));
    notes->setField(QStringLiteral("URL"), QString(size, u'u'));
    notes->setField(QStringLiteral("CAT_ID"), 0);
    notes->update();
    notes->moveLast();
    return notes->field(QStringLiteral("ID")).toInt();
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
    tell(QStringLiteral("open"));
    while (std::getchar() != EOF) {
    }
}

void dropRoot()
{
    constexpr uid_t kNobody = 65534;
    if (geteuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0))
        std::abort();
    // A leak checker could not look at this process otherwise.
    prctl(PR_SET_DUMPABLE, 1);
}

int errorOf(const std::function<void()> &call)
{
    try {
        call();
    } catch (const RuntimeError &error) {
        return error.number();
    }
    return 0;
}

void limitFiles(rlim_t bytes)
{
    rlimit limit = {};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
}

void full(dao::Engine &engine, const QStringList &arguments)
{
    std::signal(SIGXFSZ, SIG_IGN);
    const QString file = arguments[2];
    const auto room = static_cast<rlim_t>(QFileInfo(file).size() + arguments[3].toInt());
    auto database = open(engine, file, {});
    limitFiles(room);
    tell(QString::number(errorOf([&] { add(*database, 2'000'000); })));
    limitFiles(RLIM_INFINITY);
    tell(QString::number(errorOf([&] { add(*database, 10); })));
    database.reset();
    database = open(engine, file, {});
    limitFiles(static_cast<rlim_t>(QFileInfo(file).size() / 2));
    tell(QString::number(errorOf([&] { database->newPassword({}, QStringLiteral("secret")); })));
    database.reset();
    tell(QString::number(errorOf([&] { engine.compactDatabase(file, file + QStringLiteral(".tmp"), {}); })));
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const auto engine = dao::makeSqliteEngine();
    const int number = errorOf([&] {
        if (arguments[1] == u"save") {
            save(*engine, arguments);
        } else if (arguments[1] == u"hold") {
            hold(*engine, arguments);
        } else if (arguments[1] == u"full") {
            full(*engine, arguments);
        } else {
            dropRoot();
            const auto database = open(*engine, arguments[2], {}, arguments[3] == u"ro");
            const auto notes = database->openRecordset(QStringLiteral("select * from Memos"));
            tell(QStringLiteral("%1 notes").arg(notes->recordCount()));
        }
    });
    if (number != 0)
        tell(QStringLiteral("error %1").arg(number));
    return number == 0 ? 0 : 1;
}
