#pragma once

#include "shell/windows/FormWindow.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QPushButton;

namespace norvane {

struct WindowListServices;

/// The Run window: a prompt for a command line, which is then opened or started. Not modal.
class MRunDialog : public FormWindow<QDialog>
{
    Q_OBJECT

public:
    /// Adds itself to the forms.
    explicit MRunDialog(const WindowListServices &services);

    /// An empty title or prompt is the window's own; a null icon is the program's.
    void setTexts(const QString &title, const QString &prompt);
    void setPicture(const QIcon &icon);
    /// Brings the window to the front, in the middle of its owner where it has one on the screen.
    void bringUp(const QWidget *owner);

    /// OK: starts what the line tells; a fault is told, and the window stays.
    void accept() override;
    void reject() override { unload(); }

private:
    void arrange();
    void browse();

    const WindowListServices &m_services;
    QLabel *m_picture;
    QLabel *m_prompt;
    QComboBox *m_line;
    QPushButton *m_ok;
    QPushButton *m_cancel;
    QPushButton *m_browse;
};

/// Shows the Run window; one that is open takes the new texts.
/// @param owner the window that asked for it; may be nullptr
/// @param icon  null: the program's
void RunDialog(const WindowListServices &services, const QWidget *owner, const QIcon &icon,
               const QString &title, const QString &prompt);

/// The Run window as the Window List and the main frame show it: "New Task".
void ShowNewTask(const WindowListServices &services, const QWidget *owner);

} // namespace norvane
