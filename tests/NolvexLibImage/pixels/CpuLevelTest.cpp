// SPDX-License-Identifier: MIT
#include "NolvexLibImage/pixels/CpuLevel.h"

#include "NolvexLib/StopException.h"

#include <gtest/gtest.h>

namespace Nolvex::Pixels {

TEST(CpuLevelTest, cpuLevel_atFirst_isTheDetectedOne)
{
    EXPECT_EQ(cpuLevel(), detectCpuLevel());
}

TEST(CpuLevelTest, setCpuLevel_toALowerLevel_holdsUntilTheNext)
{
    ASSERT_TRUE(setCpuLevel(CpuLevel::SSE2));
    EXPECT_EQ(cpuLevel(), CpuLevel::SSE2);
    ASSERT_TRUE(setCpuLevel(detectCpuLevel()));
    EXPECT_EQ(cpuLevel(), detectCpuLevel());
}

TEST(CpuLevelTest, setCpuLevel_acceptsWhatTheProcessorHasAndNothingElse)
{
    EXPECT_EQ(setCpuLevel(CpuLevel::AVX2), detectCpuLevel() >= CpuLevel::AVX2);
    EXPECT_EQ(cpuLevel(), detectCpuLevel());
}

TEST(CpuLevelTest, setCpuLevel_toAnInvalidLevel_isAProgrammingError)
{
    const auto invalid = static_cast<CpuLevel>(7);
    EXPECT_THROW(static_cast<void>(setCpuLevel(invalid)), StopException);
    EXPECT_EQ(cpuLevel(), detectCpuLevel());
}

} // namespace Nolvex::Pixels
