#pragma once

#include <QString>
#include <memory>

namespace norvane::test {

/// A session manager with one program in its session. It asks for saving and ends the session.
///
/// Needs the event loop. One object at a time: the library below has one set of handlers.
class SessionManager
{
public:
    SessionManager();
    ~SessionManager();
    SessionManager(const SessionManager &) = delete;
    SessionManager &operator=(const SessionManager &) = delete;

    /// What programs of the session find in SESSION_MANAGER; empty when nothing listens.
    QString address() const;
    /// Whether a program has joined and has been answered.
    bool hasClient() const;

    /// Asks for saving since the session is about to end; hasSaved() turns true with the answer.
    void askToSave();
    bool hasSaved() const;
    /// The session does not end after all.
    void cancel();
    /// It does.
    void die();

private:
    struct Private;
    std::unique_ptr<Private> m_d;
};

} // namespace norvane::test
