#pragma once

#include <QObject>

class QSocketNotifier;

namespace norvane {

/// Turns the signals that ask a program to end (SIGTERM, SIGINT, SIGHUP) into an event.
///
/// They are taken from the process as long as the object lives; one object at a time.
class EndSignals : public QObject
{
    Q_OBJECT

public:
    explicit EndSignals(QObject *parent = nullptr);
    ~EndSignals() override;

signals:
    /// The program should end. A second signal is told again.
    void endAsked();

private:
    int m_descriptor;
    QSocketNotifier *m_notifier;
};

} // namespace norvane
