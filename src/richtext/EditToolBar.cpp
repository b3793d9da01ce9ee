#include "richtext/EditToolBar.h"

#include "controls/svg_icon.h"

#include <QAction>
#include <QComboBox>
#include <QIcon>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QToolButton>

namespace norvane {
namespace {

const char kMixedProperty[] = "mixed";

QIcon ownPicture(const QString &name, const QColor &ink)
{
    return svgIcon(QStringLiteral(":/norvane/edit/icons/%1.svg").arg(name), ink);
}

QComboBox *makeCombo(EditToolBar *bar, const QString &name, const QString &toolTip)
{
    auto *combo = new QComboBox(bar);
    combo->setObjectName(name);
    combo->setToolTip(toolTip);
    combo->setAccessibleName(toolTip);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setFocusPolicy(Qt::ClickFocus);
    return combo;
}

} // namespace

EditToolBar::EditToolBar(QWidget *parent) : QToolBar(parent)
{
    setObjectName(QStringLiteral("li"));
    setAccessibleName(tr("Format"));
    setMovable(false);
    setFloatable(false);
    setIconSize({16, 16});
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    setContextMenuPolicy(Qt::PreventContextMenu);

    addButton(QStringLiteral("C_SAVE"), QStringLiteral("Save"), QStringLiteral("document-save"), false);
    addSeparator();
    addCombos();
    addSeparator();
    addButton(QStringLiteral("C_BOLD"), QStringLiteral("Bold"), QStringLiteral("format-text-bold"), true);
    addButton(QStringLiteral("C_ITALIC"), QStringLiteral("Italic"), QStringLiteral("format-text-italic"),
              true);
    addButton(QStringLiteral("C_UNDR"), QStringLiteral("Under Line"), QStringLiteral("format-text-underline"),
              true);
    addSeparator();
    addButton(QStringLiteral("C_LEFT"), QStringLiteral("Align Left"), QStringLiteral("format-justify-left"),
              true);
    addButton(QStringLiteral("C_CENTER"), QStringLiteral("Align Center"),
              QStringLiteral("format-justify-center"), true);
    addButton(QStringLiteral("C_RIGHT"), QStringLiteral("Align Right"),
              QStringLiteral("format-justify-right"), true);
    addSeparator();
    addButton(QStringLiteral("C_BULLET"), QStringLiteral("Bullet"), QStringLiteral("format-list-unordered"),
              true);
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
    for (auto picture = m_pictures.constBegin(); picture != m_pictures.constEnd(); ++picture) {
        const QIcon own = ownPicture(picture.value(), ink);
        picture.key()->setIcon(ink.isValid() ? own : QIcon::fromTheme(picture.value(), own));
    }
    // The toolkit's button for what has no room has a picture for light ground only.
    if (auto *more = findChild<QToolButton *>(QStringLiteral("qt_toolbar_ext_button")))
        more->setIcon(ownPicture(QStringLiteral("tool-bar-more"), ink));
}

void EditToolBar::addButton(const QString &key, const QString &toolTip, const QString &picture,
                            bool checkable)
{
    QAction *action = addAction(toolTip);
    m_pictures.insert(action, picture);
    action->setObjectName(key);
    action->setToolTip(toolTip);
    action->setCheckable(checkable);
    connect(action, &QAction::triggered, this, [this, key] { emit buttonClick(key); });
    QWidget *widget = widgetForAction(action);
    widget->setObjectName(key);
    widget->setAccessibleName(toolTip);
    widget->setFocusPolicy(Qt::NoFocus); // a press leaves the caret in the text
    m_buttons.insert(key, action);
}

void EditToolBar::addCombos()
{
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
