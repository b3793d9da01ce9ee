#pragma once

#include "browser/BrowserServices.h"
#include "exchange/import/ImportSource.h"
#include "shell/Forms.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QPointer>
#include <optional>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QTreeView;

namespace norvane {

class ImportList;
class StatusPanel;
struct ImportPlace;

/// Lists the notes of another database and copies the checked ones into the open one. To be made with
/// `new`: unload() deletes it.
class frmImport : public QDialog, public Form
{
    Q_OBJECT

public:
    /// Adds itself to the forms. Raises what the engine raises.
    /// @param services must outlive the window
    frmImport(const BrowserServices &services, QWidget *parent);
    ~frmImport() override;

    /// Opens the source and lists its notes. Raises what the engine raises.
    /// @param Path of its file, in the folder that the body files are taken from
    /// @param Pwd  empty where it has no password
    void ImpDB(const QString &Path, const QString &Pwd);

    // Form
    QString formName() const override { return QStringLiteral("frmImport"); }
    WindowHandle hWnd() const override { return static_cast<WindowHandle>(winId()); }
    void unload() override;

    /// Escape: stops the import that runs, else closes the window.
    void reject() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void arrange();
    QGroupBox *notesFrame();
    void makeSortMenu();
    void connectControls();
    void setColumnWidths();
    /// "&Import"
    void Command1_Click();
    void setRunning(bool running);
    bool goOn(int done);
    void showChecks();
    std::optional<int> category() const;

    const BrowserServices &m_services;
    QString m_folder;
    std::optional<ImportSource> m_source;
    ImportList *m_notes;
    StatusPanel *m_database;   ///< `lblCurrentDatabase`
    QTreeView *m_view;         ///< `ListView1`
    QGroupBox *m_frame;        ///< `Frame1`
    QPushButton *m_selectAll;  ///< `Command4`
    QPushButton *m_selectNone; ///< `Command3`
    QPushButton *m_invert;     ///< `Command5`
    QCheckBox *m_setCategory;  ///< `chkCat`
    QComboBox *m_categories;   ///< `cmbCat`
    QLabel *m_status;
    QProgressBar *m_progress;
    QPushButton *m_stop;
    QPushButton *m_import; ///< `Command1`
    QPushButton *m_close;  ///< `Command2`
    QElapsedTimer m_time;  ///< since the import began
    QPointer<QWidget> m_focusBefore;
    bool m_isRunning = false;
    bool m_isStopped = false;
    bool m_unloaded = false;
};

/// Shows the notes of another database and waits until the window is closed. Raises what the engine raises,
/// with no window left.
void ShowImport(const BrowserServices &services, const ImportPlace &place, QWidget *parent);

} // namespace norvane
