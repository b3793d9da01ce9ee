#pragma once

#include <QFrame>

class QIcon;
class QToolButton;

namespace norvane {

class TitleLabel;

/// The strip `Label1` at the top of a note's window: the title `lblTitle`, and small buttons behind it.
///
/// A title is shown as it is written, in one line, and shortened at its end when there is no room.
class TitleStrip : public QFrame
{
    Q_OBJECT

public:
    explicit TitleStrip(QWidget *parent = nullptr);

    QString title() const;
    void setTitle(const QString &title);
    void setTitleToolTip(const QString &text);
    /// A button at the right of the last one. Owned by the strip.
    QToolButton *addButton(const QString &name, const QIcon &icon, const QString &toolTip);

private:
    TitleLabel *m_title;
};

} // namespace norvane
