#pragma once

#include "platform/Prompts.h"

#include <QQueue>
#include <QVector>
#include <functional>

namespace norvane::fakes {

/// Answers message boxes and folder choosers from a script and keeps what was asked.
///
/// A question without a scripted answer gets what closing the box gives: OK, or No.
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

    QVector<Box> boxes;
    QVector<FolderRequest> folderRequests;
    QQueue<Answer> answers; ///< for questions with Yes and No, in their order
    QQueue<QString> folders;
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

    QString chooseFolder(const QString &title, const QString &start) override
    {
        folderRequests.append({title, start});
        return folders.isEmpty() ? QString() : folders.dequeue();
    }
};

} // namespace norvane::fakes
