// The links of NV_RTFEdit: words that look like addresses get the look of links, and open.

#include "richtext/NV_RTFEdit.h"
#include "richtext/commands/EditState.h"
#include "richtext/format_conversion.h"
#include "richtext/links/document_scan.h"
#include "richtext/links/open_link.h"
#include "richtext/links/word_checks.h"

#include <QPointer>
#include <QScrollBar>
#include <QTextDocument>
#include <QTimer>
#include <cmath>

namespace norvane {
namespace {

constexpr int kEnter = 13;
constexpr int kBlank = 32;
constexpr int kControl = 2;
constexpr int kHand = 99;
constexpr int kDefaultPointer = 0;

} // namespace

void NV_RTFEdit::setAutoURLDetect(bool on)
{
    mAutoURLDetect = on;
    if (!on) {
        if (m_box->MousePointer() == kHand)
            m_box->setMousePointer(kDefaultPointer);
        return;
    }
    const links::DocumentScan scan = links::scanDocument(m_box->Text());
    if (scan.caret < 0)
        return;
    // A text that was only just loaded stays one in which there is nothing to undo.
    QTextDocument *document = m_box->document();
    const bool fresh = !document->isUndoAvailable() && !document->isRedoAvailable();
    if (fresh)
        document->setUndoRedoEnabled(false);
    m_box->applyLinkLook(scan.links);
    if (fresh)
        document->setUndoRedoEnabled(true);
    // The caret is where the last link was found; what the reader sees stays where it is.
    const int x = m_box->horizontalScrollBar()->value();
    const int y = m_box->verticalScrollBar()->value();
    m_box->setSelStart(scan.caret);
    m_box->horizontalScrollBar()->setValue(x);
    m_box->verticalScrollBar()->setValue(y);
}

void NV_RTFEdit::boxKeyPress(int &key)
{
    emit KeyPress(key);
    // A key that does not go in has no word before it.
    if (mAutoURLDetect && (key == kEnter || key == kBlank) && m_box->mayChangeSelection())
        checkTypedWord();
}

/// The key has not been inserted yet.
void NV_RTFEdit::checkTypedWord()
{
    const int caret = m_box->SelStart();
    if (caret > links::kLastCheckedPosition)
        return;
    const auto check = links::typingCheck(m_box->textBefore(caret, links::kLongestPrefix), caret);
    if (!check)
        return;
    if (!check->link) {
        m_box->setSelStart(caret);
        return;
    }
    const std::optional<quint32> color = m_box->SelColor();
    const std::optional<bool> underline = m_box->SelUnderline();
    m_box->applyLinkLook({*check->link});
    m_box->setSelStart(caret);
    // What is typed goes in with the old format. A mixed one cannot be given back.
    if (!color)
        return;
    m_box->setSelColor(*color);
    if (underline)
        m_box->setSelUnderline(*underline);
}

void NV_RTFEdit::boxMouseMove(int button, int shift, double x, double y)
{
    emit MouseMove(button, shift, x, y);
    if (mAutoURLDetect && shift != kControl)
        m_services.state.CurrentURL = wordUnderPointer(x, y);
}

/// Sets pointer and tool tip as well.
QString NV_RTFEdit::wordUnderPointer(double x, double y)
{
    const double twips = twipsPerPixel();
    const auto pixels = [twips](double length) { return int(std::floor(length / twips + 1e-6)); };
    m_storedLink.clear();
    const int position = m_box->CharFromPos({pixels(x), pixels(y)});
    const links::PointedWord word = links::wordAt(m_box->paragraphAround(position), position);
    switch (word.place) {
    case links::PointedWord::Place::Nowhere:
        break;
    case links::PointedWord::Place::BehindLineEnd:
        m_box->setToolTip({});
        m_box->setMousePointer(kDefaultPointer);
        break;
    case links::PointedWord::Place::Word:
        if (!word.isLink)
            m_storedLink = m_box->storedLinkAt(position);
        m_box->setMousePointer(word.isLink || !m_storedLink.isEmpty() ? kHand : kDefaultPointer);
        break;
    }
    return word.word;
}

void NV_RTFEdit::boxKeyDown(int code, int shift)
{
    // With the Ctrl key down a link can be clicked into; the next move brings the hand back.
    if (shift == kControl && m_box->MousePointer() == kHand)
        m_box->setMousePointer(kDefaultPointer);
    if (code == kEnter && shift == kControl)
        openLater(m_box->selectedObject());
    emit KeyDown(code, shift);
}

void NV_RTFEdit::boxClick()
{
    const QPointer<NV_RTFEdit> self(this);
    emit Click();
    if (!self || !mAutoURLDetect || m_box->MousePointer() != kHand)
        return;
    QStringList addresses = links::addressesToOpen(m_services.state.CurrentURL);
    if (!m_storedLink.isEmpty())
        addresses = {m_storedLink};
    // A question may take the editor away with its window: none is asked while the box handles its
    // event, and the services stay.
    QTimer::singleShot(0, this, [services = m_services, addresses] {
        for (const QString &address : addresses)
            links::openLink(address, services.shell, services.prompts);
    });
}

} // namespace norvane
