// SPDX-License-Identifier: MIT
#include "NolvexLibWx/TaskbarProgress.h"

#include "NolvexLib/Array.h"
#include "NolvexLibWx/platform/TaskbarList.h"
#include "support/NativeTraits.h"
#include "support/TaskbarCalls.h"

#include <wx/utils.h>

#include <gmock/gmock.h>

#include <future>
#include <limits>
#include <optional>
#include <string>
#include <thread>
#include <type_traits>
#include <utility>

namespace Nolvex::Wx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Calls = Array<std::string>;

int windowOfTests = 0;

/// Writes down the calls, and fails for each window but that of the tests.
class RecordingTaskbar : public Platform::TaskbarList
{
public:
    explicit RecordingTaskbar(Calls& calls) : m_calls(calls) {}

    ~RecordingTaskbar() override { m_calls.emplace_back("released"); }

    void setProgressState(WindowHandle window, Platform::TaskbarState state) override
    {
        EXPECT_EQ(window, WindowHandle{&windowOfTests});
        m_calls.push_back("state " + std::to_string(static_cast<int>(state)));
        std::this_thread::yield(); // lets another thread come in between if it can
    }

    void setProgressValue(WindowHandle window, std::int32_t completed, std::int32_t total) override
    {
        EXPECT_EQ(window, WindowHandle{&windowOfTests});
        m_calls.push_back(std::to_string(completed) + "/" + std::to_string(total));
    }

private:
    Calls& m_calls;
};

struct TaskbarProgressTest : testing::Test
{
    TaskbarProgressTest()
    {
        progress.emplace(WindowHandle{&windowOfTests}, std::make_unique<RecordingTaskbar>(calls));
    }

    /// Returns the calls since the last time.
    Calls takeCalls() { return std::exchange(calls, {}); }

    Calls callsOf(float fraction)
    {
        progress->setIdle();
        takeCalls();
        progress->setProgress(fraction);
        return takeCalls();
    }

    Calls calls;
    std::optional<TaskbarProgress> progress;
};

TEST_F(TaskbarProgressTest, construction_resetsTheButton)
{
    EXPECT_THAT(calls, ElementsAre("state 0"));
}

TEST_F(TaskbarProgressTest, setProgress_showsTheStateThenThousandths)
{
    takeCalls();
    progress->setProgress(0.5f);
    EXPECT_THAT(calls, ElementsAre("state 2", "500/1000"));
}

TEST_F(TaskbarProgressTest, setProgress_ofTheSameThousandthAgain_callsNothing)
{
    takeCalls();
    progress->setProgress(0.5f);
    progress->setProgress(0.5f);
    progress->setProgress(0.5004f);
    EXPECT_THAT(calls, ElementsAre("state 2", "500/1000"));
}

TEST_F(TaskbarProgressTest, setProgress_ofZeroAfterConstruction_isShown)
{
    takeCalls();
    progress->setProgress(0.0f);
    EXPECT_THAT(calls, ElementsAre("state 2", "0/1000"));
}

TEST_F(TaskbarProgressTest, setProgress_isCutTowardZero)
{
    EXPECT_THAT(callsOf(0.9999f), ElementsAre("state 2", "999/1000"));
    EXPECT_THAT(callsOf(0.0019f), ElementsAre("state 2", "1/1000"));
    EXPECT_THAT(callsOf(-0.0009f), ElementsAre("state 2", "0/1000"));
    EXPECT_THAT(callsOf(-0.0039f), ElementsAre("state 2", "-3/1000"));
}

TEST_F(TaskbarProgressTest, setProgress_isNotClamped)
{
    EXPECT_THAT(callsOf(1.0f), ElementsAre("state 2", "1000/1000"));
    EXPECT_THAT(callsOf(1.5f), ElementsAre("state 2", "1500/1000"));
    EXPECT_THAT(callsOf(-1.0f), ElementsAre("state 2", "-1000/1000"));
}

