#include "fakes/FakeStickyNote.h"
#include "shell/lifecycle/ShutDown.h"
#include "unit/shell/lifecycle/StartUpHarness.h"

#include <QFileInfo>
#include <gmock/gmock.h>

using namespace norvane;
using namespace norvane::test;

namespace {

/// A window that tells when it goes.
class NamedForm : public Form
{
public:
    NamedForm(FormList &forms, QString name, std::function<void()> onUnload)
        : m_forms(forms), m_name(std::move(name)), m_onUnload(std::move(onUnload))
    {
        m_forms.add(this);
    }
    QString formName() const override { return m_name; }
    WindowHandle hWnd() const override { return kNoWindow; }
    void unload() override
    {
        m_onUnload();
        m_forms.remove(this);
    }

private:
    FormList &m_forms;
    QString m_name;
    std::function<void()> m_onUnload;
};

class ShuttingDown : public testing::Test, protected StartUpHarness
{
protected:
    ShuttingDown()
    {
        EXPECT_EQ(run(), StartUp::Result::Running);
        windows.log.clear();
    }

    ShutDownParts parts()
    {
        return {state.store,
                state.watch,
                timer,
                state.forms,
                [this] { note(QStringLiteral("unload preview")); },
                [this] { note(QStringLiteral("end")); }};
    }
    /// Writes down what happens, and whether the database is open meanwhile.
    void note(const QString &what)
    {
        windows.add(what + (state.store.database() ? QStringLiteral(", database open") : QString()));
    }
    std::unique_ptr<fakes::FakeStickyNote> sticky(WindowHandle window, bool autoSave, bool dirty)
    {
        auto made = std::make_unique<fakes::FakeStickyNote>(state.forms, state.Clips, window);
        made->fields.AutoSave = autoSave;
        made->dirty = dirty;
        made->onCall = [this, window](fakes::FakeStickyNote &, const QString &name) {
            note(QStringLiteral("note %1 %2").arg(window).arg(name));
        };
        return made;
    }
    std::unique_ptr<NamedForm> form(const QString &name, const std::function<void()> &also = {})
    {
        return std::make_unique<NamedForm>(state.forms, name, [this, name, also] {
            note(QStringLiteral("unload ") + name);
            if (also)
                also();
        });
    }
};

TEST_F(ShuttingDown, savesBeforeTheDatabaseClosesAndUnloadsAfterIt)
{
    ShutDown shutDown(parts());
    // The frame's unload leads back into the shut-down, as its close button does.
    const auto frame = form(QStringLiteral("mdiMain"), [&shutDown] { shutDown.run(); });
    const auto browser = form(QStringLiteral("frmMain"));
    const auto dirty = sticky(1, true, true);
    const auto clean = sticky(2, true, false);
    const auto careless = sticky(3, false, true);
    shutDown.run();
    EXPECT_EQ(windows.log.join(u'\n').toStdString(), "unload preview, database open\n"
                                                     "interval 0\n"
                                                     "note 1 SaveNote, database open\n"
                                                     "unload frmMain\n"
                                                     "note 1 unload\n"
                                                     "note 2 unload\n"
                                                     "note 3 unload\n"
                                                     "unload mdiMain\n"
                                                     "end");
    EXPECT_EQ(state.watch.WatchInterval, 0);
    EXPECT_FALSE(timer.running());
}

TEST_F(ShuttingDown, errorsChangeNothingOfIt)
{
    ShutDownParts failing = parts();
    failing.unloadPreview = [] { throw RuntimeError(91, QStringLiteral("no preview")); };
    ShutDown shutDown(failing);
    const auto browser = form(QStringLiteral("frmMain"), [this] {
        state.forms.remove(state.forms.named(QStringLiteral("frmMain")).constFirst());
        throw RuntimeError(5, QStringLiteral("a window that fails"));
    });
    const auto frame = form(QStringLiteral("mdiMain"));
    shutDown.run();
    EXPECT_EQ(windows.log.mid(1).join(u'\n').toStdString(), "unload frmMain\nunload mdiMain\nend");
    EXPECT_EQ(state.store.database(), nullptr);
}

TEST_F(ShuttingDown, aFormThatTakesAnotherAlongIsNoFault)
{
    auto child = form(QStringLiteral("frmChild"));
    state.forms.remove(child.get());
    const auto owner = form(QStringLiteral("frmOwner"), [&] {
        state.forms.remove(child.get());
        child.reset();
    });
    state.forms.add(child.get());
    ShutDown(parts()).run();
    EXPECT_TRUE(windows.log.contains(QStringLiteral("unload frmOwner")));
    EXPECT_EQ(windows.log.constLast(), QStringLiteral("end"));
}

TEST_F(ShuttingDown, savesAndClosesAloneWhenThereIsNoTimeForMore)
{
    const auto dirty = sticky(1, true, true);
    const auto frame = form(QStringLiteral("mdiMain"));
    ShutDown shutDown(parts());
    shutDown.saveAndClose();
    shutDown.run();
    EXPECT_EQ(windows.log.join(u'\n').toStdString(), "interval 0\nnote 1 SaveNote, database open");
    EXPECT_EQ(state.store.database(), nullptr);
}

} // namespace
