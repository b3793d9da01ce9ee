#include "shell/windows/frmAbout.h"

#include "shell/windows/form_icon.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

namespace norvane {

namespace {

QLabel *centred(const QString &name, const QString &text)
{
    auto *label = new QLabel(text);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

} // namespace

frmAbout::frmAbout(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(tr("About Norvane"));
    SetFormIcon(this);

    auto *picture = centred(QStringLiteral("Picture1"), QString());
    picture->setPixmap(applicationIcon().pixmap(QSize(96, 96), devicePixelRatioF()));
    picture->setAccessibleName(tr("Norvane's icon"));

    QLabel *name = centred(QStringLiteral("lblName"), QStringLiteral("Norvane"));
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 1.9);
    large.setWeight(QFont::DemiBold);
    name->setFont(large);

    QLabel *version =
        centred(QStringLiteral("lblVersion"), tr("Version %1").arg(QCoreApplication::applicationVersion()));
    version->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    version->setForegroundRole(QPalette::PlaceholderText);

    QLabel *text =
        centred(QStringLiteral("lblText"),
                tr("Notes that stay with the web pages, folders,\ndocuments and programs they belong to."));

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->setCenterButtons(true);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(36, 28, 36, 20);
    layout->setSpacing(6);
    layout->addWidget(picture);
    layout->addSpacing(6);
    layout->addWidget(name);
    layout->addWidget(version);
    layout->addSpacing(10);
    layout->addWidget(text);
    layout->addSpacing(18);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

} // namespace norvane
