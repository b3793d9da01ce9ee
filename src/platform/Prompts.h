#pragma once

#include <QString>
#include <optional>

namespace norvane {

/// A font with its effects, as a font dialog has them.
struct FontChoice
{
    QString family;
    double points = 10;
    bool bold = false;
    bool italic = false;
    bool strikeThru = false;
    bool underline = false;
    quint32 color = 0; ///< blue-green-red; 0 is black

    bool operator==(const FontChoice &) const = default;
};

/// Questions to the user: message boxes, and dialogs that choose files, folders, colours and fonts.
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
        kForeground = 65536, ///< comes before all windows when it opens
    };
    enum Answer { kOk = 1, kCancel = 2, kYes = 6, kNo = 7 };

    /// Shows a box and waits for the answer. Closing the box answers OK or No.
    virtual Answer messageBox(const QString &text, int style, const QString &title) = 0;
    /// Asks for a line of text. Empty when cancelled.
    /// @param start what stands there when the box opens
    virtual QString inputBox(const QString &text, const QString &title, const QString &start) = 0;
    /// Lets the user choose a folder that exists. Native path; empty when cancelled.
    virtual QString chooseFolder(const QString &title, const QString &start) = 0;
    /// Lets the user choose a file that exists. Native path; empty when cancelled.
    /// @param filter kinds of files, each with its pattern: "Plain Text (TXT)|*.txt|All|*.*"
    /// @param start  folder that is shown first; the home folder where it is empty or not there
    virtual QString openFile(const QString &title, const QString &filter, const QString &start = {}) = 0;
    /// Lets the user name a file to write, and asks before one that exists. Native path; empty when
    /// cancelled.
    /// @param extension of a name that is given without one: "rtf"
    /// @param name      is proposed; without a folder
    virtual QString saveFile(const QString &title, const QString &filter, const QString &extension,
                             const QString &name = {}) = 0;
    /// Lets the user choose a colour, in blue-green-red byte order. Nothing when cancelled.
    virtual std::optional<quint32> chooseColor(quint32 start) = 0;
    /// Lets the user choose a font with its effects and colour. Nothing when cancelled.
    virtual std::optional<FontChoice> chooseFont(const FontChoice &start) = 0;
};

} // namespace norvane
