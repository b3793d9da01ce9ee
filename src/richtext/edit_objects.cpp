// The embedded objects of NV_RTFEdit: how they come into the text, and open.

#include "richtext/NV_RTFEdit.h"
#include "richtext/commands/EditState.h"
#include "richtext/commands/open_object.h"
#include "richtext/frmOle.h"

#include "platform/RuntimeError.h"
#include "shell/internal_error.h"

#include <QPointer>
#include <QTextDocument>
#include <QTimer>

namespace norvane {

namespace {

/// A narrower column does not make an object smaller.
constexpr int kNarrowestColumn = 120;

frmOle::Room roomOf(const RichTextBox &box)
{
    const int margins = 2 * qRound(box.document()->documentMargin());
    return {RichTextBox::kLargestEmbedded - box.embeddedBytes(),
            qMax(kNarrowestColumn, box.viewport()->width() - margins)};
}

} // namespace

void NV_RTFEdit::mnu_insert_obj()
{
    if (!m_box->mayChangeSelection())
        return;
    const QPointer<NV_RTFEdit> self(this);
    Prompts &prompts = m_services.prompts;
    // On the heap: its parent may be a note that goes while the dialog stands open.
    const QPointer<frmOle> helper = new frmOle(m_services.files, prompts, roomOf(*m_box), window());
    bool failed = false;
    try {
        helper->exec();
        const std::optional<rtf::Picture> object = helper ? helper->OLE1() : std::nullopt;
        if (object && self && m_box->mayChangeSelection())
            m_box->addOleObject(*object);
    } catch (const RuntimeError &) {
        failed = true;
    }
    delete helper.data();
    if (failed)
        prompts.messageBox(tr("Error"), Prompts::kOkOnly, kApplicationTitle.toString());
}

void NV_RTFEdit::openLater(const std::shared_ptr<const rtf::EmbeddedObject> &object)
{
    if (!object)
        return;
    // The question may take the editor away with its window: none is asked while the box handles its
    // event, and the services stay.
    QTimer::singleShot(0, this, [services = m_services, object] {
        openObject(*object, services.shell, services.prompts, services.state.extracted);
    });
}

} // namespace norvane
