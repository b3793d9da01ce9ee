#pragma once

#include <QString>

namespace norvane {

/// One mail without an address, as it is put before the user.
struct MailMessage
{
    QString subject; ///< one line; may be empty
    QString body;    ///< lines end in line feeds; not empty

    QString attachmentFile = {}; ///< native path of the file that goes with it; empty for none
    QString attachmentName = {}; ///< what the file is called in the mail, whatever it is called where it is
    /// Where in the body a mail program shows the attachment, if it has it there: the position of a
    /// character, from 0.
    qsizetype attachmentPosition = 0;
};

/// The mail program of the user.
class Mail
{
public:
    virtual ~Mail();

    /// Whether there is one. Waits for no other program.
    virtual bool isSetUp() const = 0;
    /// Shows a message in the mail program's own window, where the user finishes it and sends it or not.
    /// Does not wait for that; the attachment is taken as the file is now. Raises 5 when no mail program
    /// could be started, and 53, 75 or 3026 when the attachment cannot be read or copied.
    virtual void compose(const MailMessage &message) = 0;
};

} // namespace norvane
