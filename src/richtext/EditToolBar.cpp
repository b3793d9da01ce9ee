#include "richtext/EditToolBar.h"

#include "controls/svg_icon.h"

#include <QAction>
#include <QComboBox>
#include <QIcon>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QToolButton>
#include <algorithm>

namespace norvane {
namespace {

const char kMixedProperty[] = "mixed";
constexpr int kIconSize = 16;

/// What stands behind a button.
enum class Group { GoesOn, Ends, CombosBehind };

} // namespace

struct EditToolBar::ToolButton
{
    const char *key;
    const char *toolTip;
    const char *themeName;
    const char *file;
    bool checkable = false;
    Group group = Group::GoesOn;
};

namespace {

constexpr EditToolBar::ToolButton kButtons[] = {
    {"C_NEW", "New", "document-new", "document-new"},
    {"C_OPEN", "Open", "document-open", "document-open"},
    {"C_SAVE", "Save", "document-save", "document-save", false, Group::Ends},
    {"C_COLOR", "Color", "format-text-color", "edit-color", false, Group::Ends},
    {"C_CUT", "Cut", "edit-cut", "edit-cut"},
    {"C_COPY", "Copy", "edit-copy", "edit-copy"},
    {"C_PASTE", "Paste", "edit-paste", "edit-paste", false, Group::CombosBehind},
    {"C_BOLD", "Bold", "format-text-bold", "edit-bold", true},
    {"C_ITALIC", "Italic", "format-text-italic", "edit-italic", true},
    {"C_UNDR", "Under Line", "format-text-underline", "edit-underline", true, Group::Ends},
    {"C_LEFT", "Align Left", "format-justify-left", "edit-left", true},
    {"C_CENTER", "Align Center", "format-justify-center", "edit-center", true},
    {"C_RIGHT", "Align Right", "format-justify-right", "edit-right", true},
    {"C_BULLET", "Bullet", "format-list-unordered", "edit-bullet", true, Group::Ends},
    {"C_FIND", "Find and Replace", "edit-find", "edit-find"},
    {"C_PRINT", "Print", "document-print", "document-print"},
};

/// Icons of two makers do not match: the theme's are taken only if it has them all.
bool themeHasAll()
{
    return std::all_of(std::begin(kButtons), std::end(kButtons), [](const EditToolBar::ToolButton &tool) {
        return QIcon::hasThemeIcon(QString::fromLatin1(tool.themeName));
    });
}

QIcon ownPicture(const QString &name, const QColor &ink)
{
    return svgIcon(QStringLiteral(":/norvane/icons/%1.svg").arg(name), ink);
}

QComboBox *makeCombo(EditToolBar *bar, const QString &name, const QString &toolTip)
{
    auto *combo = new QComboBox(bar);
    combo->setObjectName(name);
    combo->setToolTip(toolTip);
    combo->setAccessibleName(toolTip);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setFocusPolicy(Qt::StrongFocus);
    return combo;
}

} // namespace

EditToolBar::EditToolBar(QWidget *parent) : QToolBar(parent)
{
    setObjectName(QStringLiteral("li"));
    setAccessibleName(tr("Format"));
    setMovable(false);
    setFloatable(false);
    setIconSize({kIconSize, kIconSize});
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    setContextMenuPolicy(Qt::PreventContextMenu);

    for (const ToolButton &tool : kButtons) {
        addButton(tool);
        if (tool.group == Group::CombosBehind)
            addCombos();
        if (tool.group != Group::GoesOn)
            addSeparator();
    }
    setPictures({});
}

void EditToolBar::layOn(const QPalette &paper)
{
    setPalette(paper);
    setPictures(paper.color(QPalette::ButtonText));
}

/// @param ink of a paper; invalid on the desktop's own ground
void EditToolBar::setPictures(const QColor &ink)
{
    const bool fromTheme = !ink.isValid() && themeHasAll();
    for (const ToolButton &tool : kButtons) {
        const QString themeName = QString::fromLatin1(tool.themeName);
        button(QString::fromLatin1(tool.key))
            ->setIcon(fromTheme ? QIcon::fromTheme(themeName)
                                : ownPicture(QString::fromLatin1(tool.file), ink));
    }
    // The toolkit's button for what has no room has a picture for light ground only.
    if (auto *more = findChild<QToolButton *>(QStringLiteral("qt_toolbar_ext_button")))
        more->setIcon(ownPicture(QStringLiteral("edit-more"), ink));
}

void EditToolBar::addButton(const ToolButton &tool)
{
    const QString key = QString::fromLatin1(tool.key);
    const QString toolTip = QString::fromLatin1(tool.toolTip);
    QAction *action = addAction(toolTip);
    action->setObjectName(key);
    action->setToolTip(toolTip);
    action->setCheckable(tool.checkable);
    connect(action, &QAction::triggered, this, [this, key] { emit buttonClick(key); });
    QWidget *widget = widgetForAction(action);
    widget->setObjectName(key);
    widget->setAccessibleName(toolTip);
    widget->setFocusPolicy(Qt::TabFocus); // a press with the mouse leaves the caret in the text
    m_buttons.insert(key, action);
}

void EditToolBar::addCombos()
{
    addSeparator();
    m_fontName = makeCombo(this, QStringLiteral("Combo1"), QStringLiteral("Font name"));
    m_fontName->setMinimumContentsLength(12);
    m_fontName->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_fontName->setEditText(QStringLiteral("Arial"));
    addWidget(m_fontName);

    m_fontSize = makeCombo(this, QStringLiteral("Combo2"), QStringLiteral("Font size"));
    for (int points = 10; points <= 72; points += 2)
        m_fontSize->addItem(QString::number(points));
    m_fontSize->setEditText(QStringLiteral("10"));
    addWidget(m_fontSize);

    connect(m_fontName, &QComboBox::textActivated, this, &EditToolBar::fontNameChosen);
    connect(m_fontSize, &QComboBox::textActivated, this, [this](const QString &text) {
        bool isNumber = false;
        const double points = text.toDouble(&isNumber);
        if (isNumber && points > 0)
            emit fontSizeChosen(points);
    });
}

void EditToolBar::takeKeyboard()
{
    QWidget *taker = m_fontName;
    const QList<QAction *> all = actions();
    for (auto each = all.begin(); !taker->isVisible() && each != all.end(); ++each) {
        QWidget *widget = widgetForAction(*each);
        if (widget->isVisible() && widget->isEnabled() && widget->focusPolicy() != Qt::NoFocus)
            taker = widget;
    }
    taker->setFocus(Qt::TabFocusReason);
}

void EditToolBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        emit left();
    else
        QToolBar::keyPressEvent(event);
}

