#include "windowlist/windows/TaskToolBar.h"

#include "controls/svg_icon.h"

#include <QActionGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QToolButton>

namespace norvane {

namespace {

constexpr int kIconSide = 24;

struct Button
{
    const char16_t *key;
    const char *caption;
    const char *toolTip;
    const char16_t *image;
};

constexpr Button kButtons[] = {
    {u"TB_ATTACH", QT_TRANSLATE_NOOP("norvane::TaskToolBar", "&Attach"),
     QT_TRANSLATE_NOOP("norvane::TaskToolBar", "Add a note to selected window"), u"task-attach"},
    {u"TB_DETACH", QT_TRANSLATE_NOOP("norvane::TaskToolBar", "&Detach"),
     QT_TRANSLATE_NOOP("norvane::TaskToolBar", "Detach note from selected window"), u"task-detach"},
    {u"TB_SWITCH", QT_TRANSLATE_NOOP("norvane::TaskToolBar", "&Switch"),
     QT_TRANSLATE_NOOP("norvane::TaskToolBar", "Switch to selected window"), u"task-switch"},
    {u"TB_RUN", QT_TRANSLATE_NOOP("norvane::TaskToolBar", "&Run"),
     QT_TRANSLATE_NOOP("norvane::TaskToolBar", "Start a new task"), u"run"},
    {u"TB_VIEW", QT_TRANSLATE_NOOP("norvane::TaskToolBar", "&View"),
     QT_TRANSLATE_NOOP("norvane::TaskToolBar", "Show the windows in another way"), u"view-details"},
};

struct ViewEntry
{
    const char16_t *key;
    const char *caption;
    const char16_t *image;
};

/// In the order of the views' numbers.
constexpr ViewEntry kViews[] = {
    {u"BM_LARGE", QT_TRANSLATE_NOOP("norvane::TaskToolBar", "Large Icons"), u"view-large-icons"},
    {u"BM_SMALL", QT_TRANSLATE_NOOP("norvane::TaskToolBar", "Small Icons"), u"view-small-icons"},
    {u"BM_LIST", QT_TRANSLATE_NOOP("norvane::TaskToolBar", "List"), u"view-list"},
    {u"BM_DETAILS", QT_TRANSLATE_NOOP("norvane::TaskToolBar", "Details"), u"view-details"},
};

QIcon drawing(const char16_t *name)
{
    return svgIcon(QStringLiteral(":/norvane/icons/%1.svg").arg(QStringView(name)));
}

const QString kView = QStringLiteral("TB_VIEW");

} // namespace

TaskToolBar::TaskToolBar(QWidget *parent) : QWidget(parent)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    for (const Button &each : kButtons)
        layout->addWidget(
            addButton(QString::fromUtf16(each.key), tr(each.caption), tr(each.toolTip), drawing(each.image)));
    layout->addStretch();
    QToolButton *view = m_buttons.value(kView);
    view->setPopupMode(QToolButton::MenuButtonPopup);
    view->setMenu(viewMenu());
    view->installEventFilter(this);
}

QToolButton *TaskToolBar::addButton(const QString &key, const QString &caption, const QString &toolTip,
                                    const QIcon &icon)
{
    auto *button = new QToolButton;
    button->setObjectName(key);
    button->setText(caption);
    button->setToolTip(toolTip);
    button->setIcon(icon);
    button->setIconSize({kIconSide, kIconSide});
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, this, [this, key] { emit commandTriggered(key); });
    m_buttons.insert(key, button);
    return button;
}

QMenu *TaskToolBar::viewMenu()
{
    auto *menu = new QMenu(this);
    auto *views = new QActionGroup(menu);
    const auto add = [&](const QString &key, const QString &caption) {
        QAction *entry = menu->addAction(caption);
        entry->setObjectName(key);
        connect(entry, &QAction::triggered, this, [this, key] { emit commandTriggered(key); });
        return entry;
    };
    for (const ViewEntry &each : kViews) {
        QAction *entry = add(QString::fromUtf16(each.key), tr(each.caption));
        entry->setCheckable(true);
        views->addAction(entry);
        m_views.append(entry);
    }
    menu->addSeparator();
    m_onTop = add(QStringLiteral("BM_ONTOP"), {});
    return menu;
}

/// The toolkit opens the menu of such a button by the mouse alone.
bool TaskToolBar::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Down) {
        m_buttons.value(kView)->showMenu();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void TaskToolBar::setRowCommandsEnabled(bool enabled)
{
    for (const QString &key :
         {QStringLiteral("TB_SWITCH"), QStringLiteral("TB_ATTACH"), QStringLiteral("TB_DETACH")})
        m_buttons.value(key)->setEnabled(enabled);
}

void TaskToolBar::showView(int view)
{
    m_views.at(view)->setChecked(true);
    m_buttons.value(kView)->setIcon(drawing(kViews[view].image));
}

QString TaskToolBar::onTopCaption() const
{
    return m_onTop->text();
}

void TaskToolBar::setOnTopCaption(const QString &caption)
{
    m_onTop->setText(caption);
}

} // namespace norvane
