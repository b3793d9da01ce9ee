#pragma once

#include "controls/ImageList.h"

#include <QHash>
#include <QStringList>

namespace norvane {

/// `ilsIcons`: the icons of a list of notes and of its menu, by the numbers of NoteIcon. They are drawings
/// in the desktop's colours, except for the folder where the desktop's theme has one.
class NoteGridImages : public ImageList
{
public:
    QIcon icon(int index) const override;

private:
    mutable QHash<int, QIcon> m_icons; ///< those that were asked for
};

/// `imgHeader`: its icon 0 stands over the marks of active notes.
IconList noteHeaderImages();

/// The desktop's icons of kinds of files.
class FileIcons
{
public:
    /// The first of these names that the desktop's theme has; a drawing where it has none of them.
    QIcon operator()(const QStringList &names);

private:
    QHash<QString, QIcon> m_icons; ///< by the first name
};

} // namespace norvane
