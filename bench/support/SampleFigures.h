#pragma once

#include <QList>
#include <QString>

// How the benchmarks print a series of samples, so that every figure of one kind reads the same.

// The nearest-rank percentile of samples; fraction 0.5 is the median, 0 the minimum, 1 the maximum. The list
// must not be empty.
double percentile(QList<double> values, double fraction);
// "p50 X ms  p95 Y ms" with one decimal, each number right-aligned in width; "n/a" when there are no samples.
QString medianAndTail(const QList<double>& samples, int width = 0,
                      const QString& unit = QStringLiteral("ms"));
// "(min X, max Y)" with one decimal. The list must not be empty.
QString rangeOf(const QList<double>& samples);
// The column heads "p50 p95 min max", each right-aligned in width and set apart by a space.
QString figureHeader(int width);
// The samples' p50, p95, minimum and maximum under figureHeader(width), with this many decimals; "-" in each
// cell when there are no samples.
QString figureCells(const QList<double>& samples, int width, int decimals);
