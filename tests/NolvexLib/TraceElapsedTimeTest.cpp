// SPDX-License-Identifier: MIT
#include "NolvexLib/TraceElapsedTime.h"

#include "NolvexLib/Array.h"
#include "NolvexLib/DebugLogger.h"
#include "NolvexLib/DevelopmentEnviro.h"

#include <gtest/gtest.h>

namespace Nolvex {
namespace {

class TraceElapsedTimeTest : public testing::Test
{
public:
    ~TraceElapsedTimeTest() override
    {
        DebugLogger::setSink({});
        setDevelopmentEnviro(m_wasDevelopment);
    }

protected:
    TraceElapsedTimeTest()
    {
        DebugLogger::setSink([this](const DebugLogger::Record& record) { m_records.push_back(record); });
    }

    bool m_wasDevelopment = isDevelopmentEnviro();
    Array<DebugLogger::Record> m_records;
};

TEST_F(TraceElapsedTimeTest, destructor_forDevelopers_logsFunctionAndTicks)
{
    setDevelopmentEnviro(true);
    {
        // A paused timer stands at 0.
        const Detail::TraceElapsedTime trace(Timer(50, TimerFlag::PAUSED), "a.cpp", 12, "compute");
        EXPECT_TRUE(m_records.empty());
    }
    ASSERT_EQ(m_records.size(), 1u);
    EXPECT_STREQ(m_records[0].category, "trace");
    EXPECT_STREQ(m_records[0].sourceFile, "a.cpp");
    EXPECT_EQ(m_records[0].line, 12);
    EXPECT_STREQ(m_records[0].function, "compute");
    EXPECT_EQ(m_records[0].message, "compute: 0 ticks of 1/50 s");
}

TEST_F(TraceElapsedTimeTest, destructor_ofRunningTimer_logsWhatPassed)
{
    setDevelopmentEnviro(true);
    Timer timer(1'000'000'000);
    while (timer.getElapsed() < 1000) {
    }
    {
        const Detail::TraceElapsedTime trace(timer, "a.cpp", 12, "compute");
    }
    ASSERT_EQ(m_records.size(), 1u);
    EXPECT_GE(std::stoll(m_records[0].message.substr(sizeof("compute:"))), 1000);
}

TEST_F(TraceElapsedTimeTest, destructor_forUsers_logsNothing)
{
    setDevelopmentEnviro(false);
    {
        const Detail::TraceElapsedTime trace(Timer(), "a.cpp", 12, "compute");
    }
    EXPECT_TRUE(m_records.empty());
}

} // namespace
} // namespace Nolvex
