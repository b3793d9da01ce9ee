#include "sticky/frmSticky.h"

#include "controls/BusyPointer.h"
#include "options/HotKeyRecords.h"
#include "platform/Clock.h"
#include "platform/EventLoop.h"
#include "platform/HotKeys.h"
#include "platform/RuntimeError.h"
#include "platform/Sound.h"
#include "platform/WatchTimer.h"
#include "platform/WindowEmbedding.h"
#include "platform/WindowSystem.h"
#include "platform/errors.h"
#include "richtext/NV_RTFEdit.h"
#include "sticky/NoteStrip.h"
#include "sticky/note_menu.h"
#include "store/NoteRescue.h"
#include "store/NoteStore.h"
#include "store/note_row.h"
#include "watcher/NoteGridView.h"
#include "watcher/WatchSettings.h"
#include "watcher/clsClips.h"
#include "watcher/note_forms.h"

#include <QAction>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QPointer>
#include <algorithm>

namespace norvane {

namespace {

constexpr double kFontSize = 9.75;         // points
constexpr QSizeF kDesignTwips(8475, 5400); // until the stored size replaces it
constexpr int kRichText = 0;               // format of LoadFile and SaveFile

} // namespace

frmSticky::frmSticky(const StickyServices &services)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint), m_services(services),
      m_strip(new NoteStrip(this)), m_text(new NV_RTFEdit(services.edit, this))
{
    setObjectName(QStringLiteral("frmSticky"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NativeWindow);
    setMouseTracking(true);
    resize(services.twips.toPixels(QRectF(QPointF(), kDesignTwips)).size());
    m_handle = winId();
    m_services.forms.add(this);

    m_text->setObjectName(QStringLiteral("Text1"));
    m_text->setAccessibleName(tr("Note"));
    m_text->setBorderStyle(0);
    m_text->setToolBar(false);
    m_text->setToolBarOnPaper(true);
    m_text->setSelFontSize(kFontSize);
    m_text->setEnableSaveButton(false);
    makeActions();
    makeMenu();
    frmSticky::setTextBackColor(kDefaultNoteColor);

    connect(m_text, &NV_RTFEdit::Change, this, &frmSticky::textChanged);
    connect(m_text, &NV_RTFEdit::SaveMe, this, &frmSticky::SaveNote);
    connect(m_text, &NV_RTFEdit::KeyPress, this, [this] {
        if (fields.TypeEffect)
            m_services.sound.play(m_services.clickSound);
    });
    connect(&m_services.embedding, &WindowEmbedding::targetDestroyed, this, [this](WindowHandle window) {
        if (window == m_handle)
            targetDestroyed();
    });
    connect(&m_services.embedding, &WindowEmbedding::moved, this, [this](WindowHandle window) {
        if (window != m_handle)
            return;
        m_place = m_services.embedding.windowRect(window);
        geometryEdited();
    });
}

frmSticky::~frmSticky()
{
    m_services.forms.remove(this);
}

QFont frmSticky::formFont()
{
    QFont font(QStringLiteral("Arial"));
    font.setPointSizeF(kFontSize);
    return font;
}

// ---- What the loader fills ----

void frmSticky::setParentWindow(WindowHandle target)
{
    m_services.embedding.setParent(m_handle, target);
}

void frmSticky::setTextBackColor(quint32 color)
{
    m_paper = notePaper(color);
    m_text->setBackColor(color);
    m_strip->setPaper(m_paper);
    update();
}

void frmSticky::setToolBar(bool shown)
{
    m_text->setToolBar(shown);
}

void frmSticky::setAutoURLDetect(bool on)
{
    m_text->setAutoURLDetect(on);
}

void frmSticky::moveTwips(const QRectF &rect)
{
    // What no hand could take hold of is shown larger; the row keeps what it has.
    QRect pixels = m_services.twips.toPixels(rect);
    pixels.setSize(pixels.size().expandedTo(kNoteLeast));
    m_loadedTwips = rect;
    m_loadedPixels = pixels;
    const bool sized = pixels.size() != m_place.size();
    moveTo(pixels);
    if (sized)
        geometryEdited();
}

QRectF frmSticky::rectTwips() const
{
    QRectF twips = m_services.twips.fromPixels(m_place);
    if (m_place.topLeft() == m_loadedPixels.topLeft())
        twips.moveTopLeft(m_loadedTwips.topLeft());
    if (m_place.size() == m_loadedPixels.size())
        twips.setSize(m_loadedTwips.size());
    return twips;
}

void frmSticky::movePixels(const QPoint &position)
{
    moveTo(QRect(position, m_place.size()));
}

QSize frmSticky::sizePixels() const
{
    return m_place.size();
}

void frmSticky::moveTo(const QRect &place)
{
    m_place = place;
    m_services.embedding.moveWindow(m_handle, place);
}

void frmSticky::setCaption(const QString &caption)
{
    m_strip->setCaption(caption);
    setWindowTitle(caption.left(254));
}

QString frmSticky::caption() const
{
    return m_strip->caption();
}

void frmSticky::clearText()
{
    m_text->setTextRTF({});
}

void frmSticky::loadBody(const QString &path)
{
    m_text->LoadFile(path, kRichText);
}

// ---- Dirty and clean ----

void frmSticky::SetSaveMode(bool enabled)
{
    m_save->setEnabled(enabled);
    m_menu.setEnabled(m_menu.IndexForKey(note_menu::kSave), enabled);
}

void frmSticky::resetSaveState()
{
    SetSaveMode(false);
    m_text->setEnableSaveButton(false);
}

bool frmSticky::isDirty() const
{
    return m_save->isEnabled();
}

void frmSticky::textChanged()
{
    ++m_changes;
    if (fields.Loading)
        return;
    SetSaveMode(true);
    m_text->setEnableSaveButton(true);
}

void frmSticky::geometryEdited()
{
    textChanged();
}

// ---- On the screen ----

void frmSticky::showNote()
{
    show();
}

void frmSticky::nudge()
{
    // Windows appear whole here: a repaint is all that the text needs.
    m_text->update();
    update();
}

void frmSticky::paintEvent(QPaintEvent *)
{
    // Areas one in the other: lines would be uneven where a pixel of ours is several of the screen's.
    QPainter painter(this);
    painter.fillRect(rect(), m_paper.edge);
    painter.fillRect(rect().adjusted(1, 1, -1, -1), m_paper.softEdge);
    painter.fillRect(rect().adjusted(2, 2, -2, -2), m_paper.paper);
}

void frmSticky::resizeEvent(QResizeEvent *)
{
    const int width = std::max(0, this->width() - 2 * kNoteEdge);
    const int top = kNoteEdge + m_strip->thickness();
    m_strip->setGeometry(1, 1, std::max(0, this->width() - 2), top - 1);
    m_text->setGeometry(kNoteEdge, top, width, std::max(0, height() - top - kNoteEdge));
}

void frmSticky::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::ActivationChange)
        m_strip->setActive(isActiveWindow());
    QWidget::changeEvent(event);
}

