#include "shell/windows/frmAbout.h"

#include "shell/windows/form_icon.h"
#include "shell/windows/product_panel.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QVBoxLayout>

namespace norvane {

frmAbout::frmAbout(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(tr("About Norvane"));
    SetFormIcon(this);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->setCenterButtons(true);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(36, 28, 36, 20);
    layout->setSpacing(0);
    layout->addLayout(productPanel(QStringLiteral("Picture1"),
                                   tr("Version %1").arg(QCoreApplication::applicationVersion())));
    layout->addSpacing(18);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

} // namespace norvane
