#pragma once

#include <QList>
#include <algorithm>
#include <cmath>

// The nearest-rank percentile of samples; fraction 0.5 is the median. The list must not be empty.
inline double percentile(QList<double> values, double fraction)
{
    std::sort(values.begin(), values.end());
    const auto rank = qsizetype(std::ceil(fraction * double(values.size())));
    return values.at(std::clamp<qsizetype>(rank - 1, 0, values.size() - 1));
}
