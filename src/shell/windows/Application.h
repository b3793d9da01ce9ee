#pragma once

#include <QApplication>
#include <functional>

namespace norvane {

class RuntimeError;

/// The toolkit's application: every event is delivered inside it. Errors that no routine has handled end up
/// here, so that none of them ends the program; and keys go straight to their window where nobody else wants
/// them.
///
/// This is the last resort. The toolkit's windows are built without exceptions: what an error passes on its
/// way up through them is not cleaned up. A slot in which errors are to be expected tells them itself.
class Application : public QApplication
{
    Q_OBJECT

public:
    using QApplication::QApplication;

    /// How such an error is told; the program goes on after it. One that comes while another is being
    /// told, and one that comes while nothing is set, goes to the standard error alone: a window that
    /// cannot be painted would ask for box upon box.
    void setErrorReport(std::function<void(const RuntimeError &)> report);

    /// @param areListenedTo whether another program listens to keys on the accessibility bus; asked at each
    ///                      key. While such a bus is there, the toolkit sends each key from the keyboard
    ///                      through it before a window gets it: late, out of order with the shortcuts, and
    ///                      on a busy machine not at all.
    void setKeysAreListenedTo(std::function<bool()> areListenedTo);

    bool notify(QObject *receiver, QEvent *event) override;

private:
    void tellOf(const RuntimeError &error);

    bool deliver(QObject *receiver, QEvent *event);

    std::function<void(const RuntimeError &)> m_report;
    std::function<bool()> m_keysAreListenedTo;
    bool m_telling = false;
};

} // namespace norvane
