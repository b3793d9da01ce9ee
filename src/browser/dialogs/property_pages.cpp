// How the Properties dialog is laid out.

#include "browser/dialogs/CategoryBox.h"
#include "browser/dialogs/ColorButton.h"
#include "browser/dialogs/LocationBox.h"
#include "browser/dialogs/ScreenModel.h"
#include "browser/dialogs/WholeCharacters.h"
#include "browser/dialogs/dialog_parts.h"
#include "browser/dialogs/frmProperty.h"
#include "controls/GroupBox.h"
#include "controls/named_button.h"
#include "controls/page_keys.h"
#include "controls/svg_icon.h"
#include "richtext/EditServices.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QToolButton>

namespace norvane {

namespace {

constexpr int kShownCharacters = 54;

QLineEdit *textBox(const QString &name, const QString &accessibleName, int longest)
{
    auto *result = new QLineEdit;
    result->setObjectName(name);
    result->setAccessibleName(accessibleName);
    result->setMaxLength(longest);
    result->setValidator(new WholeCharacters(result));
    return result;
}

QToolButton *soundButton(const QString &name, const QString &what, const QString &picture)
{
    auto *result = new QToolButton;
    result->setObjectName(name);
    result->setIcon(svgIcon(QStringLiteral(":/norvane/icons/%1.svg").arg(picture)));
    result->setToolTip(what);
    result->setAccessibleName(what);
    result->setFocusPolicy(Qt::StrongFocus);
    return result;
}

QFrame *line()
{
    auto *result = new QFrame;
    result->setFrameShape(QFrame::HLine);
    result->setFrameShadow(QFrame::Sunken);
    return result;
}

} // namespace

void frmProperty::makeControls()
{
    m_picture = new QLabel(this);
    m_picture->setObjectName(QStringLiteral("Picture1"));
    m_type = new QLabel(this);
    m_type->setObjectName(QStringLiteral("Label2"));
    m_type->setTextFormat(Qt::PlainText);
    m_type->setWordWrap(true);
    m_name = textBox(QStringLiteral("txtName"), tr("Name"), kLongestName);
    m_location =
        new LocationBox(m_services.edit.prompts, QStringLiteral("txtURL"), QStringLiteral("Command2"));
    m_category =
        new CategoryBox(m_services, QStringLiteral("Command1"),
                        isSingle() ? CategoryBox::FirstEntry::None : CategoryBox::FirstEntry::DoNotChange);
    m_keywords = textBox(QStringLiteral("txtKeywords"), tr("Keywords"), kLongestKeywords);
    m_active = namedButton<QCheckBox>(QStringLiteral("chkActive"), tr("&Active"));
    m_autoSave = namedButton<QCheckBox>(QStringLiteral("chkAutosave"), tr("Auto &save on close"));
    m_autoURLDetect = namedButton<QCheckBox>(QStringLiteral("chkAutoURLDetect"), tr("Auto &URL Detect"));
    m_playSound = namedButton<QCheckBox>(QStringLiteral("chkPlaySound"), tr("&Play sound on open"));
    m_showToolbar = namedButton<QCheckBox>(QStringLiteral("chkShowToolbar"), tr("&Show Toolbar"));
    m_typeEffect = namedButton<QCheckBox>(QStringLiteral("chkTypeEffect"), tr("&Type writer effect"));
    m_soundFile = textBox(QStringLiteral("txtWAVFilename"), tr("Sound file"), kLongestSoundFile);
    m_browseSound = browseButton(QStringLiteral("cmdBrowseWAV"), tr("Browse for a sound file"));
    m_play = soundButton(QStringLiteral("cmdPlay"), tr("Play"), QStringLiteral("sound-play"));
    m_stop = soundButton(QStringLiteral("cmdStop"), tr("Stop"), QStringLiteral("sound-stop"));
    m_backColor = new ColorButton(tr("Background Color"));
    m_backColor->setObjectName(QStringLiteral("cmdBackcolor"));
    m_positions = new QButtonGroup(this);
    m_model = new ScreenModel;
    m_ok = namedButton(QStringLiteral("cmdOK"), tr("&OK"));
    m_ok->setDefault(true);
    m_cancel = namedButton(QStringLiteral("Command3"), tr("&Cancel"));
    m_apply = namedButton(QStringLiteral("cmdApply"), tr("Appl&y"));
    if (isSingle())
        return;

    m_picture->hide();
    m_type->hide();
    for (QWidget *control : std::initializer_list<QWidget *>{m_name, m_location, m_location->browseButton()})
        control->setEnabled(false);
    for (QCheckBox *box : {m_active, m_autoSave, m_playSound, m_showToolbar})
        box->setToolTip(tr("Grey: every note keeps its own"));
    for (QCheckBox *box : {m_autoURLDetect, m_typeEffect})
        box->setToolTip(tr("Grey: switched on in every note"));
}

void frmProperty::arrange()
{
    auto *tabs = new QTabWidget(this);
    tabs->setObjectName(QStringLiteral("SSTab1"));
    tabs->addTab(generalPage(), tr("&General"));
    tabs->addTab(optionsPage(), tr("Opt&ions"));
    tabs->addTab(appearancePage(), tr("Appea&rance"));
    turnPagesByKeys(tabs, this);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_ok);
    buttons->addWidget(m_cancel);
    buttons->addWidget(m_apply);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(tabs, 1);
    layout->addLayout(buttons);
    (isSingle() ? static_cast<QWidget *>(m_name) : m_category)->setFocus();
}

