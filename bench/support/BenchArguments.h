#pragma once

// The counts a benchmark takes on its command line.

// The whole number given as argument `position` (1 is the first after the program), never below minimum;
// fallback when the command line stops before it.
int countArgument(int argc, char** argv, int position, int fallback, int minimum);
