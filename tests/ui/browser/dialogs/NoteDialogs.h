#pragma once

#include "ui/sticky/StickyWindow.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>

namespace norvane::tests {

/// What the dialogs of notes work on: three notes, one of them in a real window, and three categories.
class NoteDialogs : public StickyWindow
{
protected:
    void SetUp() override
    {
        for (const QString &name : {u"Tom & Jerry"_qs, u"\"Quoted\""_qs, QString(50, u'W')})
            addCategory(name);
        second = addNote(u"Second"_qs, u"/second"_qs, {{u"CAT_ID"_qs, categoryID(u"Tom & Jerry"_qs)}});
        third = addNote(u"Third"_qs, QString());
        StickyWindow::SetUp();
        grid.refreshes = grid.aroundRefreshes = 0;
    }
    void TearDown() override
    {
        for (Form *form : forms.all()) {
            if (forms.contains(form) && form != note)
                form->unload();
        }
        StickyWindow::TearDown();
    }

    void addCategory(const QString &name)
    {
        const auto categories = store.database()->openRecordset(u"select * from Category"_qs);
        categories->addNew();
        categories->setField(u"Name"_qs, name);
        categories->update();
        store.CategorySet()->requery();
    }
    int categoryID(const QString &name) const
    {
        store.CategorySet()->findFirst(u"Name='"_qs + name + u'\'');
        return store.CategorySet()->field(u"ID"_qs).toInt();
    }

    template <typename Kind = QWidget> static Kind *in(const QWidget *form, const QString &name)
    {
        return form->findChild<Kind *>(name);
    }
    static bool isOn(const QWidget *form, const QString &name) { return in(form, name)->isEnabled(); }
    static QString text(const QWidget *form, const QString &name)
    {
        return in<QLineEdit>(form, name)->text();
    }
    /// Types over what is in the box, with its focus.
    static void write(const QWidget *form, const QString &name, const QString &newText)
    {
        auto *box = in<QLineEdit>(form, name);
        box->setFocus();
        box->selectAll();
        QTest::keyClick(box, Qt::Key_Delete);
        QTest::keyClicks(box, newText);
    }
    static void click(const QWidget *form, const QString &name)
    {
        auto *button = in<QAbstractButton>(form, name);
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(12, button->height() / 2));
    }
    void choose(const QWidget *form, const QString &entry)
    {
        auto *list = in<QComboBox>(form, u"Combo1"_qs);
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Home);
        while (list->currentText() != entry && list->currentIndex() + 1 < list->count())
            QTest::keyClick(list, Qt::Key_Down);
        ASSERT_EQ(list->currentText(), entry);
    }
    static void showActive(QWidget *form)
    {
        form->show();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
    }

    BrowserServices services = browserServices<Desk>(*this, settings);
    int second = 0;
    int third = 0;
};

} // namespace norvane::tests
