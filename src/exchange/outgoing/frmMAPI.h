#pragma once

#include <QString>

namespace norvane {

class Mail;
class NoteStore;
class Prompts;
struct MailMessage;

/// Sends one note as a mail. It has no window of its own: the mail program shows one.
class frmMAPI
{
public:
    /// All must outlive it.
    frmMAPI(const NoteStore &store, Mail &mail, Prompts &prompts)
        : m_store(store), m_mail(mail), m_prompts(prompts)
    {
    }

    /// Puts the note, as it is stored, before the user as a mail. Nothing happens when it is gone, and
    /// nothing is told when it fails, but that there is no mail program.
    void SendNorvane(int ID);

private:
    void send(int ID);
    MailMessage messageOf(int ID, const QString &FriendlyName, const QString &URL) const;

    const NoteStore &m_store;
    Mail &m_mail;
    Prompts &m_prompts;
};

} // namespace norvane
