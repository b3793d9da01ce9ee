#pragma once

#include <QVersionNumber>
#include <QWidget>

namespace norvane {

class Prompts;
class Shell;

/// The page "About Norvane".
class AboutPage : public QWidget
{
    Q_OBJECT

public:
    /// @p shell opens the maker's page; it and @p prompts must outlive the window.
    AboutPage(Shell &shell, Prompts &prompts, const QVersionNumber &version);
};

} // namespace norvane
