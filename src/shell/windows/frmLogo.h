#pragma once

#include "shell/Forms.h"

#include <QVersionNumber>
#include <QWidget>

namespace norvane {

class Twips;

/// The splash window, shown while the program starts. Its picture is painted, not loaded: it must
/// cost next to nothing.
class frmLogo : public QWidget, public Form
{
    Q_OBJECT

public:
    /// Adds itself to @p forms, which must outlive it. Sizes itself to its picture plus 25 twips in
    /// each direction and centres itself on the primary screen.
    frmLogo(FormList &forms, const QVersionNumber &version, const Twips &twips);
    ~frmLogo() override;

    QString formName() const override;
    WindowHandle hWnd() const override;
    void unload() override;

private:
    FormList &m_forms;
};

} // namespace norvane
