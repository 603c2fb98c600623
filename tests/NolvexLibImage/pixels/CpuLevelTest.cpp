// SPDX-License-Identifier: MIT
#include "NolvexLibImage/pixels/CpuLevel.h"

#include "NolvexLib/StopException.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <thread>

namespace Nolvex::Pixels {

namespace {

/// Returns the features of the processor in the words of the Linux kernel. The set is empty on other systems.
std::set<std::string> processorFeatures()
{
    std::ifstream file("/proc/cpuinfo");
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with("flags"))
            continue;
        std::istringstream words(line.substr(line.find(':') + 1));
        return {std::istream_iterator<std::string>(words), {}};
    }
    return {};
}

} // namespace

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

TEST(CpuLevelTest, detectCpuLevel_agreesWithTheSystem)
{
    const std::set<std::string> features = processorFeatures();
    if (features.empty())
        GTEST_SKIP() << "the system does not list the features of the processor";
    const bool hasAvx2 = features.contains("avx2") && features.contains("f16c");
    EXPECT_EQ(detectCpuLevel(), hasAvx2 ? CpuLevel::AVX2 : CpuLevel::SSE2);
}

TEST(CpuLevelTest, setCpuLevel_holdsInAllThreads)
{
    ASSERT_TRUE(setCpuLevel(CpuLevel::SSE2));
    std::thread([] { EXPECT_EQ(cpuLevel(), CpuLevel::SSE2); }).join();
    std::thread([] { EXPECT_TRUE(setCpuLevel(detectCpuLevel())); }).join();
    EXPECT_EQ(cpuLevel(), detectCpuLevel());
}

} // namespace Nolvex::Pixels
