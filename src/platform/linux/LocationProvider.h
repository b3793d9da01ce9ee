#pragma once

#include "platform/WindowHandle.h"

#include <QDeadlineTimer>
#include <QRect>
#include <QString>
#include <stop_token>

namespace norvane {

/// One question for the location of one window.
struct LookUpRequest
{
    WindowHandle window = kNoWindow;
    qint64 processId = 0;
    bool browser = false;    ///< a web browser's window; else a file manager's
    QString caption;         ///< as the window system tells it now
    QRect rect;              ///< client area, device pixels of the desktop
    bool foreground = false; ///< the user works in this window
    QString lastLocation;    ///< last known answer for the window; may be empty
    bool sameCaption = true; ///< the last known answer belongs to this very caption
    QDeadlineTimer deadline; ///< when the asker stops waiting
    std::stop_token stop;    ///< the asker has gone
};

struct LookUpResult
{
    enum class Outcome {
        Found,    ///< location is the answer
        NotReady, ///< the program does not tell yet; ask again in a moment
        NoAnswer, ///< the program did not answer in time
        None,     ///< the window has no location that could be told
    };
    Outcome outcome = Outcome::None;
    QString location;
};

/// Tells the locations of one program's windows.
///
/// An object serves one process and is used by one thread, which is not the main thread: find() may
/// wait for the program, at most until the deadline of the request.
class LocationProvider
{
public:
    virtual ~LocationProvider() = default;

    virtual LookUpResult find(const LookUpRequest &request) = 0;
    /// The window has gone; what was kept of it may go too.
    virtual void forget(WindowHandle window) = 0;
};

} // namespace norvane
