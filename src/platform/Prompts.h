#pragma once

#include <QString>

namespace norvane {

/// Questions to the user: message boxes now; file, folder, colour and font dialogs as they are used.
class Prompts
{
public:
    virtual ~Prompts();

    /// Values of @p style for messageBox(): icon plus buttons.
    enum Style {
        kOkOnly = 0,
        kYesNo = 4,
        kCritical = 16,
        kQuestion = 32,
        kExclamation = 48,
        kInformation = 64,
        kSystemModal = 4096, ///< stays above all windows
    };
    enum Answer { kOk = 1, kCancel = 2, kYes = 6, kNo = 7 };

    /// Shows a box and waits for the answer. Closing the box answers OK or No.
    virtual Answer messageBox(const QString &text, int style, const QString &title) = 0;
    /// Lets the user choose a folder that exists. Native path; empty when cancelled.
    virtual QString chooseFolder(const QString &title, const QString &start) = 0;
};

} // namespace norvane
