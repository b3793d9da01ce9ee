#pragma once

#include <QWidget>
#include <functional>

class QToolButton;

namespace norvane {

/// The strip of buttons `Picture2` beside the list: what can be done with the selected note, and what can
/// be opened from here.
class SideStrip : public QWidget
{
    Q_OBJECT

public:
    explicit SideStrip(QWidget *parent = nullptr);

    /// @param name of a button: "btnOpenURL", "ARButton2", …; nullptr for another
    QToolButton *button(const QString &name) const;
    /// Disables what acts on a note when there is none, and enables it otherwise.
    void makeUp(bool hasNotes);
    /// Whether a button leads anywhere; one that does not stays disabled. At first all do.
    void setAvailable(const QString &name, bool available);
    void setButtonEnabled(const QString &name, bool enabled);
    /// Caption and state of `ARButton10`.
    void setPreviewOpen(bool open);

signals:
    void buttonClicked(const QString &name);

protected:
    void changeEvent(QEvent *event) override;

private:
    void fitIcons();
};

} // namespace norvane
