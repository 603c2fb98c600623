// SPDX-License-Identifier: MIT
#include "support/TestData.h"

// The only unit that knows where the sources lie, so that a compiler cache serves all others wherever they lie.
std::filesystem::path Nolvex::Tests::testData()
{
    return NOLVEX_TEST_DATA_DIR;
}