TEST_F(TaskbarProgressTest, setProgress_ofMinusOneThousandth_isIdle)
{
    progress->setProgress(0.5f);
    takeCalls();
    progress->setProgress(-0.0015f);
    progress->setIdle();
    EXPECT_THAT(takeCalls(), ElementsAre("state 0"));
    progress->setProgress(0.5f);
    EXPECT_THAT(calls, ElementsAre("state 2", "500/1000"));
}

TEST_F(TaskbarProgressTest, setProgress_ofMinusTwoThousandths_isIndeterminate)
{
    takeCalls();
    progress->setProgress(-0.0025f);
    progress->setIndeterminate();
    EXPECT_THAT(calls, ElementsAre("state 1"));
}

TEST_F(TaskbarProgressTest, setProgress_beyondIntegers_isTheNearestInteger)
{
    constexpr float INFINITE_VALUE = std::numeric_limits<float>::infinity();
    EXPECT_THAT(callsOf(INFINITE_VALUE), ElementsAre("state 2", "2147483647/1000"));
    EXPECT_THAT(callsOf(3e6f), ElementsAre("state 2", "2147483647/1000"));
    EXPECT_THAT(callsOf(-INFINITE_VALUE), ElementsAre("state 2", "-2147483648/1000"));
    EXPECT_THAT(callsOf(-3e6f), ElementsAre("state 2", "-2147483648/1000"));
    EXPECT_THAT(callsOf(2e6f), ElementsAre("state 2", "2000000000/1000"));
}

TEST_F(TaskbarProgressTest, setProgress_ofNaN_isZero)
{
    EXPECT_THAT(callsOf(std::numeric_limits<float>::quiet_NaN()), ElementsAre("state 2", "0/1000"));
}

TEST_F(TaskbarProgressTest, setIndeterminate_twice_callsOnce)
{
    takeCalls();
    progress->setIndeterminate();
    progress->setIndeterminate();
    EXPECT_THAT(calls, ElementsAre("state 1"));
}