void frmSticky::closeEvent(QCloseEvent *event)
{
    // A window manager's close command detaches, like the note's own.
    event->ignore();
    mnuFile_Close_Click();
}

// ---- Saving and the end ----

void frmSticky::writeRow()
{
    SaveNoteRow(m_services.store, fields.ID, {m_services.clock.now(), rectTwips(), m_text->Text()});
}

void frmSticky::writeBody()
{
    m_text->SaveFile(m_services.store.bodyFile(fields.ID), kRichText);
}

/// @return the number of the error that ended it; 0 when row and body file were written
int frmSticky::save()
{
    const BusyPointer busy;
    try {
        const quint64 saved = m_changes;
        writeRow();
        m_services.store.requeryNoteIndex();
        m_services.grid.Refresh_Grid();
        writeBody();
        // Dialogs that open in what follows may outlast the note.
        const QPointer<frmSticky> self(this);
        const StickyServices &services = m_services;
        if (isPreviewed(services.forms, fields.ID))
            services.grid.refreshPreview();
        services.events.yield();
        // What was typed meanwhile is not in the file.
        if (self && m_changes == saved)
            resetSaveState();
        return 0;
    } catch (const RuntimeError &error) {
        return error.number();
    }
}

void frmSticky::SaveNote()
{
    save(); // a note that could not be saved stays dirty; its unload has the rescue file
}

void frmSticky::saveAtExit()
{
    if (!fields.AutoSave || !isDirty() || m_rescued == m_changes)
        return;
    try {
        writeRow();
        writeBody();
        resetSaveState();
    } catch (const RuntimeError &error) {
        rescueAfter(error.number());
    }
}

void frmSticky::rescueAfter(int error)
{
    if (m_rescued == m_changes)
        return;
    m_rescued = m_changes;
    // A note whose row was deleted is meant to go.
    if (error != kErrorNoCurrentRecord && error != kErrorRecordDeleted)
        m_services.rescue.rescue(fields.FriendlyName, m_text->TextRTF());
}

void frmSticky::mnuFile_Close_Click()
{
    m_services.timer.setInterval(0);
    try {
        const auto row = m_services.store.database() == nullptr
                             ? nullptr
                             : openNoteRow(m_services.store, fields.ID, QStringLiteral("ID,Active"));
        if (row && !row->eof()) {
            row->edit();
            row->setField(QStringLiteral("ACTIVE"), false);
            row->update();
            m_services.store.requeryNoteIndex();
            m_services.grid.Refresh_Grid();
        }
        unload();
    } catch (const RuntimeError &) {
        // The row is as it was: the note stays.
    }
    m_services.timer.setInterval(m_services.watch.WatchInterval);
}

void frmSticky::targetDestroyed()
{
    fields.ParentHwnd = kNoWindow;
    // Hot keys belong to an owner window: this touches only what this window itself may have.
    for (int id = 1; id <= static_cast<int>(HotKeyRecords::kCount); ++id)
        m_services.hotKeys.unregisterHotKey(m_handle, id);
    unload();
}

void frmSticky::unload()
{
    if (m_unloaded)
        return;
    m_unloaded = true;
    if (fields.AutoSave && isDirty()) {
        if (const int error = save())
            rescueAfter(error);
        saveAtExit(); // what came while it was saved
    }
    m_services.clips.RemoveByHwnd(m_handle);
    m_services.forms.remove(this);
    if (isActiveWindow() && fields.ParentHwnd != kNoWindow)
        m_services.windows.setFocus(fields.ParentHwnd);
    hide();
    m_services.embedding.setParent(m_handle, kNoWindow);
    deleteLater();
}

} // namespace norvane
