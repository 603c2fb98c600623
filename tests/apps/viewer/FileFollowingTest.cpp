// SPDX-License-Identifier: MIT
#include "apps/viewer/FileFollowing.h"

#include "support/TemporaryFolder.h"
#include "support/ViewerFixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>

using namespace Nolvex;
using Viewer::FileFollowing;
using Viewer::PictureId;

namespace {

struct FileFollowingTest : testing::Test
{
    Tests::TemporaryFolder folder;
    Viewer::Workspace workspace;
    Array<PictureId> told;
    FileFollowing following{workspace, [this](PictureId id) { told.push_back(id); }};

    // Returns a picture whose file exists.
    PictureId add(const wchar_t* name)
    {
        return workspace.add(folder.file(name, "1"), Tests::coordinates(4, 3)->named(name));
    }

    PictureId show(const wchar_t* name)
    {
        const PictureId id = add(name);
        workspace.setCurrent(id);
        following.look();
        return id;
    }

    // Not every system notices by the time alone that a file was written twice within a moment.
    void write(const wchar_t* name, const std::string& content)
    {
        const std::filesystem::path file = folder.file(name, content).native();
        m_writtenAt += std::chrono::seconds(2);
        std::filesystem::last_write_time(file, m_writtenAt);
    }

    void look(int times)
    {
        for (int i = 0; i < times; ++i)
            following.look();
    }

private:
    std::filesystem::file_time_type m_writtenAt = std::filesystem::file_time_type::clock::now();
};

} // namespace

TEST_F(FileFollowingTest, stateOf_isThatOfTheFile)
{
    const Io::Path file = folder.file(L"a", "12345");
    const Optional<Viewer::FileState> state = Viewer::stateOf(file);
    ASSERT_TRUE(state);
    EXPECT_EQ(state->size, 5U);
    EXPECT_EQ(state->changed, std::filesystem::last_write_time(file.native()));
    EXPECT_FALSE(Viewer::stateOf(folder.file(L"missing")));
    EXPECT_FALSE(Viewer::stateOf({}));
}

TEST_F(FileFollowingTest, unchangedFile_isNotTold)
{
    show(L"a");
    look(5);
    EXPECT_TRUE(told.empty());
}

TEST_F(FileFollowingTest, change_isToldOnceAfterTwoEqualLooks)
{
    const PictureId a = show(L"a");
    write(L"a", "22");
    look(1);
    EXPECT_TRUE(told.empty()) << "the file may still be written";
    look(1);
    EXPECT_EQ(told, Array<PictureId>{a});
    look(5);
    EXPECT_EQ(told.size(), 1U);
}

TEST_F(FileFollowingTest, nextChange_isToldAgain)
{
    const PictureId a = show(L"a");
    write(L"a", "2");
    look(2);
    write(L"a", "3");
    look(2);
    EXPECT_EQ(told, (Array<PictureId>{a, a}));
}

TEST_F(FileFollowingTest, growingFile_isToldWhenItIsWhole)
{
    const PictureId a = show(L"a");
    for (std::string content = "22"; content.size() < 8; content += "2") {
        write(L"a", content);
        look(1);
    }
    EXPECT_TRUE(told.empty());
    look(1);
    EXPECT_EQ(told, Array<PictureId>{a});
}

TEST_F(FileFollowingTest, fileOfTheSameTime_isNoticedByItsSize)
{
    const PictureId a = show(L"a");
    const std::filesystem::path file = folder.file(L"a").native();
    const auto time = std::filesystem::last_write_time(file);
    folder.file(L"a", "22");
    std::filesystem::last_write_time(file, time);
    look(2);
    EXPECT_EQ(told, Array<PictureId>{a});
}

TEST_F(FileFollowingTest, fileReplacedByAnother_isTold)
{
    const PictureId a = show(L"a");
    write(L"a.part", "2");
    std::filesystem::rename(folder.file(L"a.part").native(), folder.file(L"a").native());
    look(2);
    EXPECT_EQ(told, Array<PictureId>{a});
}

TEST_F(FileFollowingTest, fileThatIsMissingForAMoment_isToldWhenItIsBack)
{
    const PictureId a = show(L"a");
    std::filesystem::remove(folder.file(L"a").native());
    look(5);
    EXPECT_TRUE(told.empty()) << "there is nothing to read";
    write(L"a", "2");
    look(1);
    EXPECT_TRUE(told.empty());
    look(1);
    EXPECT_EQ(told, Array<PictureId>{a});
}

TEST_F(FileFollowingTest, fileThatComesBackAsItWas_isNotTold)
{
    show(L"a");
    std::filesystem::rename(folder.file(L"a").native(), folder.file(L"b").native());
    look(2);
    std::filesystem::rename(folder.file(L"b").native(), folder.file(L"a").native());
    look(5);
    EXPECT_TRUE(told.empty());
}

