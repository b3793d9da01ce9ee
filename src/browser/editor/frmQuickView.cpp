#include "browser/editor/frmQuickView.h"

#include "browser/editor/TitleStrip.h"
#include "browser/editor/editor_icons.h"
#include "browser/editor/preview_place.h"
#include "platform/EventLoop.h"
#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"
#include "richtext/EditServices.h"
#include "richtext/RichTextBox.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSizeGrip>
#include <QToolButton>
#include <QVBoxLayout>

namespace norvane {

namespace {

constexpr quint32 kNewNotePaper = 0xC0FFFF; // blue-green-red: a pale yellow
/// Bytes of a body file: what is read in a moment while the user goes through a list.
constexpr qint64 kLargestBody = qint64(16) << 20;

} // namespace

frmQuickView::frmQuickView(const BrowserServices &services, QWidget *browser)
    : QFrame(browser, Qt::SubWindow), m_services(services), m_title(new TitleStrip(this)),
      m_view(new RichTextBox(services.edit.files, this)), m_grip(new QSizeGrip(this))
{
    setObjectName(QStringLiteral("frmQuickView"));
    setWindowTitle(tr("Note Preview"));
    setAccessibleName(tr("Note Preview"));
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setAutoFillBackground(true);

    m_edit = m_title->addButton(QStringLiteral("ARButton2"), editorIcon(EditorIcon::Edit),
                                tr("Edit current note in 'Note Editor'"));
    m_open = m_title->addButton(QStringLiteral("ARButton3"), editorIcon(EditorIcon::Open),
                                tr("Open Target Web Page, Folder, Document or Program"));
    QToolButton *close = m_title->addButton(QStringLiteral("ARButton1"), editorIcon(EditorIcon::Close),
                                            tr("Close 'Note Preview' Window"));
    connect(m_edit, &QToolButton::clicked, this, &frmQuickView::editRequested);
    connect(m_open, &QToolButton::clicked, this, &frmQuickView::openRequested);
    connect(close, &QToolButton::clicked, this, &frmQuickView::unload);

    m_view->setObjectName(QStringLiteral("RTF_View"));
    m_view->setAccessibleName(tr("Note"));
    m_view->setLocked(true);
    m_view->setBorderStyle(0);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);
    layout->addWidget(m_title);
    layout->addWidget(m_view, 1);

    const QRect place = services.twips.toPixels(readPreviewPlace(services.settings));
    setGeometry(QRect(place.topLeft(), place.size().expandedTo(minimumSizeHint())));
    showNothing();
    hide();
    m_services.forms.add(this);
}

frmQuickView::~frmQuickView()
{
    m_services.forms.remove(this);
}

void frmQuickView::unload()
{
    if (m_unloaded)
        return;
    m_unloaded = true;
    savePreviewPlace(m_services.settings, m_services.twips.fromPixels(geometry()));
    m_services.forms.remove(this);
    hide();
    deleteLater();
    emit unloaded();
}

// ---- What it shows ----

void frmQuickView::setTitle(const QString &title)
{
    m_title->setTitle(title);
    m_title->setTitleToolTip(title);
}

void frmQuickView::showNote(const QString &title, int ID, const QString &bodyFile, quint32 BackColor)
{
    setTitle(u' ' + title);
    setWindowTitle(tr("Note Preview"));
    const int scrolled = ID == m_id ? m_view->verticalScrollBar()->value() : 0;
    m_id = ID;
    m_edit->setEnabled(true);
    m_open->setEnabled(true);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    m_view->setBackColor(BackColor);
    if (m_services.edit.files.exists(bodyFile)) {
        loadBody(bodyFile);
    } else {
        empty();
        m_view->setBackColor(kNewNotePaper);
    }
    m_view->verticalScrollBar()->setValue(scrolled);
    QGuiApplication::restoreOverrideCursor();
    m_services.events.yield();
}

void frmQuickView::showNothing()
{
    setTitle(tr("Preview"));
    setWindowTitle(tr("Preview"));
    m_id = 0;
    m_edit->setEnabled(false);
    m_open->setEnabled(false);
    empty();
    m_view->setBackColor(kNewNotePaper);
}

void frmQuickView::loadBody(const QString &bodyFile)
{
    try {
        if (m_services.edit.files.size(bodyFile) > kLargestBody) {
            m_view->setText(tr("This note is too large for the preview."));
            return;
        }
        m_view->LoadFile(bodyFile, RichTextBox::kRichText);
    } catch (const RuntimeError &) {
        empty(); // not the text of the note before
    }
}

void frmQuickView::empty()
{
    m_view->setText({});
    m_view->setTextRTF({});
}

// ---- Where it stands ----

void frmQuickView::keepInside(int clientWidth, int statusBarTop)
{
    const QRectF room = m_services.twips.fromPixels(QRect(0, 0, clientWidth, statusBarTop));
    const QRectF place = m_services.twips.fromPixels(geometry());
    move(m_services.twips.toPixels(keepPreviewInside(place, room.width(), room.height())).topLeft());
    raise();
}

void frmQuickView::showEvent(QShowEvent *event)
{
    QFrame::showEvent(event);
    move(withinReach(geometry(), parentWidget()->size()));
    raise();
}

void frmQuickView::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    const QSize grip = m_grip->sizeHint();
    m_grip->setGeometry(width() - grip.width() - 1, height() - grip.height() - 1, grip.width(),
                        grip.height());
    m_grip->raise();
}

void frmQuickView::mousePressEvent(QMouseEvent *event)
{
    // What its parts have no use for comes here, and no further.
    event->accept();
    raise();
    if (event->button() != Qt::LeftButton || !m_title->geometry().contains(event->position().toPoint()))
        return;
    m_dragging = true;
    m_dragStart = event->globalPosition().toPoint();
    m_dragPlace = pos();
}

void frmQuickView::mouseMoveEvent(QMouseEvent *event)
{
    event->accept();
    if (!m_dragging)
        return;
    const QPoint moved = m_dragPlace + event->globalPosition().toPoint() - m_dragStart;
    move(withinReach(QRect(moved, size()), parentWidget()->size()));
}

void frmQuickView::mouseReleaseEvent(QMouseEvent *event)
{
    event->accept();
    if (event->button() == Qt::LeftButton)
        m_dragging = false;
}

} // namespace norvane
