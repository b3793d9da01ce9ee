#pragma once

#include <QIcon>

class QWidget;

namespace norvane {

/// The application's icon: the one that it has been given, else the desktop theme's, when it has one named
/// "norvane", else our own.
QIcon applicationIcon();

/// Gives a window the application's icon.
void SetFormIcon(QWidget *form);

/// An icon for each of the keyed tool bar buttons, "NOTEBROWSER" to "EXIT"; null for another key.
/// They come from the desktop's icon theme if it has all of them, so that they always match.
QIcon toolIcon(const QString &key);

} // namespace norvane
