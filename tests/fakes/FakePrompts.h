#pragma once

#include "platform/Prompts.h"

#include <QPair>
#include <QQueue>
#include <QStringList>
#include <QVector>
#include <functional>
#include <optional>
#include <type_traits>

namespace norvane::fakes {

/// Replaces what a queue of answers holds.
template <typename Item> void script(QQueue<Item> &queue, const QList<std::type_identity_t<Item>> &items)
{
    queue.clear();
    queue.append(items);
}

/// Answers message boxes and choosers from a script and keeps what was asked.
///
/// A question without a scripted answer gets what closing the box gives: OK, No, or cancelled.
class FakePrompts : public Prompts
{
public:
    struct Box
    {
        QString text;
        int style = 0;
        QString title;
    };
    struct FolderRequest
    {
        QString title;
        QString start;
    };

    struct SaveRequest
    {
        QString title;
        QString filter;
        QString extension;
        QString name;
    };

    QVector<Box> boxes;
    QVector<FolderRequest> folderRequests;
    QQueue<Answer> answers; ///< for questions with Yes and No, in their order
    QQueue<QString> inputs;
    QStringList inputRequests; ///< "text|title|start"
    QQueue<QString> folders;
    QQueue<QString> files;
    QQueue<std::optional<quint32>> colors;
    QQueue<std::optional<FontChoice>> fonts;
    QVector<QPair<QString, QString>> fileRequests; ///< title and filter
    QStringList fileStarts;                        ///< their start folders
    QVector<SaveRequest> saveRequests;
    QVector<quint32> colorRequests;
    QVector<FontChoice> fontRequests;
    /// Runs while a box stands open, before it is answered.
    std::function<void(const Box &)> duringBox;

    Answer messageBox(const QString &text, int style, const QString &title) override
    {
        boxes.append({text, style, title});
        if (duringBox)
            duringBox(Box{text, style, title});
        if ((style & kYesNo) == 0)
            return kOk;
        return answers.isEmpty() ? kNo : answers.dequeue();
    }

    QString inputBox(const QString &text, const QString &title, const QString &start) override
    {
        inputRequests.append(text + u'|' + title + u'|' + start);
        return inputs.isEmpty() ? QString() : inputs.dequeue();
    }

    QString chooseFolder(const QString &title, const QString &start) override
    {
        folderRequests.append({title, start});
        return folders.isEmpty() ? QString() : folders.dequeue();
    }

    QString openFile(const QString &title, const QString &filter, const QString &start) override
    {
        fileRequests.append({title, filter});
        fileStarts.append(start);
        return files.isEmpty() ? QString() : files.dequeue();
    }

    QString saveFile(const QString &title, const QString &filter, const QString &extension,
                     const QString &name) override
    {
        saveRequests.append({title, filter, extension, name});
        return files.isEmpty() ? QString() : files.dequeue();
    }

    std::optional<quint32> chooseColor(quint32 start) override
    {
        colorRequests.append(start);
        return colors.isEmpty() ? std::nullopt : colors.dequeue();
    }

    std::optional<FontChoice> chooseFont(const FontChoice &start) override
    {
        fontRequests.append(start);
        return fonts.isEmpty() ? std::nullopt : fonts.dequeue();
    }
};

} // namespace norvane::fakes
