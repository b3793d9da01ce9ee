#pragma once

#include "platform/WindowEmbedding.h"

#include <QHash>
#include <memory>

class QTimer;

namespace norvane {

class X11WindowSystem;

/// Notes inside foreign windows: frameless tool windows with the target as transient parent.
///
/// A window that is truly reparented never gets the keyboard, so the note stays a top-level window
/// and the window manager stacks it, minimises it and keeps it on the workspace with its target.
/// This class moves it along, clips it to the target's client area, and hides it by an empty clip
/// while the target is not to be seen and the window manager left the note standing. The note is
/// therefore mapped once, when its owner shows it.
///
/// A note must be a `Qt::Tool | Qt::FramelessWindowHint` window, as QWidget or as QWindow.
class X11WindowEmbedding final : public WindowEmbedding
{
    Q_OBJECT

public:
    /// @param windows knows the targets; must outlive this object
    explicit X11WindowEmbedding(X11WindowSystem &windows);
    ~X11WindowEmbedding() override;

    void setParent(WindowHandle window, WindowHandle target) override;
    WindowHandle parentOf(WindowHandle window) const override;
    void moveWindow(WindowHandle window, const QRect &rect) override;
    QRect windowRect(WindowHandle window) const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Note;

    Note *find(WindowHandle window) const;
    void free(WindowHandle window);
    void prepareForMap(Note &note);
    void handBackKeyboard(Note &note);
    void arrange(Note &note);
    void place(Note &note);
    QRect targetRect(const Note &note) const;
    QRect onDesktop(const Note &note) const;
    QRect insideTarget(const Note &note) const;
    void clip(Note &note);
    bool targetIsSeen(const Note &note) const;
    void keepWorkspace(const Note &note);
    void takePlacement(WindowHandle window);
    void takeOwnPlacement(Note &note);
    void accept();
    void takeDestroyed(WindowHandle target);

    X11WindowSystem &m_windows;
    QHash<WindowHandle, std::shared_ptr<Note>> m_notes;
    std::unique_ptr<QTimer> m_acceptance; ///< ends the wait for answers to our own requests
};

} // namespace norvane
