#include "browser/dialogs/frmProperty.h"

#include "browser/dialogs/CategoryBox.h"
#include "browser/dialogs/ColorButton.h"
#include "browser/dialogs/LocationBox.h"
#include "browser/dialogs/ScreenModel.h"
#include "browser/dialogs/byte_size.h"
#include "browser/grid/note_grid_images.h"
#include "controls/BusyPointer.h"
#include "platform/FileSystem.h"
#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "platform/Shell.h"
#include "platform/Sound.h"
#include "platform/errors.h"
#include "richtext/EditServices.h"
#include "shell/internal_error.h"
#include "store/NoteStore.h"
#include "watcher/NoteGridView.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>
#include <utility>

namespace norvane {

namespace {

constexpr int kPictureSide = 32;

QString defaultSound()
{
    return QStringLiteral("(Default)");
}

/// A title as a window can bear it: one line, and nothing in it that stands for something else.
QString windowTitleOf(QString text)
{
    constexpr qsizetype kLongestTitle = 254;
    text.replace(u'\n', u' ').replace(u'\r', u' ').truncate(kLongestTitle);
    return text.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

CheckValue valueOf(const QCheckBox *box)
{
    switch (box->checkState()) {
    case Qt::Unchecked:
        return kCleared;
    case Qt::Checked:
        return kChecked;
    case Qt::PartiallyChecked:
        break;
    }
    return kGreyed;
}

void setValue(QCheckBox *box, CheckValue value)
{
    constexpr Qt::CheckState kStates[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
    box->setCheckState(kStates[value]);
}

/// Makes a dialog under the hourglass and shows it; tells what hinders it.
template <typename Make> void showLoaded(const BrowserServices &services, Make make)
{
    const auto makeBusily = [&] {
        const BusyPointer busy;
        return make();
    };
    try {
        frmProperty *form = makeBusily();
        form->showModal();
    } catch (const RuntimeError &error) {
        showRuntimeError(services.edit.prompts, error);
        if (error.number() != kErrorNoCurrentRecord)
            return;
        // Another program has taken the note away.
        services.browser.Refresh_Grid();
        services.browser.refreshAround();
    }
}

} // namespace

void frmProperty::ShowPropertyPage(const BrowserServices &services, int ID, QWidget *parent)
{
    showLoaded(services, [&] { return new frmProperty(services, ID, parent); });
}

void frmProperty::ShowPropertyPage(const BrowserServices &services, const QVector<int> &IDs, QWidget *parent)
{
    showLoaded(services, [&] { return new frmProperty(services, IDs, parent); });
}

frmProperty::frmProperty(const BrowserServices &services, int ID, QWidget *parent)
    : frmProperty(services, {ID}, Extent::OneNote, parent)
{
    const StoredProperties stored = readProperties(services.store, ID);
    showProperties(stored.properties);
    showFacts(stored);
    Refresh_FileType();
    m_filling = false;
}

frmProperty::frmProperty(const BrowserServices &services, QVector<int> IDs, QWidget *parent)
    : frmProperty(services, std::move(IDs), Extent::SeveralNotes, parent)
{
    showProperties({});
    Refresh_FileType();
    m_filling = false;
}

frmProperty::frmProperty(const BrowserServices &services, QVector<int> IDs, Extent extent, QWidget *parent)
    : NoteDialog(services, QStringLiteral("frmProperty"), parent), m_IDs(std::move(IDs)), m_extent(extent)
{
    makeControls();
    arrange();
    connectControls();
    // For several notes there is something to be saved from the start: what is always written.
    setSaveEnabled(!isSingle());
    m_category->fill();
    services.forms.add(this);
}

void frmProperty::connectControls()
{
    for (QCheckBox *box : {m_active, m_autoSave, m_autoURLDetect, m_playSound, m_showToolbar, m_typeEffect})
        connect(box, &QCheckBox::stateChanged, this, &frmProperty::noteChange);
    for (QLineEdit *box : std::initializer_list<QLineEdit *>{m_keywords, m_name, m_location, m_soundFile})
        connect(box, &QLineEdit::textChanged, this, &frmProperty::noteChange);
    connect(m_category, &QComboBox::currentIndexChanged, this, &frmProperty::noteChange);
    connect(m_positions, &QButtonGroup::idToggled, this, [this](int position, bool on) {
        if (!on)
            return;
        m_model->setPosition(position);
        noteChange();
    });
    connect(m_playSound, &QCheckBox::stateChanged, this, &frmProperty::enableSoundControls);
    connect(m_backColor, &QPushButton::clicked, this, &frmProperty::chooseColor);
    connect(m_browseSound, &QPushButton::clicked, this, &frmProperty::browseForSound);
    connect(m_play, &QToolButton::clicked, this, &frmProperty::playSound);
    connect(m_stop, &QToolButton::clicked, this, [this] { m_services.sound.stop(); });
    connect(m_apply, &QPushButton::clicked, this, [this] {
        if (save())
            setSaveEnabled(false);
    });
    connect(m_ok, &QPushButton::clicked, this, [this] {
        if (save())
            unload();
    });
    connect(m_cancel, &QPushButton::clicked, this, &frmProperty::reject);
}

// ---- What the boxes say ----

void frmProperty::showProperties(const NoteProperties &properties)
{
    m_name->setText(properties.FriendlyName);
    m_location->setText(properties.URL);
    setValue(m_active, properties.ACTIVE);
    setValue(m_autoSave, properties.AutoSave);
    setValue(m_playSound, properties.PlaySound);
    m_backColor->setColor(properties.BackColor);
    setValue(m_showToolbar, properties.ShowToolbar);
    setValue(m_autoURLDetect, properties.AutoURLDetect);
    setValue(m_typeEffect, properties.TypeEffect);
    m_soundFile->setText(properties.WAVFileName.isEmpty() ? defaultSound() : properties.WAVFileName);
    m_keywords->setText(properties.keyWords);
    m_category->SetCatItem(properties.CAT_ID);
    QAbstractButton *position = m_positions->button(properties.formposition);
    (position ? position : m_positions->button(0))->setChecked(true);
    m_model->setPosition(m_positions->checkedId());
    for (QLineEdit *box : std::initializer_list<QLineEdit *>{m_name, m_location, m_soundFile, m_keywords})
        box->setCursorPosition(0); // of a long text the beginning is shown
    enableSoundControls();
}

void frmProperty::showFacts(const StoredProperties &stored)
{
    NoteDateTexts dateText(QLocale::system());
    m_dateCreated->setText(stored.DateCreated.isValid() ? dateText(stored.DateCreated) : tr("N/A"));
    m_lastUpdate->setText(dateText(stored.LastUpdate));
    m_fileSize->setText(fileSize());
}

QString frmProperty::fileSize() const
{
    const QString body = m_services.store.bodyFile(m_IDs.first());
    const FileSystem &files = m_services.store.files();
    try {
        return fileSizeText(files.exists(body) ? files.size(body) : -1);
    } catch (const RuntimeError &) {
        return tr("N/A"); // it is there, but not to be read
    }
}

NoteProperties frmProperty::shownProperties() const
{
    const QString sound = m_soundFile->text();
    return {.FriendlyName = m_name->text(),
            .URL = m_location->text(),
            .ACTIVE = valueOf(m_active),
            .AutoSave = valueOf(m_autoSave),
            .PlaySound = valueOf(m_playSound),
            .BackColor = m_backColor->color(),
            .ShowToolbar = valueOf(m_showToolbar),
            .AutoURLDetect = valueOf(m_autoURLDetect),
            .TypeEffect = valueOf(m_typeEffect),
            .WAVFileName = sound == defaultSound() ? QString() : sound,
            .keyWords = m_keywords->text(),
            .CAT_ID = m_category->CAT_ID(),
            .formposition = m_positions->checkedId()};
}

void frmProperty::SetCatItem(int CAT_ID)
{
    m_category->SetCatItem(CAT_ID);
}

void frmProperty::Refresh_FileType()
{
    if (!isSingle()) {
        setWindowTitle(tr("Properties - Multiple Notes"));
        m_type->clear();
        return;
    }
    setWindowTitle(windowTitleOf(tr("Properties - ") + m_name->text()));
    m_shownType = NoteTypes(m_services.shell)(m_location->text());
    m_type->setText(m_shownType.text);
    showTypePicture();
}

void frmProperty::showTypePicture()
{
    const QIcon picture = m_shownType.shellKey.isEmpty()
                              ? NoteGridImages().icon(m_shownType.icon)
                              : FileIcons()(m_services.shell.iconNames(m_shownType.shellKey));
    m_picture->setPixmap(picture.pixmap(QSize(kPictureSide, kPictureSide), devicePixelRatioF()));
}

void frmProperty::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        Refresh_FileType();
    else if (event->type() == QEvent::PaletteChange && isSingle())
        showTypePicture();
}

void frmProperty::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    // Behind what the toolkit does to the box that has the focus.
    QMetaObject::invokeMethod(
        m_name, [this] { m_name->setCursorPosition(0); }, Qt::QueuedConnection);
}

// ---- What the controls do ----

void frmProperty::noteChange()
{
    if (!m_filling)
        setSaveEnabled(true);
}

void frmProperty::setSaveEnabled(bool enabled)
{
    m_ok->setEnabled(enabled);
    m_apply->setEnabled(enabled);
}

void frmProperty::enableSoundControls()
{
    const bool plays = valueOf(m_playSound) == kChecked;
    for (QWidget *control : std::initializer_list<QWidget *>{m_soundFile, m_browseSound, m_play, m_stop})
        control->setEnabled(plays);
}

void frmProperty::browseForSound()
{
    const QPointer<frmProperty> self(this);
    const QString path = m_services.edit.prompts.openFile(tr("Open Sound File"), tr("Wave Files|*.wav"),
                                                          m_services.sound.soundFolder());
    if (!self || path.isEmpty())
        return;
    if (path.size() > kLongestSoundFile) {
        tell(m_services.edit.prompts,
             tr("The path of this sound file is too long: a note can keep %1 characters of it. Please choose "
                "a file in another folder.")
                 .arg(kLongestSoundFile));
        return;
    }
    m_soundFile->setText(path);
}

void frmProperty::playSound()
{
    const QString file = m_soundFile->text();
    if (file.isEmpty() || file == defaultSound())
        m_services.sound.beep();
    else if (m_services.store.files().exists(file))
        m_services.sound.play(file);
}

void frmProperty::chooseColor()
{
    const QPointer<frmProperty> self(this);
    const std::optional<quint32> color = m_services.edit.prompts.chooseColor(m_backColor->color());
    if (!self || !color || *color == m_backColor->color())
        return;
    m_backColor->setColor(*color);
    noteChange();
}

// ---- Saving ----

bool frmProperty::save()
{
    const QPointer<frmProperty> self(this);
    m_location->clean();
    const PropertyTargets targets{m_services.store, m_services.forms, m_services.windows, m_services.browser};
    Prompts &prompts = m_services.edit.prompts;
    try {
        const NoteProperties properties = shownProperties();
        const bool saved = isSingle() ? saveProperties(targets, m_IDs.first(), properties)
                                      : saveProperties(targets, m_IDs, properties);
        if (saved && self)
            Refresh_FileType();
        if (!saved)
            prompts.messageBox(tr("Error writing properties."), Prompts::kCritical,
                               kApplicationTitle.toString());
        return saved && self;
    } catch (const RuntimeError &error) {
        showRuntimeError(prompts, error);
    }
    return false;
}

} // namespace norvane
