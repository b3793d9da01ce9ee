#include "controls/plain_tool_tip.h"

#include <QTextDocument>

namespace norvane {

QString plainToolTip(const QString &text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

} // namespace norvane
