#include "browser/SideStrip.h"

#include "controls/svg_icon.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFrame>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace norvane {

namespace {

struct Button
{
    const char *name;
    const char *icon;
    const char *toolTip;
    bool actsOnNote;
};

/// A line separates the groups.
constexpr const char *kLine = "";
const QString kPreview = QStringLiteral("ARButton10");

constexpr Button kButtons[] = {
    {"btnOpenURL", "location-open",
     QT_TRANSLATE_NOOP("frmMain", "Open target application, document or Web page"), true},
    {kLine, "", "", false},
    {"ARButton2", "document-new", QT_TRANSLATE_NOOP("frmMain", "Add a new note"), false},
    {"ARButton5", "note-edit", QT_TRANSLATE_NOOP("frmMain", "Open note in 'Editor' window"), true},
    {"ARButton7", "note-delete", QT_TRANSLATE_NOOP("frmMain", "Delete note"), true},
    {kLine, "", "", false},
    {"ARButton8", "document-save", QT_TRANSLATE_NOOP("frmMain", "Save note as Rich Text (RTF) document"),
     true},
    {"ARButton9", "mail", QT_TRANSLATE_NOOP("frmMain", "Email note as an attachment"), true},
    {kLine, "", "", false},
    {"ARButton3", "note-properties", QT_TRANSLATE_NOOP("frmMain", "Show 'Property' window"), true},
    {kLine, "", "", false},
    {"ARButton6", "categories", QT_TRANSLATE_NOOP("frmMain", "Show 'Options->Note Categories' window"),
     false},
    {kLine, "", "", false},
    {"ARButton1", "search", QT_TRANSLATE_NOOP("frmMain", "Show 'Search' window"), false},
    {"ARButton4", "file-manager", QT_TRANSLATE_NOOP("frmMain", "Start Windows Explorer"), false},
    {kLine, "", "", false},
    {"ARButton10", "note-preview", QT_TRANSLATE_NOOP("frmMain", "Show/Hide Note Preview Window"), false},
};

} // namespace

SideStrip::SideStrip(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("Picture2"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(3, 3, 3, 3);
    layout->setSpacing(1);
    int lines = 0;
    for (const Button &description : kButtons) {
        if (description.name == kLine) {
            auto *line = new QFrame;
            line->setObjectName(QStringLiteral("Line%1").arg(++lines));
            line->setFrameStyle(static_cast<int>(QFrame::HLine) | static_cast<int>(QFrame::Sunken));
            layout->addWidget(line);
            continue;
        }
        auto *button = new QToolButton;
        const QString name = QString::fromLatin1(description.name);
        const QString toolTip = QCoreApplication::translate("frmMain", description.toolTip);
        button->setObjectName(name);
        button->setIcon(
            svgIcon(QStringLiteral(":/norvane/icons/%1.svg").arg(QLatin1StringView(description.icon))));
        button->setToolTip(toolTip);
        button->setAccessibleName(toolTip);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus); // a click leaves the keyboard with the list
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        connect(button, &QToolButton::clicked, this, [this, name] { emit buttonClicked(name); });
        layout->addWidget(button);
    }
    layout->addStretch();
    QToolButton *preview = button(kPreview);
    preview->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    preview->setCheckable(true);
    setPreviewOpen(false);
    fitIcons();
}

QToolButton *SideStrip::button(const QString &name) const
{
    return findChild<QToolButton *>(name);
}

void SideStrip::makeUp(bool hasNotes)
{
    for (const Button &description : kButtons) {
        if (description.actsOnNote)
            setButtonEnabled(QString::fromLatin1(description.name), hasNotes);
    }
    if (hasNotes)
        setButtonEnabled(QStringLiteral("ARButton1"), true);
}

void SideStrip::setButtonEnabled(const QString &name, bool enabled)
{
    button(name)->setEnabled(enabled);
}

void SideStrip::setPreviewOpen(bool open)
{
    QToolButton *preview = button(kPreview);
    const QString caption = open ? tr("Hide Preview") : tr("Show Preview");
    preview->setText(QString(caption).replace(u' ', u'\n')); // the strip is narrow
    preview->setAccessibleName(caption);
    preview->setChecked(open);
}

void SideStrip::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::StyleChange)
        fitIcons();
}

void SideStrip::fitIcons()
{
    const int edge = style()->pixelMetric(QStyle::PM_LargeIconSize, nullptr, this) * 3 / 4;
    for (QToolButton *button : findChildren<QToolButton *>())
        button->setIconSize({edge, edge});
}

} // namespace norvane
