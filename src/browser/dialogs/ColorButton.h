#pragma once

#include <QPushButton>

namespace norvane {

/// A button that shows a colour, with its caption in an ink that stays readable on it.
class ColorButton : public QPushButton
{
    Q_OBJECT

public:
    explicit ColorButton(const QString &caption, QWidget *parent = nullptr);

    /// Blue-green-red byte order.
    quint32 color() const { return m_color; }
    void setColor(quint32 color);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    quint32 m_color = 0xFFFFFF;
};

} // namespace norvane
