#pragma once

#include "platform/linux/LocationProvider.h"

#include <QObject>
#include <QThread>
#include <functional>
#include <memory>

namespace norvane {

/// The look-ups at one program, one after the other in a thread of their own: a program that hangs
/// delays nothing but these.
class ProgramQueue
{
public:
    using Done = std::function<void(const LookUpResult &)>;

    explicit ProgramQueue(std::unique_ptr<LocationProvider> provider);
    /// Waits for the look-up under way; those behind it are dropped.
    ~ProgramQueue();
    ProgramQueue(const ProgramQueue &) = delete;
    ProgramQueue &operator=(const ProgramQueue &) = delete;

    /// @param done called in the queue's thread
    void ask(LookUpRequest request, const Done &done);
    /// The same, but a program that is not ready is asked again until the request's deadline.
    void askUntilReady(LookUpRequest request, const Done &done);
    void forget(WindowHandle window);

    /// Asks the thread to end soon; hasEnded() tells when the object can be destroyed without a wait.
    void end();
    bool hasEnded() const { return m_thread.isFinished(); }

private:
    void findUntilReady(const LookUpRequest &request, const Done &done);

    std::stop_source m_stop;
    QThread m_thread;
    std::unique_ptr<LocationProvider> m_provider; ///< used in the thread only
    QObject m_inThread;                           ///< lives in the thread
};

} // namespace norvane
