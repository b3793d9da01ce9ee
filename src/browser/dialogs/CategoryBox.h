#pragma once

#include <QComboBox>

namespace norvane {

class NoteStore;

/// The drop-down list of categories, `Combo1` of the dialogs: "(None)" and each category by its name.
class CategoryBox : public QComboBox
{
    Q_OBJECT

public:
    enum class FirstEntry { None, DoNotChange };
    /// @param first DoNotChange: an entry "(Do Not Change)" stands before all others
    explicit CategoryBox(FirstEntry first = FirstEntry::None, QWidget *parent = nullptr);

    /// Reads the categories anew. The chosen entry stays chosen if it is still there, else the first one
    /// is. Emits nothing. Raises what the engine raises, with the list as it was.
    void fill(const NoteStore &store);
    /// Chooses a category; the first entry for -1 and 0. Without such a category nothing changes.
    void SetCatItem(int CAT_ID);
    /// What is chosen: 0 for none, kKeepCategory for "(Do Not Change)".
    int CAT_ID() const;

private:
    FirstEntry m_first;
};

} // namespace norvane
