#pragma once

#include "platform/WindowSystem.h"
#include "shell/Forms.h"

#include <QCloseEvent>
#include <QWidget>
#include <utility>

namespace norvane {

/// A window that is a form and stands by itself, not modal. To be made with `new`: unload() deletes it, and
/// its close button leads there. What is derived from it adds itself to the forms when it is loaded.
template <typename Window> class FormWindow : public Window, public Form
{
public:
    ~FormWindow() override { m_forms.remove(this); }

    QString formName() const override { return this->objectName(); }
    WindowHandle hWnd() const override { return static_cast<WindowHandle>(this->winId()); }
    void unload() override
    {
        if (std::exchange(m_isUnloaded, true))
            return;
        unloading();
        m_forms.remove(this);
        this->hide();
        if (!isHeld())
            this->deleteLater();
    }

protected:
    /// @param forms must outlive the window
    FormWindow(FormList &forms, const QString &name) : m_forms(forms) { this->setObjectName(name); }

    /// What the window does when it is unloaded, before it goes.
    virtual void unloading() {}
    /// Whether something runs in the window that needs it; that deletes it when it comes to its end.
    virtual bool isHeld() const { return false; }
    bool isUnloaded() const { return m_isUnloaded; }

    /// Shows the window before all others, with the keyboard.
    void bringToFront(WindowSystem &windows)
    {
        if (this->isMinimized())
            this->showNormal();
        this->show();
        this->raise();
        this->activateWindow();
        windows.setForegroundWindow(hWnd());
    }

    void closeEvent(QCloseEvent *event) override
    {
        event->accept();
        unload();
    }

private:
    FormList &m_forms;
    bool m_isUnloaded = false;
};

} // namespace norvane
