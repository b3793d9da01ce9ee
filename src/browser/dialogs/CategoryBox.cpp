#include "browser/dialogs/CategoryBox.h"

#include "browser/dialogs/note_properties.h"
#include "store/categories.h"

#include <QSignalBlocker>
#include <algorithm>

namespace norvane {

CategoryBox::CategoryBox(FirstEntry first, QWidget *parent) : QComboBox(parent), m_first(first)
{
    constexpr int kShownCharacters = 16;
    setObjectName(QStringLiteral("Combo1"));
    setAccessibleName(tr("Category"));
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(kShownCharacters);
}

void CategoryBox::fill(const NoteStore &store)
{
    const QVector<Category> categories = readCategories(store);
    const QSignalBlocker blocker(this);
    const QVariant chosen = currentData();
    clear();
    if (m_first == FirstEntry::DoNotChange)
        addItem(tr("(Do Not Change)"), kKeepCategory);
    addItem(tr("(None)"), 0);
    for (const Category &category : categories)
        addItem(category.Name, category.ID);
    setCurrentIndex(std::max(0, findData(chosen)));
}

void CategoryBox::SetCatItem(int CAT_ID)
{
    if (CAT_ID == -1 || CAT_ID == 0)
        setCurrentIndex(0);
    else if (const int index = findData(CAT_ID); index >= 0)
        setCurrentIndex(index);
}

int CategoryBox::CAT_ID() const
{
    return currentData().toInt();
}

} // namespace norvane
