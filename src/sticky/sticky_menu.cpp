// The keys and the menu of a note's window.

#include "platform/EventLoop.h"
#include "sticky/NoteStrip.h"
#include "sticky/PinButton.h"
#include "sticky/frmSticky.h"
#include "sticky/note_commands.h"
#include "sticky/note_menu.h"
#include "watcher/NoteViews.h"

#include <QAction>
#include <QPointer>
#include <cmath>

namespace norvane {

void frmSticky::makeActions()
{
    m_save = new QAction(tr("&Save"), this);
    m_save->setObjectName(QStringLiteral("mnuFile_Save"));
    m_save->setShortcut(QKeySequence::Save);
    m_save->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    m_save->setEnabled(false);
    connect(m_save, &QAction::triggered, this, &frmSticky::SaveNote);
    addAction(m_save);

    // Keys that the note takes, and to which it does nothing.
    const std::pair<QString, QKeySequence> idle[] = {{QStringLiteral("mnuFile_New"), QKeySequence::New},
                                                     {QStringLiteral("mnuFile_Open"), QKeySequence::Open},
                                                     {QStringLiteral("mnuFile_Print"), QKeySequence::Print}};
    for (const auto &[name, key] : idle) {
        auto *action = new QAction(this);
        action->setObjectName(name);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        addAction(action);
    }

    m_close = new QAction(tr("&Close (Detach)"), this);
    m_close->setObjectName(QStringLiteral("mnuFile_Close"));
    connect(m_close, &QAction::triggered, this, &frmSticky::mnuFile_Close_Click);
    addAction(m_close);
}

void frmSticky::makeMenu()
{
    m_menu.setHwndOwner(this);
    m_menu.setImageList(&m_services.menuImages);
    m_menu.setGradientHighlight(true);
    m_menu.setTag(QStringLiteral("File_Menu"));
    fillNoteMenu(m_menu, m_services.closeKey());
    m_menu.CreateSubClass();
    // Commands may outlast the note: not before the click is done with.
    connect(
        &m_menu, &NVPopupMenu::Click, this,
        [this](int itemNumber) { runNoteCommand(*this, m_services, m_menu.ItemKey(itemNumber)); },
        Qt::QueuedConnection);
    connect(m_strip->pin(), &PinButton::clicked, this, &frmSticky::popUpMenu);
}

void frmSticky::popUpMenu()
{
    const QPointer<frmSticky> self(this);
    const QPoint below(0, kNoteEdge + m_strip->thickness());
    const QPointF corner = m_services.twips.fromPixels(QRect(below, QSize())).topLeft();
    m_menu.ShowPopupMenu(0, std::floor(corner.y()));
    if (self)
        m_services.events.yield();
}

} // namespace norvane
