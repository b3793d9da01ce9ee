#pragma once

#include "browser/CategoryCommands.h"

#include <QWidget>
#include <functional>

class QCheckBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace norvane {

struct OptionsServices;
struct SettingsChoice;

/// The page "Note Categories": the list of categories, each change of which is made at once.
class CategoryPage : public QWidget
{
    Q_OBJECT

public:
    /// The list is empty until fill().
    explicit CategoryPage(const OptionsServices &services);

    void read(SettingsChoice &choice) const;
    /// Reads the list anew; what keeps it from being read is told.
    void fill();

signals:
    void changed();

private:
    void arrange();
    void selectionChanged();
    /// Runs a change of the list; @p change returns whether there is one to show.
    void run(const std::function<bool()> &change);
    void addPresets();
    int selectedID() const;

    const OptionsServices &m_services;
    CategoryCommands m_commands;
    QCheckBox *m_showCategory;
    QListWidget *m_list;
    QLineEdit *m_name;
    QPushButton *m_addNew;
    QPushButton *m_update;
    QPushButton *m_remove;
    QPushButton *m_presets;
};

} // namespace norvane
