#include "SampleFigures.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double fractions[] = {0.5, 0.95, 0.0, 1.0};

} // namespace

double percentile(QList<double> values, double fraction)
{
    std::sort(values.begin(), values.end());
    const auto rank = qsizetype(std::ceil(fraction * double(values.size())));
    return values.at(std::clamp<qsizetype>(rank - 1, 0, values.size() - 1));
}

QString medianAndTail(const QList<double>& samples, int width, const QString& unit)
{
    if (samples.isEmpty()) {
        return QStringLiteral("n/a");
    }
    return QStringLiteral("p50 %1 %3  p95 %2 %3")
        .arg(percentile(samples, 0.5), width, 'f', 1)
        .arg(percentile(samples, 0.95), width, 'f', 1)
        .arg(unit);
}

QString rangeOf(const QList<double>& samples)
{
    return QStringLiteral("(min %1, max %2)")
        .arg(percentile(samples, 0.0), 0, 'f', 1)
        .arg(percentile(samples, 1.0), 0, 'f', 1);
}

QString figureHeader(int width)
{
    QStringList cells;
    for (const char* head : {"p50", "p95", "min", "max"}) {
        cells.append(QString::fromLatin1(head).rightJustified(width));
    }
    return cells.join(u' ');
}

QString figureCells(const QList<double>& samples, int width, int decimals)
{
    QStringList cells;
    for (const double fraction : fractions) {
        const QString cell = samples.isEmpty()
                                 ? QStringLiteral("-")
                                 : QString::number(percentile(samples, fraction), 'f', decimals);
        cells.append(cell.rightJustified(width));
    }
    return cells.join(u' ');
}
