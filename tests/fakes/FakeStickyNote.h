#pragma once

#include "platform/RuntimeError.h"
#include "shell/Forms.h"
#include "watcher/StickyFactory.h"
#include "watcher/StickyNote.h"
#include "watcher/clsClips.h"

#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

namespace norvane::fakes {

/// A sticky note without a window: keeps the order of the calls and what it was given.
class FakeStickyNote : public StickyNote
{
public:
    QStringList calls;
    QVector<quint32> colors;
    QRectF twips;
    QPoint pixels = QPoint(-1, -1);
    QSize size = QSize(340, 253);
    WindowHandle parentWindow = kNoWindow;
    QString body;
    bool toolBar = false;
    bool autoURLDetect = false;
    bool dirty = false;
    bool shown = false;
    bool unloaded = false;
    int bodyError = 0; ///< raised by loadBody() where above 0
    /// Runs at the start of every call, by its name.
    std::function<void(FakeStickyNote &, const QString &)> onCall;

    FakeStickyNote(FormList &forms, clsClips &clips, WindowHandle window)
        : m_forms(forms), m_clips(clips), m_window(window)
    {
        m_forms.add(this);
    }
    ~FakeStickyNote() override { m_forms.remove(this); }

    QString formName() const override { return QStringLiteral("frmSticky"); }
    WindowHandle hWnd() const override { return m_window; }
    void unload() override
    {
        call(QStringLiteral("unload"));
        if (unloaded)
            return;
        if (fields.AutoSave && dirty)
            SaveNote();
        unloaded = true;
        shown = false;
        m_clips.RemoveByHwnd(m_window);
        m_forms.remove(this);
    }

    void setParentWindow(WindowHandle target) override
    {
        call(QStringLiteral("setParentWindow"));
        parentWindow = target;
    }
    void setTextBackColor(quint32 color) override
    {
        call(QStringLiteral("setTextBackColor"));
        colors.append(color);
    }
    void setToolBar(bool on) override
    {
        call(QStringLiteral("setToolBar"));
        toolBar = on;
    }
    void setAutoURLDetect(bool on) override
    {
        call(QStringLiteral("setAutoURLDetect"));
        autoURLDetect = on;
    }
    void moveTwips(const QRectF &rect) override
    {
        call(QStringLiteral("moveTwips"));
        twips = rect;
    }
    QRectF rectTwips() const override { return twips; }
    void movePixels(const QPoint &position) override
    {
        call(QStringLiteral("movePixels"));
        pixels = position;
    }
    QSize sizePixels() const override { return size; }
    void setCaption(const QString &caption) override
    {
        call(QStringLiteral("setCaption"));
        m_caption = caption;
    }
    QString caption() const override { return m_caption; }
    void clearText() override { call(QStringLiteral("clearText")); }
    void loadBody(const QString &path) override
    {
        call(QStringLiteral("loadBody"));
        if (bodyError > 0)
            throw RuntimeError(bodyError, QStringLiteral("Injected"));
        body = path;
    }
    void SetSaveMode(bool enabled) override
    {
        call(QStringLiteral("SetSaveMode"));
        dirty = enabled;
    }
    void resetSaveState() override
    {
        call(QStringLiteral("resetSaveState"));
        dirty = false;
    }
    bool isDirty() const override { return dirty; }
    void showNote() override
    {
        call(QStringLiteral("showNote"));
        shown = true;
    }
    void nudge() override { call(QStringLiteral("nudge")); }
    void mnuFile_Close_Click() override
    {
        call(QStringLiteral("mnuFile_Close_Click"));
        unload();
    }
    void saveAtExit() override
    {
        if (fields.AutoSave && dirty)
            SaveNote();
    }
    void SaveNote() override
    {
        call(QStringLiteral("SaveNote"));
        dirty = false;
    }

private:
    void call(const QString &name)
    {
        calls.append(name);
        if (onCall)
            onCall(*this, name);
    }

    FormList &m_forms;
    clsClips &m_clips;
    WindowHandle m_window;
    QString m_caption;
};

/// Makes fake notes and keeps them all, the unloaded ones too, for the test to look at.
class FakeStickyFactory : public StickyFactory
{
public:
    FakeStickyFactory(FormList &forms, clsClips &clips) : m_forms(forms), m_clips(clips) {}

    std::vector<std::unique_ptr<FakeStickyNote>> made;
    /// Runs while a note is being made, before anyone has it: events that its birth let run.
    std::function<void(FakeStickyNote &)> onCreate;

    StickyNote *create() override
    {
        made.push_back(std::make_unique<FakeStickyNote>(m_forms, m_clips, kFirstWindow + made.size()));
        if (onCreate)
            onCreate(*made.back());
        return made.back().get();
    }
    /// The notes that are open now, oldest first.
    QVector<FakeStickyNote *> open() const
    {
        QVector<FakeStickyNote *> notes;
        for (const auto &note : made) {
            if (!note->unloaded)
                notes.append(note.get());
        }
        return notes;
    }

private:
    static constexpr WindowHandle kFirstWindow = 500000;
    FormList &m_forms;
    clsClips &m_clips;
};

} // namespace norvane::fakes
