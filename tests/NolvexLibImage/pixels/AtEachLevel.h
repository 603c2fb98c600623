// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibImage/pixels/CpuLevel.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Nolvex::Pixels {

/// A fixture for tests that hold at every level. The tests of a level that this processor lacks are skipped.
class AtEachLevel : public testing::TestWithParam<CpuLevel>
{
public:
    static std::vector<CpuLevel> levels() { return {CpuLevel::SSE2, CpuLevel::AVX2}; }

    static std::string nameOf(const testing::TestParamInfo<CpuLevel>& info)
    {
        return info.param == CpuLevel::SSE2 ? "Sse2" : "Avx2";
    }

protected:
    void SetUp() override
    {
        if (GetParam() > detectCpuLevel())
            GTEST_SKIP() << "this processor has no AVX2";
        ASSERT_TRUE(setCpuLevel(GetParam()));
    }

    void TearDown() override { ASSERT_TRUE(setCpuLevel(detectCpuLevel())); }
};

} // namespace Nolvex::Pixels
