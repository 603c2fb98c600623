// SPDX-License-Identifier: MIT
#include "apps/viewer/SaveJob.h"

#include "NolvexLibWx/platform/TaskbarList.h"
#include "apps/viewer/ImageFile.h"
#include "support/Events.h"
#include "support/FloatImage.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <thread>

using namespace Nolvex;
using Viewer::SaveJob;
using Viewer::SaveTask;

namespace {

struct SaveJobTest : testing::Test
{
    Tests::TemporaryFolder folder;
    Viewer::SharedPicture picture =
        std::make_shared<const Viewer::Picture>(L"test", Tests::placesAsFloats(300, 200, 1.0f));
    int count = 0;
    SaveTask last;
    Optional<String> failure;
    std::unique_ptr<SaveJob> job =
        std::make_unique<SaveJob>([this](const SaveTask& task, const Optional<String>& reason) {
            EXPECT_EQ(std::this_thread::get_id(), m_mainThread);
            ++count;
            last = task;
            failure = reason;
        });

    SaveTask task(StringView name) const { return {picture, folder.file(name), ImageFormat::PNG, {}}; }

    void start(StringView name) const { job->start(task(name), Wx::TaskbarProgress({})); }

private:
    std::thread::id m_mainThread = std::this_thread::get_id();
};

} // namespace

TEST_F(SaveJobTest, file_isWrittenAndReportedOnceOnTheMainThread)
{
    start(L"a.png");
    EXPECT_TRUE(job->isRunning());
    EXPECT_EQ(count, 0) << "not before events are processed";
    ASSERT_TRUE(Tests::pumpUntil([&] { return count > 0; }));
    Tests::pumpEvents(50);
    EXPECT_EQ(count, 1);
    EXPECT_FALSE(job->isRunning());
    EXPECT_EQ(last.picture, picture);
    EXPECT_EQ(last.file, folder.file(L"a.png"));
    EXPECT_FALSE(failure.has_value());
    EXPECT_TRUE(Viewer::readPictureFile(folder.file(L"a.png")).hasValue());
}

TEST_F(SaveJobTest, failure_isReportedWithItsReason)
{
    start(L"missing/a.png");
    ASSERT_TRUE(Tests::pumpUntil([&] { return count > 0; }));
    ASSERT_TRUE(failure.has_value());
    EXPECT_NE(failure->wstr().find(L"a.png"), std::wstring::npos);
}

TEST_F(SaveJobTest, finish_waitsAndReportsOnceAndNotAgainLater)
{
    start(L"a.png");
    job->finish();
    EXPECT_EQ(count, 1);
    EXPECT_TRUE(Viewer::readPictureFile(folder.file(L"a.png")).hasValue());
    job->finish();
    Tests::pumpEvents(50);
    EXPECT_EQ(count, 1);
}

TEST_F(SaveJobTest, endOfAFinishedFile_doesNotEndTheNextOne)
{
    start(L"a.png");
    job->finish();
    start(L"b.png");
    ASSERT_TRUE(Tests::pumpUntil([&] { return count == 2; }));
    EXPECT_EQ(last.file, folder.file(L"b.png"));
}

TEST_F(SaveJobTest, destroyedWhileItWrites_completesTheFileAndReportsNothing)
{
    start(L"a.png");
    job.reset();
    Tests::pumpEvents(50);
    EXPECT_EQ(count, 0);
    EXPECT_TRUE(Viewer::readPictureFile(folder.file(L"a.png")).hasValue());
}

TEST_F(SaveJobTest, report_mayStartTheNextFileAndDestroyTheJob)
{
    job = std::make_unique<SaveJob>([this](const SaveTask&, const Optional<String>&) {
        if (++count == 1)
            start(L"b.png");
        else
            job.reset();
    });
    start(L"a.png");
    ASSERT_TRUE(Tests::pumpUntil([&] { return job == nullptr; }));
    EXPECT_EQ(count, 2);
    EXPECT_TRUE(Viewer::readPictureFile(folder.file(L"b.png")).hasValue());
}

TEST_F(SaveJobTest, progress_beginsUnknownGrowsAndIsGoneAtTheEnd)
{
    struct Shell : Platform::TaskbarList
    {
        explicit Shell(Array<std::int32_t>& shown) : m_shown(shown) {}

        void setProgressState(WindowHandle, Platform::TaskbarState state) override
        {
            if (state != Platform::TaskbarState::NORMAL)
                m_shown.push_back(-static_cast<std::int32_t>(state));
        }

        void setProgressValue(WindowHandle, std::int32_t completed, std::int32_t) override
        {
            m_shown.push_back(completed);
        }

        Array<std::int32_t>& m_shown;
    };

    Array<std::int32_t> shown;
    job->start(task(L"a.png"), Wx::TaskbarProgress({}, std::make_unique<Shell>(shown)));
    job->finish();
    // 0 stands for no progress or none yet, -1 for an unknown length.
    ASSERT_GT(shown.size(), 4u);
    EXPECT_EQ(shown[0], 0);
    EXPECT_EQ(shown[1], -1);
    EXPECT_EQ(shown.back(), 0);
    EXPECT_TRUE(std::is_sorted(shown.begin() + 2, shown.end() - 1));
    EXPECT_EQ(shown[shown.size() - 2], 1000);
}
