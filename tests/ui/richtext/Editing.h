#pragma once

#include "fakes/Editing.h"
#include "richtext/NV_RTFEdit.h"

#include <QAction>
#include <QTest>
#include <QToolBar>
#include <gtest/gtest.h>

namespace norvane {

/// An editor that a test drives as a user does.
struct UserAtEditor : Editing
{
    NV_RTFEdit edit{services};

    void show()
    {
        edit.resize(800, 300);
        edit.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&edit));
        edit.SetFocus();
    }
    QToolBar *li() { return edit.findChild<QToolBar *>(QStringLiteral("li")); }
    QAction *button(const QString &key) { return li()->findChild<QAction *>(key); }
    void press(const QString &key) { QTest::mouseClick(li()->widgetForAction(button(key)), Qt::LeftButton); }
    QAction *item(const QString &name)
    {
        return edit.findChild<QWidget *>(QStringLiteral("mnu"))->findChild<QAction *>(name);
    }
    void select(int start, int length)
    {
        edit.setSelStart(start);
        edit.setSelLength(length);
    }
    /// The point of the viewport in the middle of a character.
    QPoint pointOf(int position)
    {
        select(position, 0);
        const QRect left = edit.box()->cursorRect();
        select(position + 1, 0);
        const QRect right = edit.box()->cursorRect();
        return {(left.x() + right.x()) / 2, left.center().y()};
    }
};

} // namespace norvane
