#pragma once

#include <QAbstractButton>

namespace norvane {

/// The pin at the left of a note's title strip: a picture button without a latched state.
class PinButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit PinButton(QWidget *parent);

    void setInk(const QColor &ink);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QColor m_ink;
};

} // namespace norvane
