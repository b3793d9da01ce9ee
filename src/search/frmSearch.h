#pragma once

#include "browser/BrowserServices.h"
#include "search/search_criteria.h"
#include "shell/windows/FormWindow.h"

#include <QDialog>
#include <QElapsedTimer>
#include <memory>
#include <optional>

class QPushButton;
class QStatusBar;

namespace norvane {

class NoteGrid;
class SearchAnimation;
class SearchTabs;

namespace dao {
class Recordset;
}

/// The search window: finds notes and lists them with all their commands. Not modal; closing it ends it and
/// keeps the options. What was searched for is forgotten with it.
class frmSearch : public FormWindow<QDialog>
{
    Q_OBJECT

public:
    /// Adds itself to the forms. Raises what the engine raises.
    explicit frmSearch(const BrowserServices &services);

    /// Sets the dates to the span of all notes. Without notes they stay as they are.
    void ResetMinMax();
    /// Offers the categories as they are now. Raises what the engine raises.
    void listCategories();
    /// @param category kAllCategories, kNoCategory or an ID
    void selectCategory(int category);
    /// Brings the window to the front and gives its text the keyboard.
    void bringUp();

    /// Escape: stops the search that runs, else closes the window.
    void reject() override;

protected:
    void unloading() override;
    bool isHeld() const override { return m_isRunning; }

private:
    void arrange();
    void connectControls();
    void openClip();
    /// "&Find Now"
    void Command1_Click();
    /// "&New Search"
    void Command3_Click();
    /// Finds what the criteria ask for. A search that takes long lets events run. Raises what the engine
    /// raises, 3059 when it was stopped.
    std::unique_ptr<dao::Recordset> search(const SearchCriteria &criteria);
    bool goOn();
    void showResult(std::unique_ptr<dao::Recordset> notes);
    void endAnimation();
    void followInBrowser();

    const BrowserServices &m_services;
    SearchTabs *m_tabs;
    NoteGrid *m_notes; ///< `DBGrid1`
    SearchAnimation *m_animation;
    QPushButton *m_find;  ///< `Command1`
    QPushButton *m_new;   ///< `Command3`
    QPushButton *m_close; ///< `Command4`
    QPushButton *m_stop;
    QStatusBar *m_status;
    QElapsedTimer m_time; ///< since the search began
    int m_progressCalls = 0;
    bool m_isRunning = false;
    bool m_isStopped = false;
};

/// Shows the search window: the one that is open, or a new one. A fault is shown in a box, and no window is
/// left by it.
/// @param category to search in, as the browser counts them: 0 all, -1 notes without one, else its ID;
///                 nothing leaves the window's choice
void ShowSearch(const BrowserServices &services, std::optional<int> category);

} // namespace norvane
