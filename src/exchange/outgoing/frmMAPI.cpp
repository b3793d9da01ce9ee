#include "exchange/outgoing/frmMAPI.h"

#include "platform/FileSystem.h"
#include "platform/Mail.h"
#include "platform/RuntimeError.h"
#include "shell/internal_error.h"
#include "store/NoteStore.h"
#include "store/note_row.h"

namespace norvane {

namespace {

/// A line break in a subject would begin another header.
QString inOneLine(QString text)
{
    for (QChar &unit : text) {
        if (unit.category() == QChar::Other_Control || unit.category() == QChar::Separator_Line ||
            unit.category() == QChar::Separator_Paragraph)
            unit = u' ';
    }
    return text;
}

} // namespace

void frmMAPI::SendNorvane(int ID)
{
    try {
        send(ID);
    } catch (const RuntimeError &) {
        return;
    }
}

void frmMAPI::send(int ID)
{
    const auto note = openNoteRow(m_store, ID, QStringLiteral("FriendlyName,URL"));
    if (note->eof())
        return;
    if (!m_mail.isSetUp()) {
        tell(m_prompts,
             QStringLiteral("There is no mail program to send the note with. Install one, or choose "
                            "yours in the desktop's settings for default applications."));
        return;
    }
    m_mail.compose(messageOf(ID, note->field(QStringLiteral("FriendlyName")).toString(),
                             note->field(QStringLiteral("URL")).toString()));
}

MailMessage frmMAPI::messageOf(int ID, const QString &FriendlyName, const QString &URL) const
{
    MailMessage message;
    message.subject = inOneLine(FriendlyName);
    message.body = URL.isEmpty() ? QStringLiteral(" ") : URL; // an attachment needs a place in it
    if (const QString body = m_store.bodyFile(ID); m_store.files().exists(body)) {
        message.attachmentFile = body;
        message.attachmentName = QStringLiteral("Norvane Note.rtf");
        message.attachmentPosition = message.body.size() - 1;
    }
    return message;
}

} // namespace norvane
