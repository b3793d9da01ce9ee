#pragma once

#include <QObject>
#include <QStringList>
#include <functional>

class QMimeData;
class QWidget;

namespace norvane {

/// Takes the files and texts that other programs drop on a widget, or on what lies in it and takes none
/// itself. They come as copies, whatever the other program proposes: nothing of its is to go.
class DropTarget : public QObject
{
    Q_OBJECT

public:
    /// @param widget   takes drops from now on, and owns this
    /// @param isWanted asked when a drag comes in; empty: always
    explicit DropTarget(QWidget *widget, std::function<bool()> isWanted = {});

signals:
    /// Files, as droppedFiles() gives them, or where there is none a text. Raised when the drop has
    /// returned: whoever handles it may ask the user, and the other program must not wait for that.
    void dropped(const QStringList &Files, const QString &Text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::function<bool()> m_isWanted;
};

/// The files of this machine that a drag brings: native paths without a separator at the end. A file whose
/// name is no text, as bytes go, or none that a location can be, stands as its address
/// ("file:///tmp/caf%E9", "file:///tmp/a%22b"). Other addresses are left out.
QStringList droppedFiles(const QMimeData &data);

} // namespace norvane
