#include "richtext/EditMenu.h"

#include <QAction>

namespace norvane {

EditMenu::EditMenu(QWidget *parent) : QMenu(QStringLiteral("MNU"), parent)
{
    setObjectName(QStringLiteral("mnu"));
    addItem(this, QStringLiteral("mnu_Undo"), QStringLiteral("&Undo"), Qt::CTRL | Qt::Key_Z);
    addSeparator(this, QStringLiteral("mnu_sep_6"));
    addItem(this, QStringLiteral("mnu_Cut"), QStringLiteral("C&ut"), Qt::CTRL | Qt::Key_X);
    addItem(this, QStringLiteral("mnu_Copy"), QStringLiteral("&Copy"), Qt::CTRL | Qt::Key_C);
    addItem(this, QStringLiteral("mnu_Paste"), QStringLiteral("&Paste"), Qt::CTRL | Qt::Key_V);
    addItem(this, QStringLiteral("mnu_Del"), QStringLiteral("&Delete"), Qt::Key_Delete);
    addSeparator(this, QStringLiteral("mnu_sep_3"));

    QMenu *insert = addSubMenu(this, QStringLiteral("mnu_Insert"), QStringLiteral("&Insert"));
    addTexts(addSubMenu(insert, QStringLiteral("mnu_Insert_Date"), QStringLiteral("Current &Date")),
             QStringLiteral("mnu_Insert_Date_Sub"));
    addTexts(addSubMenu(insert, QStringLiteral("mnu_Insert_Time"), QStringLiteral("Cuurent &Time")),
             QStringLiteral("mnu_Insert_Time_Sub"));
    addSeparator(insert, QStringLiteral("mnu_Insert_Sep1"));
    addItem(insert, QStringLiteral("mnu_insert_obj"), QStringLiteral("Insert &Object..."));

    addSeparator(this, QStringLiteral("mnu_Sep_1"));
    addItem(this, QStringLiteral("mnu_Find"), QStringLiteral("F&ind"));
    addSeparator(this, QStringLiteral("mnu_sep_4"));
    addItem(this, QStringLiteral("mnu_Font"), QStringLiteral("&Font/Color"));
    QMenu *align = addSubMenu(this, QStringLiteral("mnu_Align"), QStringLiteral("&Alignment"));
    addItem(align, QStringLiteral("mnu_Align_Right"), QStringLiteral("Align &Right"));
    addItem(align, QStringLiteral("mnu_Align_Center"), QStringLiteral("Align &Center"));
    addItem(align, QStringLiteral("mnu_Align_Left"), QStringLiteral("Align &Left"));
    for (QAction *item : align->actions())
        item->setCheckable(true);
    addSeparator(this, QStringLiteral("mnu_sep_5"));
    addItem(this, QStringLiteral("mnu_Print"), QStringLiteral("&Print"));
}

QAction *EditMenu::item(const QString &name) const
{
    return findChild<QAction *>(name);
}

void EditMenu::setTexts(const QString &name, const std::array<QString, 3> &texts)
{
    for (int index = 0; index < int(texts.size()); ++index) {
        QAction *sub = item(name + QStringLiteral("(%1)").arg(index));
        QString caption = texts.at(size_t(index));
        sub->setData(caption);
        sub->setText(caption.replace(u'&', u"&&"_qs));
    }
}

QAction *EditMenu::addItem(QMenu *menu, const QString &name, const QString &caption,
                           const QKeySequence &shortcut)
{
    QAction *item = menu->addAction(caption);
    item->setObjectName(name);
    item->setShortcut(shortcut);
    connect(item, &QAction::triggered, this, [this, name] { emit itemClick(name); });
    return item;
}

QMenu *EditMenu::addSubMenu(QMenu *menu, const QString &name, const QString &caption)
{
    QMenu *sub = menu->addMenu(caption);
    sub->menuAction()->setObjectName(name);
    return sub;
}

void EditMenu::addSeparator(QMenu *menu, const QString &name)
{
    menu->addSeparator()->setObjectName(name);
}

void EditMenu::addTexts(QMenu *menu, const QString &name)
{
    for (int index = 0; index < 3; ++index) {
        QAction *item = menu->addAction(QString());
        item->setObjectName(name + QStringLiteral("(%1)").arg(index));
        connect(item, &QAction::triggered, this, [this, item] { emit textChosen(item->data().toString()); });
    }
}

} // namespace norvane
