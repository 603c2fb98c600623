// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibImage/pixels/CpuLevel.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Nolvex::Pixels {

/// A fixture for tests that hold at every level this processor has.
class AtEachLevel : public testing::TestWithParam<CpuLevel>
{
public:
    static std::vector<CpuLevel> levels()
    {
        std::vector<CpuLevel> levels = {CpuLevel::SSE2};
        if (detectCpuLevel() >= CpuLevel::AVX2)
            levels.push_back(CpuLevel::AVX2);
        return levels;
    }

    static std::string nameOf(const testing::TestParamInfo<CpuLevel>& info)
    {
        return info.param == CpuLevel::SSE2 ? "Sse2" : "Avx2";
    }

protected:
    void SetUp() override { ASSERT_TRUE(setCpuLevel(GetParam())); }

    void TearDown() override { ASSERT_TRUE(setCpuLevel(detectCpuLevel())); }
};

} // namespace Nolvex::Pixels
