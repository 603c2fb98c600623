// SPDX-License-Identifier: MIT
#include "support/PairedRatio.h"

int main(int argc, char** argv)
{
    return Nolvex::Benchmarks::measureFigures(argc, argv);
}