TEST_F(FileFollowingTest, reference_isFollowedToo)
{
    const PictureId reference = add(L"reference");
    workspace.setReference(reference);
    const PictureId a = show(L"a");
    write(L"reference", "22");
    look(2);
    EXPECT_EQ(told, Array<PictureId>{reference});
    write(L"a", "22");
    look(2);
    EXPECT_EQ(told, (Array<PictureId>{reference, a}));
}

TEST_F(FileFollowingTest, referenceThatIsShown_isToldOnce)
{
    const PictureId a = show(L"a");
    workspace.setReference(a);
    write(L"a", "22");
    look(5);
    EXPECT_EQ(told, Array<PictureId>{a});
}

TEST_F(FileFollowingTest, changeWhileAnotherPictureIsShown_isToldWhenThePictureIsBack)
{
    const PictureId a = show(L"a");
    show(L"b");
    write(L"a", "22");
    look(5);
    EXPECT_TRUE(told.empty());
    workspace.setCurrent(a);
    look(2);
    EXPECT_EQ(told, Array<PictureId>{a});
}

TEST_F(FileFollowingTest, pictureSavedElsewhere_isFollowedWhereItIsFrom)
{
    const PictureId a = show(L"a");
    write(L"b", "1");
    workspace.setFile(a, folder.file(L"b"));
    write(L"b", "22");
    look(5);
    EXPECT_TRUE(told.empty()) << "the other file may hold less than the picture";
    write(L"a", "22");
    look(2);
    EXPECT_EQ(told, Array<PictureId>{a});
}

TEST_F(FileFollowingTest, pictureSavedOverItsSource_isNotFollowedAnyMore)
{
    const PictureId a = show(L"a");
    workspace.setFile(a, folder.file(L"a"));
    write(L"a", "22");
    look(5);
    EXPECT_TRUE(told.empty()) << "what was saved may hold less than the picture";
}

TEST_F(FileFollowingTest, fileReplacedWhileItWasReadForTheFirstTime_isTold)
{
    following.setActive(true);
    const PictureId a = workspace.add(folder.file(L"a", "1"), nullptr);
    const Optional<Viewer::FileState> before = Viewer::stateOf(folder.file(L"a"));
    write(L"a", "22");
    workspace.setPicture(a, Tests::coordinates(4, 3), before);
    workspace.setCurrent(a);
    EXPECT_TRUE(Tests::pumpUntil([this] { return !told.empty(); }));
    EXPECT_EQ(told, Array<PictureId>{a});
}

TEST_F(FileFollowingTest, changeThatWasReadOtherwise_isNotTold)
{
    const PictureId a = show(L"a");
    write(L"a", "22");
    workspace.setPicture(a, Tests::coordinates(4, 3), Viewer::stateOf(folder.file(L"a")));
    look(5);
    EXPECT_TRUE(told.empty());
}

TEST_F(FileFollowingTest, closedPicture_isNotFollowed)
{
    const PictureId a = show(L"a");
    workspace.setReference(a);
    write(L"a", "22");
    look(1);
    workspace.close(a);
    look(5);
    EXPECT_TRUE(told.empty());
}

TEST_F(FileFollowingTest, pictureWithoutFile_isNotFollowed)
{
    workspace.setCurrent(workspace.add({}, Tests::coordinates(4, 3)));
    look(5);
    EXPECT_TRUE(told.empty());
}

TEST_F(FileFollowingTest, toldFunction_mayCloseThePictures)
{
    Viewer::Workspace pictures;
    int calls = 0;
    FileFollowing closing(pictures, [&](PictureId) {
        ++calls;
        while (!pictures.pictures().empty())
            pictures.close(pictures.pictures().front().id);
    });
    closing.setActive(true);
    for (const wchar_t* name : {L"a", L"b"})
        pictures.add(folder.file(name, "1"), Tests::coordinates(4, 3));
    pictures.setReference(pictures.pictures()[1].id);
    pictures.setCurrent(pictures.pictures()[0].id);
    write(L"a", "22");
    write(L"b", "22");
    EXPECT_TRUE(Tests::pumpUntil([&] { return calls > 0; }));
    EXPECT_TRUE(pictures.pictures().empty());
}

TEST_F(FileFollowingTest, inactive_looksNeverByItself)
{
    EXPECT_FALSE(following.isActive());
    const PictureId a = show(L"a");
    write(L"a", "22");
    workspace.setReference(a);
    Tests::pumpEvents(3 * FileFollowing::PERIOD_MS);
    EXPECT_TRUE(told.empty());
}

TEST_F(FileFollowingTest, active_looksByItself)
{
    following.setActive(true);
    EXPECT_TRUE(following.isActive());
    const PictureId a = add(L"a");
    workspace.setCurrent(a);
    write(L"a", "22");
    EXPECT_TRUE(Tests::pumpUntil([this] { return !told.empty(); }));
    EXPECT_EQ(told, Array<PictureId>{a});
}

TEST_F(FileFollowingTest, activeAgain_forgetsTheChangesOfMeanwhile)
{
    following.setActive(true);
    show(L"a");
    following.setActive(false);
    write(L"a", "22");
    following.setActive(true);
    look(5);
    EXPECT_TRUE(told.empty());
}
