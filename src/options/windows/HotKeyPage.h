#pragma once

#include "options/HotKeyRecords.h"
#include "platform/WindowHandle.h"

#include <QWidget>
#include <array>

class QLabel;

namespace norvane {

class HotKeyBox;
class HotKeyModel;

/// The page "Hotkeys": a box for each hot key, and beside it what is wrong with what it holds.
class HotKeyPage : public QWidget
{
    Q_OBJECT

public:
    /// Shows the hot keys as they are. They must be withdrawn as long as the page is there.
    /// @param owner the window that they belong to
    HotKeyPage(HotKeyModel &hotKeys, WindowHandle owner);

    /// What the boxes hold, as it is stored.
    HotKeyRecords chosen() const;

signals:
    void changed();

private:
    struct Row
    {
        HotKeyId id = HotKeyId::Main;
        HotKeyBox *box = nullptr;
        QLabel *remark = nullptr;
    };

    void show(const HotKeyRecords &records);
    void remark();
    void tell(QLabel *label, const QString &text);

    HotKeyModel &m_hotKeys;
    WindowHandle m_owner;
    std::array<Row, HotKeyRecords::kCount> m_rows;
};

} // namespace norvane
