#include "windowlist/list/RunHistory.h"

#include "shell/settings_keys.h"

namespace norvane {

namespace {

QString keyOf(int number)
{
    return QStringLiteral("Command%1").arg(number, 2, 10, QLatin1Char('0'));
}

} // namespace

QStringList RunHistory::list() const
{
    QStringList lines;
    for (int number = 1; number <= kLines; ++number) {
        const QString line = m_settings.get(settings::kRunSection.toString(), keyOf(number), {});
        if (!line.isEmpty())
            lines.append(line);
    }
    return lines;
}

void RunHistory::add(const QString &line)
{
    const QStringList before = list();
    if (line.isEmpty() || line == before.value(0))
        return;
    QStringList lines = before;
    lines.removeAll(line);
    lines.prepend(line);
    lines = lines.mid(0, kLines);
    for (int number = 1; number <= lines.size(); ++number)
        m_settings.save(settings::kRunSection.toString(), keyOf(number), lines.at(number - 1));
}

} // namespace norvane
