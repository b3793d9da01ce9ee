#include "platform/linux/program_naming.h"

#include <QDir>
#include <QRegularExpression>

namespace norvane {

namespace {

using IsFile = std::function<bool(const QString &)>;

QString fileName(const QString &path)
{
    return path.mid(path.lastIndexOf(u'/') + 1);
}

/// A snap's program lies in the snap, or it is a program of a base that all snaps share: then only
/// the control group tells. Programs that a snap starts stay in its group, too, so a file elsewhere
/// is what it is.
QString snapName(const ProcessFacts &facts)
{
    static const QRegularExpression folder(QStringLiteral("^/snap/([^/]+)/[^/]+/"));
    static const QRegularExpression base(QStringLiteral("^(bare|core[0-9]*|snapd)$"));
    static const QRegularExpression group(QStringLiteral("/snap\\.([^./\\s]+)\\."));
    QString name = folder.match(facts.executable).captured(1);
    if (!name.isEmpty() && !base.match(name).hasMatch())
        return name;
    return name.isEmpty() && !facts.executable.isEmpty() ? QString()
                                                         : group.match(facts.controlGroup).captured(1);
}

/// An interpreter's options: those whose value is the next argument, and those that say that
/// there is no script file.
struct Interpreter
{
    QRegularExpression name;
    QStringList withValue;
    QStringList noScript;
    QStringList beforeScript; ///< options whose value is the script
};

const QVector<Interpreter> &interpreters()
{
    static const auto words = [](const char16_t *text) {
        return QString::fromUtf16(text).split(u' ', Qt::SkipEmptyParts);
    };
    static const auto named = [](const char16_t *pattern) {
        return QRegularExpression(QRegularExpression::anchoredPattern(QString::fromUtf16(pattern)));
    };
    static const QVector<Interpreter> table{
        {named(u"(pypy|python)[0-9.]*d?"), words(u"-W -X"), words(u"-c -m -"), {}},
        {named(u"perl[0-9.]*"), words(u"-I -M"), words(u"-e -E -"), {}},
        {named(u"ruby[0-9.]*"), words(u"-I -r"), words(u"-e -"), {}},
        {named(u"(node|nodejs)"), words(u"-r --require --import --loader -C"), words(u"-e -p --eval -"), {}},
        {named(u"(ba|da|k|z|fi)?sh"), words(u"-o +o -O --rcfile --init-file"), words(u"-c -s -"), {}},
        {named(u"java"),
         words(u"-cp -classpath --class-path -p --module-path --add-modules --add-opens --add-exports"),
         words(u"-m --module"), words(u"-jar")},
        {named(u"gjs(-console)?"), words(u"-I -C"), words(u"-c -m"), {}},
        {named(u"(lua|luajit)[0-9.]*"), words(u"-l"), words(u"-e -"), {}},
        {named(u"(tclsh|wish)[0-9.]*"), words(u"-encoding"), {}, {}},
        {named(u"mono(-sgen)?"), {}, {}, {}},
        {named(u"php[0-9.]*"), words(u"-c -d"), words(u"-r"), words(u"-f")},
    };
    return table;
}

/// The script among an interpreter's arguments, as it was given; empty if it runs none.
QString scriptArgument(const Interpreter &interpreter, const QStringList &arguments)
{
    const bool mayBeBare = interpreter.beforeScript != QStringList{QStringLiteral("-jar")};
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const QString &argument = arguments.at(i);
        if (interpreter.noScript.contains(argument))
            return {};
        if (interpreter.beforeScript.contains(argument))
            return arguments.value(i + 1);
        if (argument == u"--")
            return arguments.value(i + 1);
        if (interpreter.withValue.contains(argument))
            ++i;
        else if (!argument.startsWith(u'-') && !argument.startsWith(u'+'))
            return mayBeBare ? argument : QString(); // a bare word of java is a class, no file
    }
    return {};
}

QString found(const QString &name, const ProcessFacts &facts, const IsFile &isFile,
              const QStringList &searchPath)
{
    if (name.isEmpty())
        return {};
    if (name.startsWith(u'/'))
        return QDir::cleanPath(name);
    if (!facts.workingFolder.isEmpty()) {
        QString path = QDir::cleanPath(facts.workingFolder + u'/' + name);
        if (isFile(path))
            return path;
    }
    if (name.contains(u'/'))
        return {};
    for (const QString &folder : searchPath) {
        QString path = QDir::cleanPath(folder + u'/' + name);
        if (folder.startsWith(u'/') && isFile(path))
            return path;
    }
    return {};
}

QString scriptOf(const QString &program, const ProcessFacts &facts, const IsFile &isFile,
                 const QStringList &searchPath)
{
    for (const Interpreter &interpreter : interpreters()) {
        if (interpreter.name.match(fileName(program)).hasMatch())
            return found(scriptArgument(interpreter, facts.arguments), facts, isFile, searchPath);
    }
    return {};
}

/// The program that the command line names. Some programs write one line of text over it.
QString commandProgram(const ProcessFacts &facts, const IsFile &isFile, const QStringList &searchPath)
{
    QString command = facts.arguments.value(0);
    if (command.startsWith(u'-')) // a login shell
        command.remove(0, 1);
    if (command.startsWith(u'/') && isFile(command))
        return QDir::cleanPath(command);
    const QString firstWord = command.section(u' ', 0, 0);
    for (const QString &name : {command, firstWord}) {
        QString path = found(name, facts, isFile, searchPath);
        if (!path.isEmpty() && isFile(path))
            return path;
    }
    return {};
}

} // namespace

QString programOf(const ProcessFacts &facts, const IsFile &isFile, const QStringList &searchPath)
{
    if (!facts.flatpakId.isEmpty())
        return facts.flatpakId;
    if (QString snap = snapName(facts); !snap.isEmpty())
        return snap;

    QString program = facts.executable;
    const QString deleted = QStringLiteral(" (deleted)");
    if (program.endsWith(deleted) && !isFile(program))
        program.chop(deleted.size());
    // Programs started from an AppImage inherit its environment; only those inside are its own.
    if (!facts.appImage.isEmpty() && !facts.appImageFolder.isEmpty() &&
        program.startsWith(facts.appImageFolder + u'/'))
        return facts.appImage;
    if (program.isEmpty())
        program = commandProgram(facts, isFile, searchPath);

    const QString script = scriptOf(program, facts, isFile, searchPath);
    return script.isEmpty() ? program : script;
}

} // namespace norvane
