#pragma once

#include "platform/Mail.h"
#include "platform/RuntimeError.h"

#include <QVector>

namespace norvane::fakes {

/// A mail program that keeps what it was to show.
class FakeMail : public Mail
{
public:
    QVector<MailMessage> composed;
    bool isThere = true;
    int error = 0; ///< what showing a message raises

    bool isSetUp() const override { return isThere; }
    void compose(const MailMessage &message) override
    {
        if (error)
            throw RuntimeError(error, QStringLiteral("Cancelled."));
        composed.append(message);
    }
};

} // namespace norvane::fakes
