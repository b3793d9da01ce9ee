#pragma once

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QWidget>
#include <gtest/gtest.h>

namespace norvane::tests {

/// Drags something from another program on a widget, which is to take it as a copy, and drops it there.
inline void dropOn(QWidget &widget, const QMimeData &data)
{
    const Qt::DropActions offered = Qt::MoveAction | Qt::CopyAction;
    QDragEnterEvent enter({5, 5}, offered, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&widget, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({5, 5}, offered, &data, Qt::LeftButton, {});
    drop.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(&widget, &drop);
    EXPECT_TRUE(drop.isAccepted());
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction) << "a move would take the file away";
}

} // namespace norvane::tests
