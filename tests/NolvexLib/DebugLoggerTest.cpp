// SPDX-License-Identifier: MIT
#include "NolvexLib/DebugLogger.h"

#include "NolvexLib/Array.h"
#include "NolvexLib/String.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <clocale>
#include <limits>
#include <memory>
#include <stdexcept>
#include <thread>

namespace Nolvex {
namespace {

class DebugLoggerTest : public testing::Test
{
public:
    ~DebugLoggerTest() override { DebugLogger::setSink({}); }

protected:
    DebugLoggerTest()
    {
        DebugLogger::setSink([this](const DebugLogger::Record& record) { m_records.push_back(record); });
    }

    template<class Value>
    std::string logged(const Value& value)
    {
        m_records.clear();
        DebugLogger("file.cpp", 7, "run", "test") << value;
        return m_records.empty() ? "nothing" : m_records.back().message;
    }

    Array<DebugLogger::Record> m_records;
};

TEST_F(DebugLoggerTest, destructor_logsOneRecord)
{
    {
        DebugLogger logger("file.cpp", 7, "run", "test");
        logger << "sent " << 3 << " bytes";
        EXPECT_TRUE(m_records.empty());
    }
    ASSERT_EQ(m_records.size(), 1u);
    EXPECT_STREQ(m_records[0].sourceFile, "file.cpp");
    EXPECT_EQ(m_records[0].line, 7);
    EXPECT_STREQ(m_records[0].function, "run");
    EXPECT_STREQ(m_records[0].category, "test");
    EXPECT_EQ(m_records[0].message, "sent 3 bytes");
}

TEST_F(DebugLoggerTest, constructor_withNull_takesEmptyTexts)
{
    DebugLogger(nullptr, 0, nullptr, nullptr) << "message";
    ASSERT_EQ(m_records.size(), 1u);
    EXPECT_STREQ(m_records[0].sourceFile, "");
    EXPECT_STREQ(m_records[0].function, "");
    EXPECT_STREQ(m_records[0].category, "");
}

TEST_F(DebugLoggerTest, stream_ofTexts_isUtf8)
{
    EXPECT_EQ(logged(std::string("narrow")), "narrow");
    EXPECT_EQ(logged("literal"), "literal");
    EXPECT_EQ(logged(static_cast<const char*>(nullptr)), "(null)");
    EXPECT_EQ(logged(String(L"\u00e4\u4e2d")), "\xC3\xA4\xE4\xB8\xAD");
    EXPECT_EQ(logged(StringView(L"view")), "view");
    EXPECT_EQ(logged(L"wide"), "wide");
    EXPECT_EQ(logged('c'), "c");
    EXPECT_EQ(logged(L'\u00e4'), "\xC3\xA4");
}

TEST_F(DebugLoggerTest, stream_ofIntegers_isDecimal)
{
    EXPECT_EQ(logged(0), "0");
    EXPECT_EQ(logged(static_cast<signed char>(-5)), "-5");
    EXPECT_EQ(logged(static_cast<std::uint8_t>(200)), "200");
    EXPECT_EQ(logged(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
    EXPECT_EQ(logged(std::numeric_limits<std::uint64_t>::max()), "18446744073709551615");
    EXPECT_EQ(logged(4294967295u), "4294967295");
    EXPECT_EQ(logged(-1L), "-1");
}

TEST_F(DebugLoggerTest, stream_ofFloats_isTheShortestThatReadsBack)
{
    EXPECT_EQ(logged(0.1f), "0.1");
    EXPECT_EQ(logged(0.1), "0.1");
    EXPECT_EQ(logged(1.0 / 3.0), "0.3333333333333333");
    EXPECT_EQ(logged(-1.5e300), "-1.5e+300");
    EXPECT_EQ(logged(std::numeric_limits<double>::infinity()), "inf");
}

TEST_F(DebugLoggerTest, stream_ofBool_isAWord)
{
    EXPECT_EQ(logged(true), "true");
    EXPECT_EQ(logged(false), "false");
}

TEST_F(DebugLoggerTest, format_isOneLineWhateverTheMessage)
{
    const DebugLogger::Record record{"a.cpp", 12, "run", "net", "two\nlines\tand \xC3\xA4\r"};
    EXPECT_EQ(DebugLogger::format(record), "a.cpp:12: net: run: two lines and \xC3\xA4 ");
}

TEST_F(DebugLoggerTest, setSink_empty_logsToTheStandardErrorStream)
{
    DebugLogger::setSink({});
    testing::internal::CaptureStderr();
    DebugLogger("a.cpp", 12, "run", "net") << "hello";
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "a.cpp:12: net: run: hello\n");
    EXPECT_TRUE(m_records.empty());
}

TEST_F(DebugLoggerTest, destructor_withFailingSink_isSilent)
{
    int calls = 0;
    DebugLogger::setSink([&](const DebugLogger::Record&) {
        ++calls;
        throw std::runtime_error("full");
    });
    EXPECT_NO_THROW(DebugLogger("a.cpp", 12, "run", "net") << "hello");
    EXPECT_NO_THROW(DebugLogger("a.cpp", 12, "run", "net") << "hello");
    EXPECT_EQ(calls, 2);
}

TEST_F(DebugLoggerTest, sink_thatLogs_doesNotCallItself)
{
    int calls = 0;
    DebugLogger::setSink([&](const DebugLogger::Record&) {
        ++calls;
        DebugLogger("b.cpp", 1, "sink", "inner") << "inside";
    });
    testing::internal::CaptureStderr();
    DebugLogger("a.cpp", 12, "run", "net") << "hello";
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "b.cpp:1: inner: sink: inside\n");
    EXPECT_EQ(calls, 1);
}

TEST_F(DebugLoggerTest, sink_thatSetsAnother_livesUntilItReturns)
{
    const auto alive = std::make_shared<int>(5);
    const std::weak_ptr<int> watch = alive;
    int seen = 0;
    DebugLogger::setSink([&seen, held = alive](const DebugLogger::Record&) {
        DebugLogger::setSink({});
        seen = *held;
    });
    DebugLogger("a.cpp", 12, "run", "net") << "hello";
    EXPECT_EQ(seen, 5);
    EXPECT_EQ(watch.use_count(), 1);
}

TEST_F(DebugLoggerTest, stream_inALocaleWithCommas_writesPoints)
{
    const std::string former = std::setlocale(LC_NUMERIC, nullptr);
    const char* set = nullptr;
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "de-DE", "German"})
        set = set != nullptr ? set : std::setlocale(LC_NUMERIC, name);
    const std::string text = logged(1234567.5);
    std::setlocale(LC_NUMERIC, former.c_str());
    EXPECT_EQ(text, "1234567.5");
}

