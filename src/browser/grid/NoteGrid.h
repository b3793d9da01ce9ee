#pragma once

#include "browser/BrowserServices.h"
#include "browser/grid/NoteListing.h"
#include "browser/grid/note_grid_images.h"
#include "platform/dao.h"

#include <QWidget>
#include <memory>

class QKeyEvent;
class QLabel;
class QMouseEvent;

namespace norvane {

class NVPopupMenu;
class NoteRows;
class vbalGrid;

/// A list of notes: the grid `GRD`, the category caption `lblCategory` above it, and the commands on its
/// rows in the menu `GRDMNU`. The browser, the picker of notes and the search window each have one.
///
/// What belongs to the browser alone happens only when the object name is "GRD".
class NoteGrid : public QWidget
{
    Q_OBJECT

public:
    explicit NoteGrid(const BrowserServices &services, QWidget *parent = nullptr);
    ~NoteGrid() override;

    int FilterCategory = 0;     ///< 0 all notes, -1 those without a category, else its `ID`
    QString FilterCategoryText; ///< what `lblCategory` shows for a category
    /// Whether widths that the user gives to columns are kept in the settings. Widths are read from there
    /// in any case.
    bool SaveColumnWidth = false;

    /// The database that the rows come from: to be set before the first refresh; not owned.
    dao::Database *GridDB() const { return m_database; }
    void setGridDB(dao::Database *database);
    /// A ready result set in place of the category's notes; nullptr while the category decides.
    dao::Recordset *GridRS() const { return m_rows.get(); }
    void setGridRS(std::unique_ptr<dao::Recordset> rows);

    /// Reads the rows anew, or those alone that changed. The selected row, by its number, and the scroll
    /// position stay. Nothing happens in the browser's list while the frame is hidden. Raises what the engine
    /// raises, with the rows that were read until then.
    void Refresh_Grid();

    /// `ID` of the selected row's note; 0 when there is none.
    int RowID() const;
    int Rows() const;
    /// Number of the selected row, from 1; 0 when none is.
    int Row() const;
    /// Number of rows that are marked as selected.
    int SelectedRows() const;
    bool CellSelected(int Row, int Col) const;
    /// The texts of a column in those rows.
    QStringList selectedCells(int Col) const;
    /// A cell's text; empty when there is no such cell.
    QString GetCelText(int Row, int Col) const;

    bool Redraw() const;
    void setRedraw(bool on);
    bool ShowCategoryBar() const;
    /// Shows or hides `lblCategory`.
    void setShowCategoryBar(bool shown);
    /// Gives the columns the widths that they have before anybody changes one.
    void ResetColumns();
    /// Gives the keyboard to the grid.
    void SetFocus();
    /// What an empty list of all notes says besides: the key that attaches a note to the window in front,
    /// "Ctrl+Alt+A". Empty for no word of it.
    void setEmptyHint(const QString &attachKey);

    /// Runs the command of an entry of `GRDMNU`: "OPEN", "DELETE", …, in any case. A fault on the way ends
    /// the command without a word.
    void RunGridMenu(const QString &MenuKey);
    /// Shows the properties of the selected note, or of all selected ones, and waits.
    void ShowPropertyPage();

    NVPopupMenu &GRDMNU() { return *m_menu; }
    vbalGrid *grid() const { return m_grid; }

signals:
    /// Another row is the selected one, or other rows are marked. Raised while rows are read, too: look at
    /// Redraw().
    void RowChange(int Row, int Col, int ID);
    /// Several rows have changed; Row is 0.
    void Refresh(int Row);
    /// A command or a sort has changed what the list shows.
    void Changed();
    /// A mouse button was released over `lblCategory`.
    /// @param Button 1 left, 2 right, 4 middle   @param Shift 1 Shift, 2 Ctrl, 4 Alt
    /// @param X, Y   twips from the label's upper left corner
    void CatBarMouseUp(int Button, int Shift, double X, double Y);
    /// What the browser's status panel "ROW" is to show while a long list is read.
    void Working(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void makeColumns();
    void makeMenu();
    void startSort();
    void connectGrid();
    QString statement() const;
    void showCategory();
    void read(const NoteListing::Source &source, NoteRows &rows);
    void showAsItIs();
    void selectAgain(int row, int scroll);
    void showEmptyLabel();

    // NoteGridInput.cpp
    void sortBy(int column);
    void keepWidth(int position, int width);
    void keyDown(QKeyEvent *event);
    void mouseDown(const QMouseEvent *event);
    void rowDoubleClicked(int row);
    void showMenu(QPoint position);
    void openLocation(const QString &location);
    bool keyBelongsToUs(QEvent *event) const;

    const BrowserServices &m_services;
    dao::Database *m_database = nullptr;
    std::unique_ptr<dao::Recordset> m_rows;
    std::unique_ptr<NoteListing> m_listing;
    NoteGridImages m_images; ///< `ilsIcons`
    IconList m_headerImages; ///< `imgHeader`
    FileIcons m_fileIcons;
    QString m_attachKey;
    vbalGrid *m_grid = nullptr;
    QLabel *m_category = nullptr; ///< `lblCategory`
    QLabel *m_empty = nullptr;    ///< stands over the grid while there are no rows
    std::unique_ptr<NVPopupMenu> m_menu;
    bool m_isCategoryShown = false;
};

} // namespace norvane
