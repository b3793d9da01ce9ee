#include "windowlist/list/RunHistory.h"

#include "shell/numbered_settings.h"
#include "shell/settings_keys.h"

namespace norvane {

namespace {

const QString kName = QStringLiteral("Command");

} // namespace

QStringList RunHistory::list() const
{
    QStringList lines = settings::readNumbered(m_settings, settings::kRunSection, kName, kLines);
    lines.removeAll({});
    return lines;
}

void RunHistory::add(const QString &line)
{
    QStringList lines = list();
    if (line.isEmpty() || line == lines.value(0))
        return;
    lines.removeAll(line);
    lines.prepend(line);
    settings::saveNumbered(m_settings, settings::kRunSection, kName, lines.mid(0, kLines));
}

} // namespace norvane
