#pragma once

#include <QString>

namespace norvane {

class OutlookNotes;
class Prompts;

/// Makes a note of Outlook out of a note's plain text, and tells how it went. Raises nothing.
void ExportToOutlook(OutlookNotes &outlook, Prompts &prompts, const QString &text);

} // namespace norvane