TEST_F(DebugLoggerTest, destructor_onManyThreads_losesAndMixesNothing)
{
    constexpr int THREADS = 4;
    constexpr int MESSAGES = 200;
    DebugLogger::setSink([this](const DebugLogger::Record& record) {
        // Without the lock, other threads would get in here.
        std::this_thread::yield();
        m_records.push_back(record);
    });
    std::atomic<int> ready = 0;
    Array<std::thread> threads;
    for (int t = 0; t < THREADS; ++t) {
        threads.emplace_back([t, &ready] {
            for (++ready; ready < THREADS;)
                std::this_thread::yield();
            for (int i = 0; i < MESSAGES; ++i)
                DebugLogger("a.cpp", t, "run", "net") << t << ":" << i;
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    ASSERT_EQ(m_records.size(), static_cast<std::size_t>(THREADS * MESSAGES));
    std::array<int, THREADS> next = {};
    for (const DebugLogger::Record& record : m_records) {
        int& expected = next.at(static_cast<std::size_t>(record.line));
        EXPECT_EQ(record.message, std::to_string(record.line) + ":" + std::to_string(expected));
        ++expected;
    }
}

TEST_F(DebugLoggerTest, standardErrorStream_fromManyThreads_hasWholeLines)
{
    DebugLogger::setSink({});
    testing::internal::CaptureStderr();
    Array<std::thread> threads;
    const std::string message(3000, 'm');
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&message] {
            for (int i = 0; i < 50; ++i)
                DebugLogger("a.cpp", 1, "run", "net") << message;
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    std::string all = testing::internal::GetCapturedStderr();
    const std::string line = "a.cpp:1: net: run: " + message + "\n";
    std::string expected;
    for (int i = 0; i < 200; ++i)
        expected += line;
    EXPECT_TRUE(all == expected);
}

} // namespace
} // namespace Nolvex
