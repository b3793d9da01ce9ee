#pragma once

#include "exchange/drops/NewNoteForms.h"

#include <functional>

class QWidget;

namespace norvane {

struct BrowserServices;

/// Real dialogs for drops.
class NewNoteDialogs : public NewNoteForms
{
public:
    /// @param services must outlive it
    /// @param parent   what a dialog belongs to; asked when one is needed, may give nullptr
    NewNoteDialogs(const BrowserServices &services, std::function<QWidget *()> parent);

    void setBusy(bool busy) override;
    void show(const Contents &contents, NewNoteDrop &drop) override;
    void pressOk(const Contents &contents, NewNoteDrop &drop) override;

private:
    const BrowserServices &m_services;
    std::function<QWidget *()> m_parent;
    bool m_isBusy = false;
};

} // namespace norvane
