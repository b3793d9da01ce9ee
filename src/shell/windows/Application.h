#pragma once

#include <QApplication>
#include <functional>

namespace norvane {

class RuntimeError;

/// The toolkit's application, and the one place where errors end up that no routine has handled: every
/// event is delivered inside it, so that none of them goes up through the toolkit.
class Application : public QApplication
{
    Q_OBJECT

public:
    using QApplication::QApplication;

    /// How such an error is told; the program goes on after it. One that comes while another is being
    /// told, and one that comes while nothing is set, goes to the standard error alone: a window that
    /// cannot be painted would ask for box upon box.
    void setErrorReport(std::function<void(const RuntimeError &)> report);

    bool notify(QObject *receiver, QEvent *event) override;

private:
    void tellOf(const RuntimeError &error);

    std::function<void(const RuntimeError &)> m_report;
    bool m_telling = false;
};

} // namespace norvane
