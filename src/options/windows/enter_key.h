#pragma once

class QAbstractButton;
class QLineEdit;

namespace norvane {

/// Makes the Enter key in a text box press a button of its page, not the window's default button; while
/// the button is disabled the key does nothing.
void pressOnEnter(QLineEdit *box, QAbstractButton *button);

} // namespace norvane
