#include "browser/dialogs/CategoryBox.h"

#include "browser/BrowserServices.h"
#include "browser/dialogs/dialog_parts.h"
#include "browser/dialogs/note_properties.h"
#include "platform/RuntimeError.h"
#include "store/categories.h"
#include "watcher/NoteViews.h"

#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>
#include <algorithm>

namespace norvane {

CategoryBox::CategoryBox(const BrowserServices &services, const QString &buttonName, FirstEntry first)
    : m_services(services), m_manage(browseButton(buttonName, tr("Note Categories"))), m_first(first)
{
    constexpr int kShownCharacters = 16;
    setObjectName(QStringLiteral("Combo1"));
    setAccessibleName(tr("Category"));
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(kShownCharacters);
    m_manage->setToolTip(tr("Show 'Note Categories' window"));
    connect(m_manage, &QPushButton::clicked, this, &CategoryBox::manageCategories);
}

void CategoryBox::manageCategories()
{
    const QPointer<CategoryBox> self(this);
    try {
        m_services.views.showCategories();
        if (self)
            fill();
    } catch (const RuntimeError &) {
        // The list stays as it was.
    }
}

void CategoryBox::fill()
{
    const QVector<Category> categories = readCategories(m_services.store);
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
