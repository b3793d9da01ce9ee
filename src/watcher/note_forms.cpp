#include "watcher/note_forms.h"

#include "shell/Forms.h"
#include "watcher/NotePreview.h"
#include "watcher/StickyNote.h"

#include <algorithm>

namespace norvane {

namespace {

template <typename Condition> StickyNote *firstNote(const FormList &forms, Condition condition)
{
    for (Form *form : forms.named(QStringLiteral("frmSticky"))) {
        auto *note = dynamic_cast<StickyNote *>(form);
        if (note && condition(note->fields))
            return note;
    }
    return nullptr;
}

} // namespace

StickyNote *noteOn(const FormList &forms, WindowHandle target)
{
    if (target == kNoWindow)
        return nullptr;
    return firstNote(forms, [&](const StickyFields &fields) { return fields.ParentHwnd == target; });
}

StickyNote *noteOf(const FormList &forms, int ID)
{
    return firstNote(forms, [&](const StickyFields &fields) { return fields.ID == ID; });
}

bool isPreviewed(const FormList &forms, int ID)
{
    const QVector<Form *> previews = forms.named(QStringLiteral("frmQuickView"));
    return std::any_of(previews.begin(), previews.end(), [&](const Form *form) {
        const auto *preview = dynamic_cast<const NotePreview *>(form);
        return preview && preview->previewedNote() == ID;
    });
}

} // namespace norvane
