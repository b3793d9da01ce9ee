#pragma once

#include "watcher/NoteViews.h"

#include <QStringList>
#include <functional>

namespace norvane::fakes {

/// Keeps what was asked for, a line each: "mail 7", "editor 7 Title|Location".
class FakeNoteViews : public NoteViews
{
public:
    QStringList opened;
    QStringList chosenCategories;        ///< in the dialog with the proposed ones
    std::function<void()> duringNewNote; ///< while the dialog stands open

    void showNewNote() override
    {
        opened.append(QStringLiteral("new note"));
        if (duringNewNote)
            duringNewNote();
    }
    void showEditor(int ID, const QString &title, const QString &location) override
    {
        opened.append(QStringLiteral("editor %1 %2|%3").arg(ID).arg(title, location));
    }
    void ShowPropertyPage(int ID) override { opened.append(QStringLiteral("properties %1").arg(ID)); }
    void ShowPropertyPage(NoteGrid &) override { opened.append(QStringLiteral("properties of rows")); }
    void showSearch(std::optional<int> category) override
    {
        opened.append(QStringLiteral("search ") +
                      (category ? QString::number(*category) : QStringLiteral("as chosen")));
    }
    void showCategories() override { opened.append(QStringLiteral("categories")); }
    QStringList chooseCategories() override { return chosenCategories; }
    void SendNorvane(int ID) override { opened.append(QStringLiteral("mail %1").arg(ID)); }
    void AddToFavorites(const QString &title, const QString &location) override
    {
        opened.append(QStringLiteral("favorite %1|%2").arg(title, location));
    }
    void showOpenNote(NV_RTFEdit &, const QString &caption) override { opened.append(caption); }
    void dropItems(const QStringList &files, const QString &text) override
    {
        opened.append(QStringLiteral("drop ") + (files.isEmpty() ? text : files.join(u'|')));
    }
    void exportToOutlook(const QString &text) override { opened.append(QStringLiteral("outlook ") + text); }
};

} // namespace norvane::fakes
