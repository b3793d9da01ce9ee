#pragma once

#include "platform/Prompts.h"

#include <QColor>
#include <QDialog>
#include <QFont>

class QFontDialog;
class QPushButton;

namespace norvane {

/// Colours as values in blue-green-red byte order.
QColor colorOfValue(quint32 value);
quint32 valueOfColor(const QColor &color);

/// A font dialog that also has a colour.
class FontDialog : public QDialog
{
    Q_OBJECT

public:
    FontDialog(const FontChoice &start, QWidget *parent);

    FontChoice choice() const;

private:
    void chooseColor();
    void showColor();

    FontChoice m_start;
    QFont m_shown; ///< what the dialog made of it
    QFontDialog *m_fonts;
    QPushButton *m_colorButton;
    QColor m_color;
};

} // namespace norvane
