#pragma once

#include "platform/Printing.h"

namespace norvane {

/// The desktop's printers, and PDF files.
class QtPrinting : public Printing
{
public:
    std::unique_ptr<PrintJob> choosePrinter(bool offerSelection) override;
};

} // namespace norvane
