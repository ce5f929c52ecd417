#pragma once

#include "platform/PrimarySelection.h"

// A selection held by one scripted process; every other process owns nothing.
class FakePrimarySelection : public PrimarySelection {
public:
    QCoro::Task<std::optional<QString>> selectedText(qint32 ownerProcessIdentifier) override
    {
        ++reads;
        co_return ownerProcessIdentifier == owner ? text : std::nullopt;
    }

    qint32 owner = 0;
    std::optional<QString> text;
    int reads = 0;
};
