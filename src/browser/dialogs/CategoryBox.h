#pragma once

#include <QComboBox>

class QPushButton;

namespace norvane {

struct BrowserServices;

/// The drop-down list of categories, `Combo1` of the dialogs: "(None)" and each category by its name, with
/// a button "..." that leads to where categories are kept.
class CategoryBox : public QComboBox
{
    Q_OBJECT

public:
    enum class FirstEntry { None, DoNotChange };
    /// Empty until fill().
    /// @param services   must outlive it
    /// @param buttonName of the button
    /// @param first      DoNotChange: an entry "(Do Not Change)" stands before all others
    CategoryBox(const BrowserServices &services, const QString &buttonName,
                FirstEntry first = FirstEntry::None);

    /// To be laid out behind the box; owned by where it is put.
    QPushButton *manageButton() const { return m_manage; }

    /// Reads the categories anew. The chosen entry stays chosen if it is still there, else the first one
    /// is. Emits nothing. Raises what the engine raises, with the list as it was.
    void fill();
    /// Chooses a category; the first entry for -1 and 0. Without such a category nothing changes.
    void SetCatItem(int CAT_ID);
    /// What is chosen: 0 for none, kKeepCategory for "(Do Not Change)".
    int CAT_ID() const;

private:
    void manageCategories();

    const BrowserServices &m_services;
    QPushButton *m_manage;
    FirstEntry m_first;
};

} // namespace norvane
