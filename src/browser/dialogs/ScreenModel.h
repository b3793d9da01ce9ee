#pragma once

#include <QWidget>

namespace norvane {

/// A little screen, `DSP`, in which the dot `Picture3` stands where a note will stand in its window.
class ScreenModel : public QWidget
{
    Q_OBJECT

public:
    explicit ScreenModel(QWidget *parent = nullptr);

    /// @param formPosition a FormPosition
    void setPosition(int formPosition);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QRect screenArea() const;
    void placeDot();

    QWidget *m_dot;
    int m_position = 0;
};

} // namespace norvane
