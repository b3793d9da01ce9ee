#pragma once

#include "platform/Mail.h"
#include "platform/linux/SessionFolders.h"

namespace norvane {

/// The mail program of a Linux session, reached by `xdg-email`, or by the session's portal for mail where
/// there is no xdg-email.
///
/// An attachment goes as a copy of its file, in a folder that is the user's alone. The mail program reads it
/// when the user sends the mail, which may be long after this program has ended: copies go when they are a
/// day old, or with the session.
class LinuxMail : public Mail
{
public:
    /// Removes the copies that are old.
    explicit LinuxMail(SessionFolders folders = SessionFolders::fromEnvironment());

    bool isSetUp() const override;
    void compose(const MailMessage &message) override;

private:
    SessionFolders m_folders;
};

} // namespace norvane
