#include "options/windows/HotKeyPage.h"

#include "browser/dialogs/dialog_parts.h"
#include "controls/named_button.h"
#include "options/HotKeyModel.h"
#include "options/hot_key_text.h"
#include "options/settings/hot_key_choice.h"
#include "options/windows/HotKeyBox.h"

#include <QGridLayout>
#include <QLabel>

namespace norvane {

namespace {

constexpr int kLowByte = 0xFF;

} // namespace

HotKeyPage::HotKeyPage(HotKeyModel &hotKeys, WindowHandle owner) : m_hotKeys(hotKeys), m_owner(owner)
{
    auto *introduction =
        new QLabel(tr("These keys work in every program. Click into a box and press the keys that you want.\n"
                      "Keys that another program has taken may not arrive here."));
    auto *grid = new QGridLayout;
    grid->setColumnStretch(2, 1);
    grid->setHorizontalSpacing(fontMetrics().averageCharWidth() * 2);
    int number = 0;
    for (const HotKeyDescription &description : HotKeyRecords::descriptions()) {
        Row &row = m_rows[static_cast<std::size_t>(number)];
        row.id = description.id;
        row.box = new HotKeyBox(QStringLiteral("HKC_") + description.name.toString(),
                                [this](quint32 scanCode) { return m_hotKeys.keyOf(scanCode); });
        row.box->setAccessibleName(description.caption.chopped(1).toString());
        row.remark = new QLabel;
        row.remark->setObjectName(row.box->objectName() + QStringLiteral("_Remark"));
        row.remark->setWordWrap(true);
        grid->addWidget(caption(description.caption.toString(), row.box), number, 0);
        grid->addWidget(row.box, number, 1);
        grid->addWidget(row.remark, number, 2);
        connect(row.box, &HotKeyBox::chosen, this, [this] {
            remark();
            emit changed();
        });
        connect(row.box, &HotKeyBox::refused, this, [this, label = row.remark](const QString &reason) {
            remark();
            tell(label, reason);
        });
        ++number;
    }
    auto *restore = namedButton(QStringLiteral("Command1"), tr("&Restore Defaults"));
    connect(restore, &QPushButton::clicked, this, [this] {
        show(HotKeyRecords());
        emit changed();
    });

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(introduction);
    layout->addSpacing(fontMetrics().height() / 2);
    layout->addLayout(grid);
    layout->addSpacing(fontMetrics().height() / 2);
    layout->addWidget(restore, 0, Qt::AlignLeft);
    layout->addStretch();
    show(m_hotKeys.records);
}

HotKeyRecords HotKeyPage::chosen() const
{
    HotKeyRecords records;
    for (const Row &row : m_rows)
        records[row.id] = recordOf(row.box->key(), row.box->modifiers());
    return records;
}

void HotKeyPage::show(const HotKeyRecords &records)
{
    for (const Row &row : m_rows) {
        const HotKeyRecord &record = records[row.id];
        row.box->setCombination(record.key & kLowByte, SwapModifiers(record.modifiers).value_or(0));
    }
    remark();
}

void HotKeyPage::remark()
{
    const HotKeyRecords records = chosen();
    for (const Row &row : m_rows)
        tell(row.remark, remarkOn(row.id, records, m_hotKeys, m_owner));
}

void HotKeyPage::tell(QLabel *label, const QString &text)
{
    label->setText(text);
    for (const Row &row : m_rows) {
        if (row.remark == label)
            row.box->setAccessibleDescription(text);
    }
}

} // namespace norvane
