#pragma once

#include <QValidator>

namespace norvane {

/// Lets no half of a character into a box of limited length, where one of two units may be cut off.
class WholeCharacters : public QValidator
{
    Q_OBJECT

public:
    using QValidator::QValidator;

    /// Takes halves out of the text, which is acceptable then.
    State validate(QString &text, int &cursor) const override;
};

} // namespace norvane
