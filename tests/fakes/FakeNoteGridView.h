#pragma once

#include "watcher/NoteGridView.h"

namespace norvane::fakes {

/// Counts what it is asked to show anew.
class FakeNoteGridView : public NoteGridView
{
public:
    int refreshes = 0;
    int aroundRefreshes = 0;
    int previewRefreshes = 0;
    int shownCategory = 0;

    void Refresh_Grid() override { ++refreshes; }
    void refreshAround() override { ++aroundRefreshes; }
    void refreshPreview() override { ++previewRefreshes; }
    int category() const override { return shownCategory; }
};

} // namespace norvane::fakes
