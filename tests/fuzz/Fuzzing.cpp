#include "Fuzzing.h"

#include "file_bytes.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <cstdio>
#include <ctime>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#endif

namespace norvane {
namespace {

/// Of the processor, for a short input; anything near it is work that grows faster than the input.
constexpr qint64 kMaximumMilliseconds = 4'000;

QByteArray currentInput;
QString findings; ///< folder and suffix of what is kept, with a place for its kind

/// What the processor has worked for this thread, however busy the machine is.
qint64 workedMilliseconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return qint64(time.tv_sec) * 1'000 + time.tv_nsec / 1'000'000;
}

bool keepFinding(const char *kind)
{
    const QString name = findings.arg(QLatin1StringView(kind));
    putBytes(name, currentInput);
    std::fprintf(stderr, "kept in %s\n", qPrintable(name));
    return false;
}

/// A smaller part of an input that still has the fault.
QByteArray shrunk(QByteArray input, const std::function<bool(const QByteArray &)> &isFaulty)
{
    constexpr qint64 kPatience = 60'000;
    QElapsedTimer timer;
    timer.start();
    for (qsizetype size = input.size() / 2; size > 0; size /= 2) {
        for (qsizetype at = 0; at < input.size() && timer.elapsed() < kPatience;) {
            QByteArray shorter = input;
            shorter.remove(at, size);
            if (isFaulty(shorter))
                input = shorter;
            else
                at += size;
        }
    }
    return input;
}

/// False when it has a fault.
bool tryInput(const Fuzzing &fuzzing, const QByteArray &input, bool thorough)
{
    currentInput = input;
    const qint64 before = workedMilliseconds();
    const QByteArray fault = fuzzing.faultOf(input, thorough);
    const qint64 taken = workedMilliseconds() - before;
    if (!fault.isEmpty()) {
        std::fprintf(stderr, "%s: %s\n", fuzzing.program, fault.constData());
        currentInput = shrunk(input, [&](const QByteArray &shorter) {
            currentInput = shorter;
            return fuzzing.faultOf(shorter, thorough) == fault;
        });
        return keepFinding("changes");
    }
    if (taken > kMaximumMilliseconds) {
        std::fprintf(stderr, "%s: %lld ms for %lld bytes\n", fuzzing.program, static_cast<long long>(taken),
                     static_cast<long long>(input.size()));
        return keepFinding("slow");
    }
    return true;
}

} // namespace

int runFuzzing(const Fuzzing &fuzzing)
{
    QCommandLineParser options;
    const QCommandLineOption inputs(QStringLiteral("inputs"), {}, QStringLiteral("n"));
    const QCommandLineOption seconds(QStringLiteral("seconds"), {}, QStringLiteral("n"), QStringLiteral("5"));
    const QCommandLineOption seed(QStringLiteral("seed"), {}, QStringLiteral("n"), QStringLiteral("1"));
    const QCommandLineOption folder(QStringLiteral("findings"), {}, QStringLiteral("folder"),
                                    QStringLiteral("findings"));
    const QCommandLineOption tryFiles(QStringLiteral("try"));
    options.addOptions({inputs, seconds, seed, folder, tryFiles});
    options.process(*QCoreApplication::instance());
    QDir().mkpath(options.value(folder));
    findings = options.value(folder) + QStringLiteral("/%1") + QLatin1StringView(fuzzing.suffix);
#if defined(__SANITIZE_ADDRESS__)
    __sanitizer_set_death_callback([] { keepFinding("breaks"); });
#endif

    if (options.isSet(tryFiles)) {
        bool isGood = true;
        for (const QString &name : options.positionalArguments())
            isGood = QFile::exists(name) && tryInput(fuzzing, bytesOf(name), true) && isGood;
        return isGood ? 0 : 1;
    }
    const QList<QByteArray> corpus = fuzzing.corpus(options.positionalArguments());
    for (const QByteArray &input : corpus) {
        if (!tryInput(fuzzing, input, true))
            return 1;
    }
    const auto next = fuzzing.damage(corpus, options.value(seed).toUInt());
    const quint64 wanted = options.value(inputs).toULongLong();
    const qint64 milliseconds = options.value(seconds).toLongLong() * 1000;
    QElapsedTimer timer;
    timer.start();
    quint64 count = 0;
    bool isGood = true;
    while (isGood && (wanted > 0 ? count < wanted : timer.elapsed() < milliseconds))
        isGood = tryInput(fuzzing, next(), count++ % 4 == 0);
    std::fprintf(isGood ? stdout : stderr, "%s: %llu inputs of seed %s, %s found\n", fuzzing.program,
                 static_cast<unsigned long long>(count), qPrintable(options.value(seed)),
                 isGood ? "nothing" : "a fault");
    return isGood ? 0 : 1;
}

} // namespace norvane
