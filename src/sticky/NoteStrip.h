#pragma once

#include "sticky/note_paper.h"

#include <QLabel>
#include <QWidget>

namespace norvane {

class PinButton;

/// The title strip of a note: `Picture1` with the pin, the decorative `Image1` and the name. All of
/// it but the pin takes hold of the note for a move; the presses go to the note, which is the parent.
class NoteStrip : public QWidget
{
    Q_OBJECT

public:
    explicit NoteStrip(QWidget *parent);

    PinButton *pin() const { return m_pin; }
    /// The height of the strip: more than kNoteStrip where the desktop's font is a large one.
    int thickness() const;
    void setCaption(const QString &caption);
    QString caption() const { return m_caption; }
    void setPaper(const NotePaper &paper);
    void setActive(bool active);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void elide();

    PinButton *m_pin;
    QWidget *m_image;
    QLabel *m_label;
    QString m_caption;
    NotePaper m_paper;
    bool m_active = false;
};

} // namespace norvane
