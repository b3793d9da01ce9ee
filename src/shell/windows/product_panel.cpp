#include "shell/windows/product_panel.h"

#include "shell/windows/form_icon.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLabel>
#include <QVBoxLayout>

namespace norvane {

namespace {

constexpr int kPictureSide = 96;

QString text(const char *source)
{
    return QCoreApplication::translate("frmAbout", source);
}

QLabel *centred(const QString &name, const QString &text)
{
    auto *label = new QLabel(text);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

} // namespace

QVBoxLayout *productPanel(const QString &picture, const QString &version)
{
    QLabel *icon = centred(picture, {});
    icon->setPixmap(applicationIcon().pixmap(QSize(kPictureSide, kPictureSide), qGuiApp->devicePixelRatio()));
    icon->setAccessibleName(text("Norvane's icon"));
    QLabel *name = centred(QStringLiteral("lblName"), QStringLiteral("Norvane"));
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 1.9);
    large.setWeight(QFont::DemiBold);
    name->setFont(large);
    QLabel *number = centred(QStringLiteral("lblVersion"), version);
    number->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    QLabel *what =
        centred(QStringLiteral("lblText"),
                text("Notes that stay with the web pages, folders,\ndocuments and programs they belong to."));

    auto *layout = new QVBoxLayout;
    layout->setSpacing(6);
    layout->addWidget(icon);
    layout->addSpacing(6);
    layout->addWidget(name);
    layout->addWidget(number);
    layout->addSpacing(10);
    layout->addWidget(what);
    return layout;
}

} // namespace norvane
