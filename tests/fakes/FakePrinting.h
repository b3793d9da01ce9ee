#pragma once

#include "platform/Printing.h"

#include <QVector>
#include <functional>

namespace norvane::fakes {

/// A printer dialog that keeps what it was to offer. It is cancelled unless a test gives it a job.
class FakePrinting : public Printing
{
public:
    QVector<bool> offers; ///< whether the selection was
    std::function<std::unique_ptr<PrintJob>()> makeJob;

    std::unique_ptr<PrintJob> choosePrinter(bool offerSelection) override
    {
        offers.append(offerSelection);
        return makeJob ? makeJob() : nullptr;
    }
};

} // namespace norvane::fakes
