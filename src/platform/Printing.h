#pragma once

#include <memory>

class QPagedPaintDevice;

namespace norvane {

/// A document on its way to a printer or into a file. It is sent when the job is destroyed.
class PrintJob
{
public:
    virtual ~PrintJob();

    /// Where the pages are painted; owned by the job.
    virtual QPagedPaintDevice &device() = 0;
    /// Whether the user wants the selection alone.
    virtual bool selectionOnly() const = 0;
};

/// Printing with a printer that the user chooses.
class Printing
{
public:
    virtual ~Printing();

    /// Shows the printer dialog, without a choice of pages.
    /// @param offerSelection whether printing the selection alone is offered, and set
    /// @return nullptr when cancelled
    virtual std::unique_ptr<PrintJob> choosePrinter(bool offerSelection) = 0;
};

} // namespace norvane
