#pragma once

#include <QLineEdit>

class QPushButton;

namespace norvane {

class Prompts;

/// The box of a note's location, which it cleans when it is left, with a button "..." to choose a file.
class LocationBox : public QLineEdit
{
    Q_OBJECT

public:
    /// @param prompts    must outlive it
    /// @param buttonName of the button
    LocationBox(Prompts &prompts, const QString &name, const QString &buttonName);

    /// To be laid out behind the box; owned by where it is put.
    QPushButton *browseButton() const { return m_browse; }
    /// Makes the text one that can be kept.
    void clean();

private:
    void browse();

    Prompts &m_prompts;
    QPushButton *m_browse;
};

} // namespace norvane
