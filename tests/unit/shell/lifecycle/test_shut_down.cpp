#include "fakes/FakeStickyNote.h"
#include "shell/lifecycle/ShutDown.h"
#include "unit/shell/lifecycle/StartUpHarness.h"

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
    ~NamedForm() override { m_forms.remove(this); }
    QString formName() const override { return m_name; }
    WindowHandle hWnd() const override { return kNoWindow; }
    void unload() override
    {
        m_forms.remove(this);
        m_onUnload();
    }

private:
    FormList &m_forms;
    QString m_name;
    std::function<void()> m_onUnload;
};

/// The log has a mark where the database is open.
class ShuttingDown : public testing::Test, protected StartUpHarness
{
protected:
    ShuttingDown()
    {
        EXPECT_EQ(run(), StartUp::Result::Running);
        windows.log.clear();
    }

    std::unique_ptr<fakes::FakeStickyNote> sticky(WindowHandle window, bool autoSave, bool dirty)
    {
        auto made = std::make_unique<fakes::FakeStickyNote>(state.forms, state.Clips, window);
        made->fields.AutoSave = autoSave;
        made->dirty = dirty;
        made->onCall = [this, window](fakes::FakeStickyNote &, const QString &name) {
            windows.add(u"note %1 %2"_s.arg(window).arg(name));
        };
        return made;
    }
    std::unique_ptr<NamedForm> form(
        const QString &name, const std::function<void()> &also = [] {})
    {
        return std::make_unique<NamedForm>(state.forms, name, [this, name, also] {
            windows.add(u"unload "_s + name);
            also();
        });
    }

    std::function<void()> onPreview = [] {};
    ShutDown shutDown{{state.store, state.watch, timer, state.forms,
                       [this] {
                           windows.add(u"unload preview"_s);
                           onPreview();
                       },
                       [this] { windows.add(u"end"_s); }}};
};

TEST_F(ShuttingDown, SavesBeforeTheDatabaseClosesAndUnloadsAfterIt)
{
    // The frame's unload leads back into the shut-down, as its close button does.
    const auto frame = form(u"mdiMain"_s, [this] { shutDown.run(); });
    const auto browser = form(u"frmMain"_s);
    const auto dirty = sticky(1, true, true);
    const auto clean = sticky(2, true, false);
    const auto careless = sticky(3, false, true);
    shutDown.run();
    EXPECT_EQ(windows.log.join(u','), u"unload preview*,interval 0*,note 1 SaveNote*,unload frmMain,"
                                      "note 1 unload,note 2 unload,note 3 unload,unload mdiMain,end");
    EXPECT_EQ(state.watch.WatchInterval, 0);
    EXPECT_FALSE(timer.running());
}

TEST_F(ShuttingDown, ComesToItsEndWhateverFails)
{
    onPreview = [] { throw RuntimeError(91, u"no preview"_s); };
    const auto frame = form(u"mdiMain"_s);
    const auto failing = form(u"frmMain"_s, [] { throw RuntimeError(5, u"a window that fails"_s); });
    std::unique_ptr<NamedForm> child;
    const auto owner = form(u"frmOwner"_s, [&] { child.reset(); });
    child = form(u"frmChild"_s);
    shutDown.run();
    EXPECT_EQ(windows.log.mid(2).join(u','), u"unload frmMain,unload frmOwner,unload mdiMain,end");
    EXPECT_EQ(state.store.database(), nullptr);
}

TEST_F(ShuttingDown, SavesAndClosesAloneWhenThereIsNoTimeForMore)
{
    const auto dirty = sticky(1, true, true);
    const auto frame = form(u"mdiMain"_s);
    shutDown.saveAndClose();
    shutDown.run();
    EXPECT_EQ(windows.log.join(u','), u"interval 0*,note 1 SaveNote*");
    EXPECT_EQ(state.store.database(), nullptr);
}

} // namespace
