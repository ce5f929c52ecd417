#include "BenchArguments.h"

#include <QByteArray>
#include <algorithm>

int countArgument(int argc, char** argv, int position, int fallback, int minimum)
{
    return argc > position ? std::max(minimum, QByteArray(argv[position]).toInt()) : fallback;
}
