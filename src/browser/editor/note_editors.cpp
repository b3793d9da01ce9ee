#include "browser/editor/note_editors.h"

#include "browser/BrowserServices.h"
#include "browser/editor/frmEditor.h"
#include "controls/BusyPointer.h"
#include "platform/EventLoop.h"
#include "shell/windows/mdiMain.h"

#include <QMdiSubWindow>
#include <QPointer>
#include <memory>

namespace norvane {

namespace {

QVector<frmEditor *> editors(const FormList &forms)
{
    QVector<frmEditor *> result;
    for (Form *form : forms.all()) {
        if (auto *editor = dynamic_cast<frmEditor *>(form))
            result.append(editor);
    }
    return result;
}

} // namespace

frmEditor *ShowNoteEditor(const BrowserServices &services, NoteRescue &rescue, mdiMain &frame, int ID,
                          const QString &title, const QString &location)
{
    QPointer<frmEditor> opened;
    {
        const BusyPointer busy;
        const bool inFrame = services.isFrameVisible();
        auto editor = std::make_unique<frmEditor>(
            services, rescue, inFrame ? frmEditor::Kind::FrameChild : frmEditor::Kind::Free);
        editor->load(ID, title, location);
        if (inFrame)
            frame.addChild(editor.get())->setWindowIcon(editor->windowIcon());
        opened = editor.release();
        services.events.yield();
    }
    if (!opened || !services.forms.contains(opened))
        return nullptr;
    opened->bringUp();
    return opened;
}

bool EditorsMayClose(const FormList &forms)
{
    const QVector<frmEditor *> asked = editors(forms);
    const auto isThere = [&](const frmEditor *editor) { return forms.contains(editor); };
    for (frmEditor *editor : asked) {
        if (isThere(editor) && !editor->mayClose())
            return false;
    }
    for (frmEditor *editor : asked) {
        if (isThere(editor))
            editor->dropChanges();
    }
    return true;
}

void RescueEditors(const FormList &forms)
{
    for (frmEditor *editor : editors(forms))
        editor->rescueChanges();
}

} // namespace norvane
