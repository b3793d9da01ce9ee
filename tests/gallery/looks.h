#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace norvane::gallery {

/// Takes pictures in a light and in a dark palette, at the scale of the screen (QT_SCALE_FACTOR=2 for a
/// sharp one). The program's one argument is the folder that they go to.
/// @param name   of the pictures: they go into "NAME-light-100" and the like
/// @param shoot  takes them into a folder; false when one failed
/// @return the exit code of the process
int takePictures(int argc, char **argv, const QString &name,
                 const std::function<bool(const QString &folder)> &shoot);

/// Lets what was started with a window come to its end.
void settle();

/// The pictures of one look, in a folder of their own.
class Pictures
{
public:
    explicit Pictures(QString folder);

    /// Where the picture of a name goes.
    QString file(const QString &name) const;
    /// Takes a picture of a window that has settled.
    void keep(QWidget &window, const QString &name);
    /// What had to succeed for the pictures to be right.
    void require(bool succeeded) { m_isDone = m_isDone && succeeded; }
    bool isDone() const { return m_isDone; }

private:
    QString m_folder;
    bool m_isDone = true;
};

} // namespace norvane::gallery
