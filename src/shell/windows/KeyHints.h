#pragma once

#include <QVector>
#include <QWidget>

class QGridLayout;

namespace norvane {

/// A page that tells how notes come about, with the keys that make them.
class KeyHints : public QWidget
{
    Q_OBJECT

public:
    explicit KeyHints(QWidget *parent = nullptr);

    struct Hint
    {
        QString key; ///< "Ctrl+Alt+A"
        QString text;
    };
    /// Replaces the hints shown.
    void setHints(const QVector<Hint> &hints);

private:
    QGridLayout *m_grid;
};

} // namespace norvane
