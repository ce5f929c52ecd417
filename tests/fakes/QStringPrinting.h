#pragma once

#include <QString>
#include <ostream>

// Lets failed expectations show texts instead of UTF-16 code units.
inline void PrintTo(const QString& text, std::ostream* os)
{
    *os << '"' << text.toStdString() << '"';
}
