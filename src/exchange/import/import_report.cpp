#include "exchange/import/import_report.h"

#include "exchange/import/NoteImport.h"

namespace norvane {

QString importReport(const ImportResult &result, qsizetype wanted)
{
    QString text =
        QString::number(result.imported) + QStringLiteral(" Note(s) has been successfully imported.");
    if (result.bypassed > 0)
        text += QStringLiteral("\r\n") + QString::number(result.bypassed) +
                QStringLiteral(" Identical note(s) bypassed.");
    if (result.isStopped)
        text += QStringLiteral("\r\nStopped: %1 selected note(s) left.")
                    .arg(wanted - result.imported - result.bypassed);
    return text;
}

QString importFailureReport(const ImportResult &result, qsizetype wanted)
{
    return QStringLiteral("Error Importing Records.\r\n\r\n%1\r\n%2")
        .arg(importProgressText(result, wanted), result.failure ? result.failure->description() : QString());
}

QString importProgressText(const ImportResult &result, qsizetype wanted)
{
    return QStringLiteral("%1 of %2 note(s) imported, %3 identical bypassed.")
        .arg(result.imported)
        .arg(wanted)
        .arg(result.bypassed);
}

} // namespace norvane
