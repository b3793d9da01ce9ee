#pragma once

#include <QString>
#include <optional>

namespace norvane::rtf {

/// Where a link leads, as the instruction of a field says it.
struct LinkTarget
{
    QString address; ///< "#name" is a place in the document
    QString tip;
};

/// The target of a HYPERLINK instruction; nothing for other instructions, and without a target.
std::optional<LinkTarget> linkOf(const QString &instruction);
/// The instruction of a link.
QString instructionOf(const LinkTarget &target);

/// A sign of a font, as a SYMBOL instruction names it.
struct SymbolSign
{
    QString font;
    int number = 0; ///< of the sign, or a Unicode value
    bool isUnicode = false;
};
std::optional<SymbolSign> symbolOf(const QString &instruction);

} // namespace norvane::rtf