void EditToolBar::setPressed(const QString &key, bool pressed)
{
    if (QAction *action = button(key))
        action->setChecked(pressed);
}

void EditToolBar::setMixed(const QString &key, bool mixed)
{
    QAction *action = button(key);
    if (!action || isMixed(key) == mixed)
        return;
    action->setProperty(kMixedProperty, mixed);
    if (mixed)
        action->setChecked(false);
    // Neither state is true of all paragraphs: the button is shown raised, on a shaded ground.
    QWidget *widget = widgetForAction(action);
    widget->setAutoFillBackground(mixed);
    widget->setBackgroundRole(mixed ? QPalette::Midlight : QPalette::NoRole);
    widget->update();
}

bool EditToolBar::isMixed(const QString &key) const
{
    const QAction *action = button(key);
    return action && action->property(kMixedProperty).toBool();
}

void EditToolBar::setFonts(const QStringList &families)
{
    const QSignalBlocker blocker(m_fontName);
    const QString shown = m_fontName->currentText();
    m_fontName->clear();
    m_fontName->addItems(families);
    m_fontName->setEditText(shown);
}

void EditToolBar::showFont(const QString &family, const QString &size)
{
    // Setting the text alone: making an item current would look it up among hundreds.
    m_fontName->setEditText(family);
    m_fontName->lineEdit()->setCursorPosition(0);
    m_fontSize->setEditText(size);
}

} // namespace norvane
