#include "platform/linux/AccessibleFrames.h"

#include "platform/linux/DesktopBuses.h"
#include "platform/linux/LocationProvider.h"
#include "platform/linux/frame_matching.h"

namespace norvane {

namespace {

/// A program with more top-level windows than this is not asked for each of them.
constexpr int kMostFrames = 200;

const QString kRoot = QStringLiteral("/org/a11y/atspi/accessible/root");

} // namespace

bool AccessibleFrames::hasProgram(qint64 processId) const
{
    return !m_buses.servicesOf(processId).isEmpty();
}

bool AccessibleFrames::isTaken(const AccessibleObject &frame) const
{
    return std::any_of(m_pairs.begin(), m_pairs.end(), [&frame](const AccessibleObject &pair) {
        return pair.path == frame.path && pair.service == frame.service;
    });
}

AccessibleObject AccessibleFrames::frameOf(const LookUpRequest &request, ProgramCalls &calls)
{
    if (const auto pair = m_pairs.constFind(request.window); pair != m_pairs.cend())
        return *pair;

    QVector<AccessibleObject> objects;
    QVector<AccessibleFrame> frames;
    const QStringList services = m_buses.servicesOf(request.processId);
    for (const QString &service : services) {
        const QVector<AccessibleObject> children = calls.children({service, kRoot});
        for (const AccessibleObject &child : children) {
            if (calls.ranOut() || objects.size() >= kMostFrames)
                break;
            if (child.isNull() || isTaken(child))
                continue;
            const QString name = calls.name(child);
            if (name.isEmpty() && !request.caption.isEmpty())
                continue;
            objects.append(child);
            frames.append({child.service, child.path, name, calls.extents(child),
                           (calls.state(child) >> ProgramCalls::kStateActive & 1) != 0});
        }
    }
    const FrameMatch match = matchFrame(frames, request.caption, request.rect, request.foreground);
    if (match.index < 0 || calls.ranOut())
        return {};
    if (match.sure)
        m_pairs.insert(request.window, objects.at(match.index));
    return objects.at(match.index);
}

} // namespace norvane