TEST_F(TaskbarProgressTest, setIdle_afterConstruction_callsNothing)
{
    takeCalls();
    progress->setIdle();
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(TaskbarProgressTest, setIdle_afterProgress_removesIt)
{
    progress->setProgress(1.0f);
    takeCalls();
    progress->setIdle();
    EXPECT_THAT(calls, ElementsAre("state 0"));
}

TEST_F(TaskbarProgressTest, destruction_removesTheProgressThenReleasesTheTaskBar)
{
    progress->setProgress(0.25f);
    takeCalls();
    progress.reset();
    EXPECT_THAT(calls, ElementsAre("state 0", "released"));
}

TEST_F(TaskbarProgressTest, destruction_whileIdle_onlyReleasesTheTaskBar)
{
    takeCalls();
    progress.reset();
    EXPECT_THAT(calls, ElementsAre("released"));
}

TEST_F(TaskbarProgressTest, moveConstruction_keepsTheStateAndCallsNothing)
{
    progress->setProgress(0.5f);
    takeCalls();
    TaskbarProgress moved(std::move(*progress));
    moved.setProgress(0.5f);
    EXPECT_THAT(takeCalls(), IsEmpty());
    moved.setProgress(0.75f);
    EXPECT_THAT(takeCalls(), ElementsAre("state 2", "750/1000"));
}

TEST_F(TaskbarProgressTest, movedFrom_doesNothing)
{
    TaskbarProgress moved(std::move(*progress));
    moved.setProgress(0.5f);
    takeCalls();
    progress->setProgress(0.25f); // NOLINT(bugprone-use-after-move): moved-from objects are allowed
    progress->setIndeterminate();
    progress->setIdle();
    progress.reset();
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(TaskbarProgressTest, moves_butIsNeitherCopiedNorAssigned)
{
    static_assert(std::is_nothrow_move_constructible_v<TaskbarProgress>);
    static_assert(!std::is_copy_constructible_v<TaskbarProgress>);
    static_assert(!std::is_copy_assignable_v<TaskbarProgress>);
    static_assert(!std::is_move_assignable_v<TaskbarProgress>);
}

TEST_F(TaskbarProgressTest, withoutATaskBar_everyCallIsSkipped)
{
    TaskbarProgress hidden(WindowHandle{&windowOfTests}, nullptr);
    hidden.setProgress(0.5f);
    hidden.setIndeterminate();
    hidden.setIdle();
    EXPECT_THAT(takeCalls(), ElementsAre("state 0")); // of the object with a task bar
}

TEST_F(TaskbarProgressTest, calls_ofEightThreads_doNotMix)
{
    constexpr int THREADS = 8;
    constexpr int ROUNDS = 500;
    takeCalls();
    std::promise<void> start;
    const std::shared_future<void> started(start.get_future());
    Array<std::thread> threads;
    for (int number = 0; number < THREADS; ++number) {
        threads.emplace_back([this, number, started] {
            started.wait();
            for (int round = 0; round < ROUNDS; ++round) {
                progress->setProgress(static_cast<float>(number * ROUNDS + round) / (THREADS * ROUNDS));
                if (round % 50 == 0)
                    progress->setIndeterminate();
                if (round % 70 == 0)
                    progress->setIdle();
            }
        });
    }
    start.set_value();
    for (std::thread& thread : threads)
        thread.join();

    ASSERT_GE(calls.size(), 8u);
    for (std::size_t i = 0; i < calls.size(); ++i) {
        const bool isValue = calls[i].ends_with("/1000");
        const bool followsNormal = i > 0 && calls[i - 1] == "state 2";
        ASSERT_EQ(isValue, followsNormal) << "call " << i << ": " << calls[i];
    }
}

/// Removes an environment variable until the end of a test.
class WithoutVariable
{
public:
    explicit WithoutVariable(const wxString& name) : m_name(name), m_existed(wxGetEnv(name, &m_value))
    {
        wxUnsetEnv(name);
    }

    ~WithoutVariable()
    {
        if (m_existed)
            wxSetEnv(m_name, m_value);
    }

    WithoutVariable(const WithoutVariable&) = delete;
    WithoutVariable& operator=(const WithoutVariable&) = delete;

private:
    wxString m_name;
    wxString m_value;
    bool m_existed;
};

// The system's own task bar. Only the screen, or another program on the session bus, can tell what it shows.
using SystemTaskbarTest = testing::Test;
using Tests::showEverything;

TEST_F(SystemTaskbarTest, withoutASessionBus_existsOnWindowsOnly)
{
    const WithoutVariable noBus(L"DBUS_SESSION_BUS_ADDRESS");
    const WithoutVariable noFolder(L"XDG_RUNTIME_DIR");
    EXPECT_EQ(Platform::createTaskbarList() == nullptr, Tests::taskbarNeedsSessionBus());
}

TEST_F(SystemTaskbarTest, withANullWindow_survivesEveryCall)
{
    TaskbarProgress progress(WindowHandle{});
    showEverything(progress);
}

TEST_F(SystemTaskbarTest, ofThreadsThatEnded_staysUsable)
{
    std::optional<TaskbarProgress> progress;
    std::thread([&progress] { progress.emplace(WindowHandle{}); }).join();
    showEverything(*progress);
    std::thread([&progress] { showEverything(*progress); }).join();
    std::thread([&progress] { progress.reset(); }).join();
}

TEST_F(SystemTaskbarTest, ofEightThreads_survivesTheirCalls)
{
    TaskbarProgress shared(WindowHandle{&windowOfTests});
    Array<std::thread> threads;
    for (int number = 0; number < 8; ++number) {
        threads.emplace_back([&shared] {
            TaskbarProgress own(WindowHandle{&windowOfTests});
            for (int round = 0; round < 20; ++round) {
                showEverything(shared);
                showEverything(own);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace
} // namespace Nolvex::Wx
