#pragma once

#include "platform/WindowHandle.h"

#include <QRectF>

namespace norvane {

class PasswordDialogModel;

/// What start-up does with the program's windows, one step each. Every member may raise
/// RuntimeError, which ends the start.
class StartUpWindows
{
public:
    virtual ~StartUpWindows() = default;

    /// Shows `frmPassword` over the model and waits until the dialog is hidden; then unloads it.
    virtual void askPassword(PasswordDialogModel &model) = 0;

    /// Shows `frmLogo`; not modal.
    virtual void showSplash() = 0;
    virtual void unloadSplash() = 0;

    /// Loads `mdiMain`, invisible. @return its window
    virtual WindowHandle loadFrame() = 0;
    /// @param place left, top, width, height in twips
    virtual void moveFrame(const QRectF &place) = 0;
    /// Minimises the frame; it stays invisible.
    virtual void minimiseFrame() = 0;

    /// Loads `frmMain` as a child of the frame and shows it there.
    virtual void showBrowser() = 0;
    /// Fills the category tabs.
    virtual void Refresh_tbCAT() = 0;
    virtual int categoryTabCount() const = 0;
    /// @param number from 1
    virtual void selectCategoryTab(int number) = 0;
    /// Sets the preview's toggle button `ARButton10` to pressed.
    virtual void pressPreviewButton() = 0;
};

} // namespace norvane
