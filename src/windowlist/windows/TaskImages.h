#pragma once

#include "windowlist/list/TaskRows.h"

#include <QIcon>

namespace norvane {

class WindowSystem;

/// The rows of the Window List with the icons of their windows: 16 and 32 pixels, sharp on the screen. A
/// window without one has a picture of ours.
///
/// An icon is read when it is first painted, and once.
class TaskImages : public TaskRows
{
    Q_OBJECT

public:
    static constexpr int kSmallSide = 16;
    static constexpr int kLargeSide = 32;

    TaskImages(WindowSystem &windows, CTaskList &tasks, WindowLookup &lookup);

    /// Pixels of the screen to one of the list; reads icons anew when it changes.
    void setScale(double scale);

    QVariant data(const QModelIndex &index, int role) const override;

private:
    QIcon iconOf(const QModelIndex &index) const;
    void addPicture(QIcon &icon, IconHandle handle, int side) const;

    WindowSystem &m_windows;
    double m_scale = 1;
    QIcon m_null; ///< "null", the placeholder
    struct Known
    {
        IconHandle small = 0;
        IconHandle large = 0;
        QIcon icon;
    };
    mutable QHash<QString, Known> m_icons; ///< by the key of the row
};

} // namespace norvane
