#include "richtext/frmOle.h"

#include "controls/GroupBox.h"
#include "platform/FileSystem.h"
#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "richtext/PictureStore.h"
#include "richtext/commands/ExtractedFiles.h"
#include "richtext/format_conversion.h"
#include "richtext/object_pictures.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMimeDatabase>
#include <QPointer>
#include <QPushButton>
#include <QScreen>

namespace norvane {
namespace {

constexpr int kLongestName = 128;
constexpr QSize kSmallestPreview(240, 150);

QString sizeText(qint64 bytes)
{
    return QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeTraditionalFormat);
}

QString fileNameOf(const QString &path)
{
    return path.mid(qMax(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\')) + 1);
}

} // namespace

frmOle::frmOle(FileSystem &files, Prompts &prompts, Room room, QWidget *parent)
    : QDialog(parent), m_files(files), m_prompts(prompts), m_room(room), m_file(new QLineEdit),
      m_browse(new QPushButton(tr("&Browse..."))), m_asIcon(new QCheckBox(tr("&Display as Icon"))),
      m_nameCaption(new QLabel(tr("&Name:"))), m_name(new QLineEdit), m_preview(new QLabel),
      m_description(new QLabel), m_ok(new QPushButton(tr("&OK"))), m_cancel(new QPushButton(tr("&Cancel")))
{
    setObjectName(QStringLiteral("frmOle"));
    setWindowTitle(tr("Insert Object"));
    m_file->setObjectName(QStringLiteral("Text1"));
    m_file->setReadOnly(true);
    m_file->setPlaceholderText(tr("No file chosen"));
    m_file->setMinimumWidth(fontMetrics().averageCharWidth() * 36);
    m_browse->setObjectName(QStringLiteral("Command3"));
    m_browse->setDefault(true);
    m_asIcon->setObjectName(QStringLiteral("Check1"));
    m_name->setObjectName(QStringLiteral("Text2"));
    m_name->setMaxLength(kLongestName);
    m_nameCaption->setBuddy(m_name);
    m_preview->setObjectName(QStringLiteral("OLE1"));
    m_preview->setAccessibleName(tr("Preview"));
    m_preview->setAlignment(Qt::AlignCenter);
    m_preview->setMinimumSize(kSmallestPreview);
    m_preview->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    m_description->setObjectName(QStringLiteral("Label1"));
    m_description->setTextFormat(Qt::PlainText);
    m_description->setAlignment(Qt::AlignCenter);
    m_ok->setObjectName(QStringLiteral("Command1"));
    m_ok->setEnabled(false);
    m_cancel->setObjectName(QStringLiteral("Command2"));
    m_cancel->setAutoDefault(false);
    m_asIcon->setEnabled(false);
    m_name->setEnabled(false);
    arrange();

    connect(m_browse, &QPushButton::clicked, this, &frmOle::chooseFile);
    connect(m_asIcon, &QCheckBox::toggled, this, [this](bool on) {
        m_name->setEnabled(on);
        showPreview();
    });
    connect(m_name, &QLineEdit::textChanged, this, &frmOle::showPreview);
    connect(m_ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmOle::arrange()
{
    auto *fileCaption = new QLabel(tr("&File:"));
    fileCaption->setBuddy(m_file);
    auto *frame = new GroupBox(tr(" Preview "));
    auto *inFrame = new QVBoxLayout(frame);
    inFrame->addWidget(m_preview, 1);
    inFrame->addWidget(m_description);
    auto *fields = new QGridLayout;
    fields->addWidget(fileCaption, 0, 0);
    fields->addWidget(m_file, 0, 1);
    fields->addWidget(m_browse, 0, 2);
    fields->addWidget(m_asIcon, 1, 1, 1, 2);
    fields->addWidget(m_nameCaption, 2, 0);
    fields->addWidget(m_name, 2, 1, 1, 2);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_ok);
    buttons->addWidget(m_cancel);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addWidget(frame, 1);
    layout->addLayout(buttons);
    setTabOrder(m_file, m_browse);
    setTabOrder(m_browse, m_asIcon);
    setTabOrder(m_asIcon, m_name);
    setTabOrder(m_name, m_ok);
    setTabOrder(m_ok, m_cancel);
    m_browse->setFocus();
}

void frmOle::chooseFile()
{
    const QPointer<frmOle> self(this);
    const QString path = m_prompts.openFile(tr("Insert Object"), tr("All Files|*|Pictures|*.png *.jpg *.jpeg "
                                                                    "*.gif *.bmp *.webp *.svg"));
    if (!path.isEmpty() && self)
        take(path);
}

/// A file that is refused leaves the one that was chosen before.
void frmOle::take(const QString &path)
{
    QString refusal;
    QByteArray bytes;
    try {
        const qint64 size = m_files.size(path);
        if (size > kLargestFile)
            refusal = tr("'%1' is too large: it has %2. An object can hold %3.")
                          .arg(fileNameOf(path), sizeText(size), sizeText(kLargestFile));
        else if (size > m_room.bytes)
            refusal =
                tr("There is no room for '%1', which has %2. The objects of this text can take %3 more.")
                    .arg(fileNameOf(path), sizeText(size), sizeText(qMax<qint64>(m_room.bytes, 0)));
        else
            bytes = m_files.read(path);
    } catch (const RuntimeError &error) {
        refusal = error.description();
    }
    if (!refusal.isEmpty()) {
        m_prompts.messageBox(refusal, Prompts::kExclamation, tr("Insert Object"));
        return;
    }

    m_bytes = bytes;
    m_fileName = fileNameOf(path);
    m_picture = pictureOfFile(bytes, m_room.width);
    m_file->setText(path);
    m_file->setToolTip(path);
    m_name->setText(safeFileName(m_fileName));
    const QString type = QMimeDatabase().mimeTypeForFileNameAndData(m_fileName, bytes).comment();
    m_description->setText(QStringLiteral("%1, %2").arg(type, sizeText(bytes.size())));
    m_asIcon->setEnabled(m_picture.has_value()); // what is no picture has nothing else to show
    m_asIcon->setChecked(!m_picture);
    m_name->setEnabled(m_asIcon->isChecked());
    m_ok->setEnabled(true);
    m_ok->setDefault(true);
    m_ok->setFocus();
    showPreview();
}

rtf::Picture frmOle::shown() const
{
    return m_asIcon->isChecked() || !m_picture ? iconOfFile(m_fileName, m_name->text()) : *m_picture;
}

void frmOle::showPreview()
{
    if (m_fileName.isEmpty())
        return;
    const rtf::Picture picture = shown();
    PictureStore pictures;
    QImage image = pictures.image(pictures.add(picture).name());
    const double pixel = twipsPerPixel();
    const QSizeF size(picture.displayWidth / pixel, picture.displayHeight / pixel);
    const QSizeF room(m_preview->contentsRect().size());
    const bool fits = size.width() <= room.width() && size.height() <= room.height();
    const QSizeF preview = fits ? size : size.scaled(room, Qt::KeepAspectRatio);
    const double ratio = devicePixelRatioF();
    image = image.scaled((preview * ratio).toSize().expandedTo({1, 1}), Qt::IgnoreAspectRatio,
                         Qt::SmoothTransformation);
    image.setDevicePixelRatio(ratio);
    m_preview->setPixmap(QPixmap::fromImage(image));
}

std::optional<rtf::Picture> frmOle::OLE1() const
{
    if (result() != Accepted || m_fileName.isEmpty())
        return std::nullopt;
    const QString label = m_asIcon->isChecked() ? m_name->text() : m_fileName;
    return packaged(shown(), label, m_fileName, m_bytes);
}

void frmOle::resizeEvent(QResizeEvent *event)
{
    QDialog::resizeEvent(event);
    layout()->activate();
    showPreview();
}

void frmOle::showEvent(QShowEvent *event)
{
    const QRect screenRect = screen()->geometry();
    move(screenRect.topLeft() +
         QPoint((screenRect.width() - width()) / 2, (screenRect.height() - height()) / 2));
    QDialog::showEvent(event);
}

} // namespace norvane
