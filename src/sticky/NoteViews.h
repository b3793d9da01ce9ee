#pragma once

#include <QString>

namespace norvane {

class NV_RTFEdit;

/// Windows and services that a note's menu leads to.
class NoteViews
{
public:
    virtual ~NoteViews() = default;

    enum class View { Mail, OpenNote, Outlook, Properties };
    /// Whether there is one. Menu entries of the others are disabled.
    virtual bool has(View view) const = 0;

    /// Hands a note over to be sent by mail, as it is stored.
    virtual void SendNorvane(int ID) = 0;
    /// Shows the picker of notes, which puts the contents of the chosen one into an editor.
    virtual void showOpenNote(NV_RTFEdit &RTFObj, const QString &caption) = 0;
    /// Makes a note of the organizer from a text.
    virtual void exportToOutlook(const QString &text) = 0;
    virtual void ShowPropertyPage(int ID) = 0;
};

} // namespace norvane
