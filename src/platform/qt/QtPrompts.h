#pragma once

#include "platform/Prompts.h"

namespace norvane {

/// Message boxes and choosers of the desktop's look. Texts are shown as they are, never as markup.
class QtPrompts : public Prompts
{
public:
    /// A question has No as its default button and as the answer to Escape.
    Answer messageBox(const QString &text, int style, const QString &title) override;
    QString inputBox(const QString &text, const QString &title, const QString &start) override;
    QString chooseFolder(const QString &title, const QString &start) override;
    QString openFile(const QString &title, const QString &filter, const QString &start = {}) override;
    QString saveFile(const QString &title, const QString &filter, const QString &extension,
                     const QString &name = {}) override;
    std::optional<quint32> chooseColor(quint32 start) override;
    std::optional<FontChoice> chooseFont(const FontChoice &start) override;
};

/// The text of a box: any line end as one that the box knows, with places to break lines in words of great
/// length, and cut in the end where it would outgrow the screen: an address or a title may run to thousands
/// of characters.
QString textForBox(const QString &text);

/// The kinds of files of openFile() as a file dialog takes them; a pattern finds names in upper case
/// too.
QStringList nameFilters(const QString &filter);

} // namespace norvane