// ---- The pages: the order in which things are added is the keyboard's, too ----

QWidget *frmProperty::generalPage()
{
    auto *page = new QWidget;
    auto *grid = new QGridLayout;
    int row = 0;
    if (isSingle()) {
        grid->addWidget(m_picture, row, 0, Qt::AlignCenter);
        grid->addWidget(m_type, row, 1, 1, 2);
        grid->setRowMinimumHeight(row++, 44);
        grid->addWidget(line(), row++, 0, 1, 3);
    }
    grid->addWidget(caption(tr("&Name:"), m_name), row, 0);
    grid->addWidget(m_name, row++, 1, 1, 2);
    grid->addWidget(caption(tr("&Location:"), m_location), row, 0);
    grid->addWidget(m_location, row, 1);
    grid->addWidget(m_location->browseButton(), row++, 2);
    grid->addWidget(caption(tr("Category:"), m_category), row, 0);
    grid->addWidget(m_category, row, 1);
    grid->addWidget(m_category->manageButton(), row++, 2);
    grid->addWidget(caption(tr("Keywords:"), m_keywords), row, 0);
    grid->addWidget(m_keywords, row++, 1, 1, 2);
    if (isSingle()) {
        grid->addWidget(line(), row++, 0, 1, 3);
        m_dateCreated = addFact(grid, QStringLiteral("lblDateCreated"), tr("Date Created:"));
        m_lastUpdate = addFact(grid, QStringLiteral("lblLastUpdate"), tr("Last Update:"));
        m_fileSize = addFact(grid, QStringLiteral("lblFileSize"), tr("File Size:"));
    }
    row = grid->rowCount();
    grid->addWidget(line(), row++, 0, 1, 3);
    grid->addWidget(m_active, row++, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(row, 1);
    page->setLayout(grid);
    m_location->setMinimumWidth(fontMetrics().averageCharWidth() * kShownCharacters);
    return page;
}

QLabel *frmProperty::addFact(QGridLayout *grid, const QString &name, const QString &text)
{
    auto *fact = new QLabel;
    fact->setObjectName(name);
    fact->setTextFormat(Qt::PlainText);
    const int row = grid->rowCount();
    grid->addWidget(new QLabel(text), row, 0);
    grid->addWidget(fact, row, 1, 1, 2);
    return fact;
}

QWidget *frmProperty::optionsPage()
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->addWidget(m_autoSave);
    layout->addWidget(m_autoURLDetect);
    layout->addWidget(m_typeEffect);
    layout->addSpacing(fontMetrics().height() / 2);
    layout->addWidget(soundBox());
    layout->addStretch();
    return page;
}

QWidget *frmProperty::soundBox()
{
    auto *box = new GroupBox(tr("Sound"));
    auto *file = new QHBoxLayout;
    file->addWidget(m_soundFile, 1);
    file->addWidget(m_browseSound);
    file->addWidget(m_play);
    file->addWidget(m_stop);
    auto *layout = new QVBoxLayout(box);
    layout->addWidget(m_playSound);
    layout->addLayout(file);
    return box;
}

QWidget *frmProperty::appearancePage()
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->addWidget(m_backColor, 0, Qt::AlignLeft);
    layout->addWidget(m_showToolbar);
    layout->addSpacing(fontMetrics().height() / 2);
    layout->addWidget(positionBox());
    layout->addStretch();
    return page;
}

QWidget *frmProperty::positionBox()
{
    const QString captions[] = {tr("Save last position"), tr("Center"),      tr("Top Left"),
                                tr("Top Right"),          tr("Bottom Left"), tr("Bottom Right")};
    auto *box = new GroupBox(tr("Position"));
    auto *options = new QVBoxLayout;
    int position = 0;
    for (const QString &text : captions) {
        auto *option = namedButton<QRadioButton>(QStringLiteral("optWindowPOS%1").arg(position), text);
        m_positions->addButton(option, position++);
        options->addWidget(option);
    }
    options->addStretch();
    auto *layout = new QHBoxLayout(box);
    layout->addLayout(options);
    layout->addStretch();
    layout->addWidget(m_model, 0, Qt::AlignCenter);
    layout->addStretch();
    return box;
}

} // namespace norvane
