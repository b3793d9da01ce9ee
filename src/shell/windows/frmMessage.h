#pragma once

#include "shell/Forms.h"

#include <QTimer>
#include <QWidget>

class QLabel;

namespace norvane {

class Sound;
class WindowSystem;

/// A short notice without frame or buttons: it comes to the front with a beep and goes by itself
/// after its time, at a click or at a key. Nothing is queued: callers look whether one is loaded.
class frmMessage : public QWidget, public Form
{
    Q_OBJECT

public:
    /// Adds itself to @p forms; all three must outlive it.
    frmMessage(FormList &forms, WindowSystem &windows, Sound &sound);
    ~frmMessage() override;

    /// The standing text is "Norvane does not support this window type.".
    void setText(const QString &text);
    QString text() const;
    /// How long the notice stands; 3000 milliseconds unless told otherwise.
    void setDuration(int milliseconds) { m_timer.setInterval(milliseconds); }
    /// Shows the notice in the middle of the primary screen, in front, with a beep.
    void Show();

    QString formName() const override;
    WindowHandle hWnd() const override;
    void unload() override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    FormList &m_forms;
    WindowSystem &m_windows;
    Sound &m_sound;
    QLabel *m_label;
    QTimer m_timer{this};
};

} // namespace norvane
