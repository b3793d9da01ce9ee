#pragma once

#include "browser/BrowserServices.h"
#include "shell/Forms.h"
#include "watcher/WatchPause.h"

#include <QDialog>
#include <optional>

namespace norvane {

/// A dialog on notes. To be made with `new`: unload() deletes it, and Escape and the window's close button
/// lead there. The watch timer is off as long as the dialog is loaded.
class NoteDialog : public QDialog, public Form
{
    Q_OBJECT

public:
    ~NoteDialog() override;

    /// Shows the dialog and returns when it is unloaded.
    void showModal();
    /// The same, before the windows of all programs and with the keyboard.
    void showModalInFront();

    // Form
    QString formName() const override { return objectName(); }
    WindowHandle hWnd() const override { return static_cast<WindowHandle>(winId()); }
    void unload() override;

    void reject() override { unload(); }

protected:
    /// What is derived from it adds itself to the forms when it is loaded.
    /// @param services must outlive the dialog
    NoteDialog(const BrowserServices &services, const QString &name, QWidget *parent);

    void paintEvent(QPaintEvent *event) override;

    const BrowserServices &m_services;

private:
    void bringToFront();

    std::optional<WatchPause> m_pause;
    bool m_unloaded = false;
    bool m_comesToFront = false; ///< when the window manager has shown it
};

} // namespace norvane
