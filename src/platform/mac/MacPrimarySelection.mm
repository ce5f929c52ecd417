#include "platform/mac/MacPrimarySelection.h"

QCoro::Task<std::optional<QString>> MacPrimarySelection::selectedText(qint32 /*ownerProcessIdentifier*/)
{
    co_return std::nullopt;
}
