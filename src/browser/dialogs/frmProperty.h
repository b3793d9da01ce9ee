#pragma once

#include "browser/dialogs/NoteDialog.h"
#include "browser/dialogs/note_properties.h"
#include "browser/grid/note_row_texts.h"

class QButtonGroup;
class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace norvane {

class CategoryBox;
class ColorButton;
class LocationBox;
class ScreenModel;

/// Shows and changes the settings of one note, or of several at once. "&OK" and "&Cancel" unload it.
class frmProperty : public NoteDialog
{
    Q_OBJECT

public:
    /// Shows the settings of one note, or of several, and waits for the dialog's end. What goes wrong is
    /// told.
    static void ShowPropertyPage(const BrowserServices &services, int ID, QWidget *parent = nullptr);
    static void ShowPropertyPage(const BrowserServices &services, const QVector<int> &IDs,
                                 QWidget *parent = nullptr);

    /// Loads the settings of one note. Raises 3021 when there is no such row, and what the engine raises.
    /// @param services must outlive the dialog
    frmProperty(const BrowserServices &services, int ID, QWidget *parent = nullptr);
    /// Loads the dialog for several notes; those of these IDs are meant until its end, whatever the list
    /// they were chosen in shows meanwhile. Raises what the engine raises.
    frmProperty(const BrowserServices &services, QVector<int> IDs, QWidget *parent = nullptr);

    /// Chooses a category; the first entry for -1 and 0. Without such a category nothing changes.
    void SetCatItem(int CAT_ID);
    /// Caption, type and picture of the type, by what the boxes say.
    void Refresh_FileType();

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    enum class Extent { OneNote, SeveralNotes };
    frmProperty(const BrowserServices &services, QVector<int> IDs, Extent extent, QWidget *parent);

    bool isSingle() const { return m_extent == Extent::OneNote; }
    void makeControls();
    // The pages of `SSTab1`.
    QWidget *generalPage();
    QWidget *optionsPage();
    QWidget *appearancePage();
    QWidget *soundBox();
    QWidget *positionBox();
    QLabel *addFact(QGridLayout *grid, const QString &name, const QString &caption);
    void arrange();
    void connectControls();
    void showProperties(const NoteProperties &properties);
    void showFacts(const StoredProperties &stored);
    void showTypePicture();
    QString fileSize() const;
    NoteProperties shownProperties() const;

    void noteChange();
    void enableSoundControls();
    void browseForSound();
    void playSound();
    void chooseColor();
    /// @return whether everything was saved; what went wrong has been told
    bool save();
    void setSaveEnabled(bool enabled);

    const QVector<int> m_IDs;
    const Extent m_extent;
    QLabel *m_picture = nullptr;       ///< `Picture1`
    QLabel *m_type = nullptr;          ///< `Label2`
    QLineEdit *m_name = nullptr;       ///< `txtName`
    LocationBox *m_location = nullptr; ///< `txtURL`, with `Command2`
    CategoryBox *m_category = nullptr; ///< `Combo1`, with `Command1`
    QLineEdit *m_keywords = nullptr;
    QLabel *m_dateCreated = nullptr;
    QLabel *m_lastUpdate = nullptr;
    QLabel *m_fileSize = nullptr;
    QCheckBox *m_active = nullptr;
    QCheckBox *m_autoSave = nullptr;
    QCheckBox *m_autoURLDetect = nullptr;
    QCheckBox *m_playSound = nullptr;
    QCheckBox *m_showToolbar = nullptr;
    QCheckBox *m_typeEffect = nullptr;
    QLineEdit *m_soundFile = nullptr;     ///< `txtWAVFilename`
    QPushButton *m_browseSound = nullptr; ///< `cmdBrowseWAV`
    QToolButton *m_play = nullptr;
    QToolButton *m_stop = nullptr;
    ColorButton *m_backColor = nullptr;
    QButtonGroup *m_positions = nullptr; ///< `optWindowPOS`, by their index
    ScreenModel *m_model = nullptr;      ///< `DSP`
    QPushButton *m_ok = nullptr;
    QPushButton *m_apply = nullptr;
    QPushButton *m_cancel = nullptr; ///< `Command3`
    NoteType m_shownType;            ///< whose picture is shown
    bool m_filling = true;
};

} // namespace norvane
