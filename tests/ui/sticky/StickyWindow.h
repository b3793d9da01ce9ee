#pragma once

#include "ui/WindowParts.h"
#include "unit/watcher/Desk.h"

#include "controls/menuview/menu_images.h"
#include "fakes/FakeEmbedding.h"
#include "fakes/FakeHotKeys.h"
#include "fakes/FakeNotifier.h"
#include "fakes/FakeScreenCapture.h"
#include "richtext/NV_RTFEdit.h"
#include "sticky/frmSticky.h"
#include "sticky/frmStickyFactory.h"
#include "store/NoteRescue.h"

#include <QPointer>
#include <QTest>
#include <gtest/gtest.h>

namespace norvane::tests {

inline const QRectF kPlace(300, 450, 5100, 3801); // 3801 twips are no whole number of pixels

/// A note's real window, opened by the watch cycle on a page that is only told of.
class StickyWindow : public testing::Test, protected Desk, protected WindowParts
{
protected:
    using Desk::settings;

    StickyWindow() : Desk(&factory), WindowParts(files, shell, clock) {}

    void SetUp() override
    {
        id = addNote(u"Letters"_qs, u"http://letters/"_qs,
                     {{u"AutoSave"_qs, true},
                      {u"winLeft"_qs, kPlace.left()},
                      {u"winTop"_qs, kPlace.top()},
                      {u"winWidth"_qs, kPlace.width()},
                      {u"winHeight"_qs, kPlace.height()}});
        target = openPage(u"Letters"_qs, u"http://letters/"_qs);
        tick();
        ASSERT_EQ(Clips.Count(), 1);
        note = dynamic_cast<frmSticky *>(forms.byHwnd(Clips.Item(1).hWnd));
        ASSERT_TRUE(note);
    }

    void TearDown() override
    {
        if (note)
            note->unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QVariant field(const QString &name) const { return noteField(id, name); }
    QRectF storedPlace() const
    {
        return {field(u"winLeft"_qs).toDouble(), field(u"winTop"_qs).toDouble(),
                field(u"winWidth"_qs).toDouble(), field(u"winHeight"_qs).toDouble()};
    }

    template <typename Kind> Kind *part(const QString &name) { return note->findChild<Kind *>(name); }
    void type(const QString &text) { QTest::keyClicks(part<QWidget>(u"RichTextBox1"_qs), text); }
    void press(QWidget *widget) { QTest::mouseClick(widget, Qt::LeftButton, {}, {100, 10}); }

    bool saved() const { return files.files.contains(store.bodyFile(id)); }
    int rescued() const
    {
        const auto paths = files.files.keys();
        return static_cast<int>(std::count_if(
            paths.begin(), paths.end(), [](const QString &path) { return path.contains(u"/Rescued/"); }));
    }

    fakes::FakeEmbedding embedding;
    fakes::FakeHotKeys hotKeys;
    fakes::FakeNotifier notifier;
    fakes::FakeNoteGridView &grid = browserView;
    NoteRescue rescue{store, files, clock, notifier, [](const QString &) {}};
    fakes::FakeScreenCapture capture;
    IconList menuImages{sharedMenuImages()};
    frmStickyFactory factory{{store,         forms,
                              Clips,         windows,
                              embedding,     timer,
                              settings,      events,
                              clock,         sound,
                              hotKeys,       grid,
                              rescue,        edit,
                              capture,       views,
                              menuImages,    [] { return u"Ctrl+Alt+D"_qs; },
                              Twips(96, 96), u"/click.wav"_qs}};
    WindowHandle target = kNoWindow;
    int id = 0;
    QPointer<frmSticky> note;
};

} // namespace norvane::tests
