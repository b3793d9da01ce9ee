#include "browser/editor/frmQuickView.h"

#include "browser/editor/TitleStrip.h"
#include "browser/editor/editor_icons.h"
#include "browser/editor/preview_place.h"
#include "controls/BusyPointer.h"
#include "platform/EventLoop.h"
#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"
#include "richtext/EditServices.h"
#include "richtext/RichTextBox.h"
#include "store/note_row.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSizeGrip>
#include <QToolButton>
#include <QVBoxLayout>

namespace norvane {

namespace {

/// Bytes of a body file: what is read in a moment while the user goes through a list.
constexpr qint64 kLargestBody = qint64(16) << 20;
constexpr int kEdge = 1; // pixels around it

/// Part of the way from one colour to another.
QColor between(const QColor &from, const QColor &to, double part)
{
    const auto mix = [part](int a, int b) { return static_cast<int>(a + (b - a) * part); };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

} // namespace

frmQuickView::frmQuickView(const BrowserServices &services, QWidget *browser)
    : QWidget(browser, Qt::SubWindow), m_services(services), m_title(new TitleStrip(this)),
      m_view(new RichTextBox(services.edit.files, this)), m_grip(new QSizeGrip(this))
{
    setObjectName(QStringLiteral("frmQuickView"));
    setWindowTitle(tr("Note Preview"));
    setAccessibleName(tr("Note Preview"));

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
    // The grip stands under the scroll bar, not on it.
    auto *underScrollBar = new QWidget;
    underScrollBar->setBackgroundRole(QPalette::Base);
    underScrollBar->setAutoFillBackground(true);
    underScrollBar->setFixedHeight(m_grip->sizeHint().height());
    m_view->addScrollBarWidget(underScrollBar, Qt::AlignBottom);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(kEdge, kEdge, kEdge, kEdge);
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
    const BusyPointer busy;
    m_view->setBackColor(BackColor);
    if (m_services.edit.files.exists(bodyFile)) {
        loadBody(bodyFile);
    } else {
        empty();
        m_view->setBackColor(kDefaultNoteColor);
    }
    m_view->verticalScrollBar()->setValue(scrolled);
    m_services.events.yield(); // the form may be gone now
}

void frmQuickView::showNothing()
{
    setTitle(tr("Preview"));
    setWindowTitle(tr("Preview"));
    m_id = 0;
    m_edit->setEnabled(false);
    m_open->setEnabled(false);
    empty();
    m_view->setBackColor(kDefaultNoteColor);
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
    QWidget::showEvent(event);
    move(withinReach(geometry(), parentWidget()->size()));
    raise();
}

void frmQuickView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(),
                     between(palette().color(QPalette::Window), palette().color(QPalette::WindowText), 0.45));
}

void frmQuickView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const QSize grip = m_grip->sizeHint();
    m_grip->setGeometry(width() - grip.width() - kEdge, height() - grip.height() - kEdge, grip.width(),
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
