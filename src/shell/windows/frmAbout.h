#pragma once

#include <QDialog>

namespace norvane {

/// What the program is and which version runs.
class frmAbout : public QDialog
{
    Q_OBJECT

public:
    explicit frmAbout(QWidget *parent = nullptr);
};

} // namespace norvane
