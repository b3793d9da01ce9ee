#pragma once

#include <QObject>

namespace norvane {

class Prompts;
class SettingsStore;
class ShellWindows;

/// Offers once to turn the desktop's accessibility switch on, without which browsers do not tell
/// the pages they show. The answer is remembered; after a yes the switch is turned on again without
/// a word when a later session comes up with it off.
class AccessibilityOffer : public QObject
{
    Q_OBJECT

public:
    /// All three must outlive it.
    AccessibilityOffer(SettingsStore &settings, Prompts &prompts, ShellWindows &shellWindows,
                       QObject *parent = nullptr);

    /// To be called when a browser window without a location is met; may be called at any time and
    /// any number of times. The question comes from the event loop, not from within the call.
    void noticeBrowserWithoutLocation();

private slots:
    void offer();

private:
    SettingsStore &m_settings;
    Prompts &m_prompts;
    ShellWindows &m_shellWindows;
    bool m_done = false; ///< nothing more to do in this run
};

} // namespace norvane
