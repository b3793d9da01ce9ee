#include "platform/linux/IniSettingsStore.h"

#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"
#include "platform/linux/SessionFolders.h"

#include <QFile>
#include <QFileInfo>
#include <sys/stat.h>

namespace norvane {

namespace {

constexpr int kFlushDelayMs = 300;

bool hasNoTextForm(const QString &text, qsizetype i)
{
    const QChar unit = text.at(i);
    if (unit < QChar(QChar::Space) || unit == QChar(0x7F))
        return true;
    // Half a surrogate pair cannot be written in UTF-8.
    if (unit.isHighSurrogate())
        return i + 1 >= text.size() || !text.at(i + 1).isLowSurrogate();
    if (unit.isLowSurrogate())
        return i == 0 || !text.at(i - 1).isHighSurrogate();
    return false;
}

QString hexadecimal(QChar unit)
{
    return QStringLiteral("\\x%1").arg(unit.unicode(), 4, 16, QChar(u'0'));
}

/// @param reserved characters that would end or change the meaning of the place where the text goes
QByteArray encode(const QString &text, QStringView reserved = {})
{
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar unit = text.at(i);
        const bool atEnd = i == 0 || i == text.size() - 1;
        if (unit == u'\\')
            result += QStringLiteral("\\\\");
        else if (unit == u'\n')
            result += QStringLiteral("\\n");
        else if (unit == u'\r')
            result += QStringLiteral("\\r");
        else if (unit == u'\t')
            result += QStringLiteral("\\t");
        else if (unit == u' ' && atEnd)
            result += QStringLiteral("\\s");
        else if (hasNoTextForm(text, i) || reserved.contains(unit) || (atEnd && unit.isSpace()))
            result += hexadecimal(unit);
        else
            result += unit;
    }
    return result.toUtf8();
}

/// A backslash before anything that is no escape stands for itself: people type paths here.
QString decode(const QByteArray &bytes)
{
    const QString text = QString::fromUtf8(bytes);
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar next = i + 1 < text.size() ? text.at(i + 1) : QChar();
        if (text.at(i) != u'\\' || next.isNull()) {
            result += text.at(i);
            continue;
        }
        bool isCode = false;
        const ushort code = next == u'x' ? QStringView(text).mid(i + 2, 4).toUShort(&isCode, 16) : ushort(0);
        if (isCode && i + 6 <= text.size()) {
            result += QChar(code);
            i += 5;
            continue;
        }
        static constexpr QStringView kLetters = u"\\nrts";
        static constexpr QStringView kMeanings = u"\\\n\r\t ";
        if (const qsizetype letter = kLetters.indexOf(next); letter >= 0) {
            result += kMeanings.at(letter);
            ++i;
        } else {
            result += text.at(i);
        }
    }
    return result;
}

/// One line of the file, taken apart.
struct Line
{
    enum Kind { Other, Section, Value } kind = Other;
    QString name;
    QString value;
};

Line parse(const QByteArray &line)
{
    const QByteArray text = line.trimmed();
    if (text.isEmpty() || text.startsWith('#') || text.startsWith(';'))
        return {};
    if (text.startsWith('[') && text.endsWith(']'))
        return {Line::Section, decode(text.mid(1, text.size() - 2).trimmed()), {}};
    const qsizetype equals = text.indexOf('=');
    if (equals < 0)
        return {};
    return {Line::Value, decode(text.left(equals).trimmed()), decode(text.mid(equals + 1).trimmed())};
}

QByteArray valueLine(const QString &key, const QString &value)
{
    return encode(key, u"=[#;") + '=' + encode(value);
}

} // namespace

IniSettingsStore::IniSettingsStore(QString file, FileSystem &files) : m_file(std::move(file)), m_files(files)
{
    m_flushTimer.setSingleShot(true);
    m_flushTimer.setInterval(kFlushDelayMs);
    m_flushTimer.callOnTimeout([this] { flush(); });
}

IniSettingsStore::~IniSettingsStore()
{
    flush();
}

