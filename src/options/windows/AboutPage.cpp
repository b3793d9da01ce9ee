#include "options/windows/AboutPage.h"

#include "platform/RuntimeError.h"
#include "shell/internal_error.h"
#include "shell/windows/product_panel.h"
#include "watcher/open_location.h"

#include <QLabel>
#include <QVBoxLayout>

namespace norvane {

namespace {

/// Of a domain that nobody can own, as long as the program has no home.
const QString kHomePage = QStringLiteral("https://norvane.example/");

} // namespace

AboutPage::AboutPage(Shell &shell, Prompts &prompts, const QVersionNumber &version)
{
    auto *link = new QLabel(QStringLiteral("<a href=\"%1\">%1</a>").arg(kHomePage));
    link->setObjectName(QStringLiteral("Label3"));
    link->setAlignment(Qt::AlignCenter);
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
    layout->addLayout(productPanel(QStringLiteral("Picture2"), tr("version: %1").arg(version.toString())));
    layout->addSpacing(fontMetrics().height() / 2);
    layout->addWidget(link);
    layout->addStretch();
}

} // namespace norvane
