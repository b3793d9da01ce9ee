#pragma once

#include "options/settings/TrackedPrograms.h"

#include <QWidget>
#include <functional>

class QLineEdit;
class QPushButton;
class QTreeWidget;

namespace norvane {

struct OptionsServices;

/// The page "Programs": which programs' windows can have notes. What is changed here takes effect at once.
class ProgramsPage : public QWidget
{
    Q_OBJECT

public:
    explicit ProgramsPage(const OptionsServices &services);

    /// Shows the programs as they are now.
    void fill();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void arrange();
    void enableButtons();
    void run(const std::function<void()> &change);

    const OptionsServices &m_services;
    TrackedPrograms m_programs;
    QTreeWidget *m_tracked;
    QPushButton *m_remove;
    QTreeWidget *m_running;
    QLineEdit *m_name;
    QPushButton *m_add;
};

} // namespace norvane
