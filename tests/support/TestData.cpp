// SPDX-License-Identifier: MIT
#include "support/TestData.h"

// Only this unit contains the path of the sources, so that clones at other paths can share the compiled
// objects of all other units through a compiler cache.
std::filesystem::path Nolvex::Tests::testData()
{
    return NOLVEX_TEST_DATA_DIR;
}
