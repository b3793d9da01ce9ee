#include "options/windows/AboutPage.h"

#include "platform/RuntimeError.h"
#include "shell/internal_error.h"
#include "shell/windows/form_icon.h"
#include "watcher/open_location.h"

#include <QLabel>
#include <QVBoxLayout>

namespace norvane {

namespace {

constexpr int kPictureSide = 96;
/// Of a domain that nobody can own, as long as the program has no home.
const QString kHomePage = QStringLiteral("https://norvane.example/");

QLabel *centred(const QString &name, const QString &text)
{
    auto *label = new QLabel(text);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

} // namespace

AboutPage::AboutPage(Shell &shell, Prompts &prompts, const QVersionNumber &version)
{
    QLabel *picture = centred(QStringLiteral("Picture2"), {});
    picture->setPixmap(applicationIcon().pixmap(QSize(kPictureSide, kPictureSide), devicePixelRatioF()));
    picture->setAccessibleName(tr("Norvane's icon"));
    QLabel *name = centred(QStringLiteral("lblName"), QStringLiteral("Norvane"));
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 1.9);
    large.setWeight(QFont::DemiBold);
    name->setFont(large);
    QLabel *number = centred(QStringLiteral("lblVersion"), tr("version: %1").arg(version.toString()));
    number->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QLabel *text =
        centred(QStringLiteral("lblText"),
                tr("Notes that stay with the web pages, folders,\ndocuments and programs they belong to."));
    QLabel *link = centred(QStringLiteral("Label3"), QStringLiteral("<a href=\"%1\">%1</a>").arg(kHomePage));
    link->setTextInteractionFlags(Qt::TextBrowserInteraction);
    link->setToolTip(tr("Open in the web browser"));
    connect(link, &QLabel::linkActivated, this, [&](const QString &page) {
        try {
            OpenLocation(shell, page);
        } catch (const RuntimeError &error) {
            showRuntimeError(prompts, error);
        }
    });

    auto *layout = new QVBoxLayout(this);
    layout->addStretch();
    layout->addWidget(picture);
    layout->addWidget(name);
    layout->addWidget(number);
    layout->addSpacing(fontMetrics().height() / 2);
    layout->addWidget(text);
    layout->addSpacing(fontMetrics().height() / 2);
    layout->addWidget(link);
    layout->addStretch();
}

} // namespace norvane
