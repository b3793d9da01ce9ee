#pragma once

namespace norvane {

/// The columns of a list of notes.
enum NoteColumn {
    kColumnActive = 1,
    kColumnTitle = 2,
    kColumnDateCreated = 3,
    kColumnLastUpdate = 4,
    kColumnLocation = 5,
    kColumnType = 6,
    kColumnID = 7, ///< this one and the next two are never shown
    kColumnDC = 8, ///< the date of kColumnDateCreated, to sort by
    kColumnLU = 9,
    kColumnCategory = 10,
};

/// Numbers of the icons in `ilsIcons`.
enum NoteIcon {
    kIconOpen = 1,
    kIconEdit = 2,
    kIconDelete = 3,
    kIconSaveAs = 4,
    kIconProperties = 5,
    kIconNew = 11,
    kIconNote = 17,
    kIconActivate = 21,
    kIconSearch = 23,
    kIconActive = 24,
    kIconMail = 26,
    kIconFolder = 27,
    kIconFavorites = 28,
};

} // namespace norvane
