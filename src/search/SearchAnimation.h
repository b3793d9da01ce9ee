#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QWidget>

class QMovie;

namespace norvane {

/// Shows that a search runs: a glass that goes over a note, or a clip. It moves only while it can be seen.
class SearchAnimation : public QWidget
{
    Q_OBJECT

public:
    explicit SearchAnimation(QWidget *parent = nullptr);

    /// Takes a clip in place of the glass. Without effect where there is none, or none that can be played.
    void open(const QString &file);
    void play();
    void stop();
    bool isPlaying() const { return m_isPlaying; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void move();
    void paintGlass(QPainter &painter) const;

    QMovie *m_clip = nullptr;
    QBasicTimer m_timer;
    QElapsedTimer m_time;
    bool m_isPlaying = false;
};

} // namespace norvane
