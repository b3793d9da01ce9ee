#include "platform/linux/BrowserProvider.h"

#include "platform/linux/DesktopBuses.h"
#include "platform/linux/location_text.h"

namespace norvane {

namespace {

const QString kChromiumAddress = QStringLiteral("URI");
const QString kFirefoxAddress = QStringLiteral("DocURL");

} // namespace

BrowserProvider::BrowserProvider(const DesktopBuses &buses) : m_buses(buses), m_frames(buses) {}

void BrowserProvider::forget(WindowHandle window)
{
    m_frames.forget(window);
    m_addressBars.remove(window);
}

LookUpResult BrowserProvider::find(const LookUpRequest &request)
{
    using Outcome = LookUpResult::Outcome;
    const auto bus = m_buses.accessibility();
    if (!bus)
        return {m_buses.settled() ? Outcome::None : Outcome::NotReady, {}};
    if (!m_frames.hasProgram(request.processId)) {
        // With the switch off browsers stay away; with it on they may still be on their way.
        return {m_buses.accessibilityEnabled().value_or(true) ? Outcome::NotReady : Outcome::None, {}};
    }
    ProgramCalls calls(*bus, request);
    LookUpResult result = ask(request, calls);
    if (result.outcome == Outcome::NotReady && !calls.ranOut()) {
        // A kept frame may be one that the browser has made anew.
        forget(request.window);
        result = ask(request, calls);
    }
    return calls.ranOut() ? LookUpResult{Outcome::NoAnswer, {}} : result;
}

LookUpResult BrowserProvider::ask(const LookUpRequest &request, ProgramCalls &calls)
{
    LookUpResult notReady{LookUpResult::Outcome::NotReady, {}};
    const AccessibleObject frame = m_frames.frameOf(request, calls);
    if (frame.isNull())
        return notReady;
    // Chromium builds its tree only for those who ask for a relation or an attribute.
    const AccessibleObject document = calls.embeddedDocument(frame);
    if (document.isNull())
        return notReady;

    QString address;
    for (const QString &attribute : {kChromiumAddress, kFirefoxAddress}) {
        if (!m_attribute.isEmpty() && m_attribute != attribute)
            continue;
        address = calls.documentAttribute(document, attribute);
        if (!address.isEmpty()) {
            m_attribute = attribute;
            break;
        }
    }
    if (address.isEmpty())
        return notReady;
    // Firefox tells the address that a script has set, Chromium only that of the last document.
    if (m_attribute == kChromiumAddress)
        address = pageAddress(address, shownAddress(request, frame, calls));
    return {LookUpResult::Outcome::Found, address};
}

/// The text of the address bar, unless the user is about to change it.
QString BrowserProvider::shownAddress(const LookUpRequest &request, const AccessibleObject &frame,
                                      ProgramCalls &calls)
{
    AccessibleObject &bar = m_addressBars[request.window];
    if (bar.isNull())
        bar = calls.matches(frame, {ProgramCalls::kRoleEntry}, 1).value(0);
    if (bar.isNull() || (calls.state(bar) >> ProgramCalls::kStateFocused & 1) != 0)
        return {};
    QString text = calls.text(bar);
    if (text.isEmpty())
        bar = {};
    return text;
}

} // namespace norvane
