#pragma once

#include <QLabel>

namespace norvane {

/// A panel of a status bar, found by its key. A text that is too long for the panel is shortened in
/// its middle and shown whole as tool tip; the accessible name always is the whole text.
class StatusPanel : public QLabel
{
    Q_OBJECT

public:
    explicit StatusPanel(const QString &key, QWidget *parent = nullptr);

    void setPanelText(const QString &text);
    QString panelText() const { return m_text; }

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_text;
};

} // namespace norvane