QString IniSettingsStore::get(const QString &section, const QString &key, const QString &defaultValue) const
{
    readIfChanged();
    const QString written = m_values.value(section).value(key, defaultValue);
    return m_pending.value(section).value(key, written);
}

void IniSettingsStore::save(const QString &section, const QString &key, const QString &value)
{
    readIfChanged();
    const auto written = m_values.constFind(section);
    const bool unchanged =
        written != m_values.constEnd() && written->contains(key) && written->value(key) == value;
    if (!unchanged)
        m_pending[section].insert(key, value);
    else if (const auto pending = m_pending.find(section); pending != m_pending.end())
        pending->remove(key);
    if (!unchanged && !m_flushTimer.isActive())
        m_flushTimer.start();
}

QStringList IniSettingsStore::list(const QString &section) const
{
    readIfChanged();
    QMap<QString, QString> keys = m_values.value(section);
    keys.insert(m_pending.value(section));
    return keys.keys();
}

void IniSettingsStore::flush()
{
    m_flushTimer.stop();
    readIfChanged();
    // A file that is there and cannot be read must not be replaced by the few values known here.
    if (m_pending.isEmpty() || !m_readable)
        return;
    makeFolderWithParents(QFileInfo(m_file).path());
    try {
        m_files.write(m_file, linesWith(m_pending).join('\n') + '\n');
    } catch (const RuntimeError &) {
        return; // they hold while the program runs, and the next save tries again
    }
    m_pending.clear();
    m_readState.reset();
}

IniSettingsStore::FileState IniSettingsStore::currentState() const
{
    struct stat status = {};
    if (::stat(QFile::encodeName(m_file).constData(), &status) != 0)
        return {};
    return {status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

void IniSettingsStore::readIfChanged() const
{
    const FileState state = currentState();
    if (m_readState == state)
        return;
    m_readState = state;
    m_readable = true;
    m_lines.clear();
    m_values.clear();
    if (state == FileState())
        return;
    QByteArray bytes;
    try {
        bytes = m_files.read(m_file);
    } catch (const RuntimeError &) {
        m_readable = false;
        return;
    }
    if (bytes.endsWith('\n'))
        bytes.chop(1);
    m_lines = bytes.split('\n');
    QString section;
    for (const QByteArray &text : std::as_const(m_lines)) {
        const Line line = parse(text);
        if (line.kind == Line::Section)
            section = line.name;
        else if (line.kind == Line::Value)
            m_values[section].insert(line.name, line.value);
    }
}

/// The lines of the file with the changed values in their places: in the line of the key where
/// there is one, else at the end of the section, else in a new section.
QByteArrayList IniSettingsStore::linesWith(const Values &changes) const
{
    Values rest = changes;
    QByteArrayList lines;
    QString section;
    // Before the blank lines that set a section off from the next.
    const auto finishSection = [&] {
        qsizetype at = lines.size();
        while (at > 0 && lines.at(at - 1).trimmed().isEmpty())
            --at;
        const QMap<QString, QString> values = rest.take(section);
        for (auto value = values.constBegin(); value != values.constEnd(); ++value)
            lines.insert(at++, valueLine(value.key(), value.value()));
    };
    // A key may stand in several places; all say the same afterwards.
    for (const QByteArray &text : std::as_const(m_lines)) {
        const Line line = parse(text);
        if (line.kind == Line::Section) {
            finishSection();
            section = line.name;
        }
        const bool changed = line.kind == Line::Value && changes.value(section).contains(line.name);
        lines.append(changed ? valueLine(line.name, changes.value(section).value(line.name)) : text);
        if (changed)
            rest[section].remove(line.name);
    }
    finishSection();
    while (!rest.isEmpty()) {
        section = rest.firstKey();
        if (rest.value(section).isEmpty()) {
            rest.remove(section);
            continue;
        }
        if (!lines.isEmpty())
            lines.append(QByteArray());
        lines.append('[' + encode(section, u"[]") + ']');
        finishSection();
    }
    return lines;
}

} // namespace norvane
