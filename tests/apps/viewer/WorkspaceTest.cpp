// SPDX-License-Identifier: MIT
#include "apps/viewer/Workspace.h"

#include "apps/viewer/LayeredFile.h"
#include "reading/ExrFiles.h"
#include "support/TemporaryFolder.h"
#include "support/ViewerFixture.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

using namespace Nolvex;
using Viewer::PictureId;
using Viewer::Workspace;
using Change = Workspace::Change;

namespace {

struct WorkspaceTest : testing::Test
{
    Workspace workspace;
    Array<Flags<Change>> changes;

    void SetUp() override
    {
        workspace.observe([this](Flags<Change> change) { changes.push_back(change); });
    }

    PictureId addRead(const wchar_t* name)
    {
        return workspace.add(Io::Path(name), Tests::coordinates(4, 3)->named(name));
    }

    String currentName() const
    {
        return workspace.current() == nullptr ? String() : workspace.current()->name;
    }
};

} // namespace

TEST_F(WorkspaceTest, empty_hasNothingToShow)
{
    EXPECT_EQ(workspace.current(), nullptr);
    EXPECT_EQ(workspace.reference(), nullptr);
    EXPECT_EQ(workspace.currentPicture(), nullptr);
    EXPECT_EQ(workspace.neighbour(1), std::nullopt);
    workspace.limitMemory(0);
}

TEST_F(WorkspaceTest, added_isListedUnderTheNameOfItsFile)
{
    const PictureId id = workspace.add(Io::Path(L"folder/a.exr"), nullptr);
    EXPECT_EQ(workspace.find(id)->name, L"a.exr");
    EXPECT_EQ(workspace.findFile(Io::Path(L"folder/a.exr")), workspace.find(id));
    EXPECT_EQ(workspace.findFile(Io::Path(L"a.exr")), nullptr);
    EXPECT_EQ(workspace.findFile({}), nullptr);
    EXPECT_EQ(workspace.current(), nullptr);
    EXPECT_EQ(changes, Array<Flags<Change>>{Change::LIST});
}

TEST_F(WorkspaceTest, files_areAddedOnceAndToldOnce)
{
    const PictureId b = addRead(L"b");
    changes.clear();
    const Array<PictureId> ids =
        workspace.addFiles({Io::Path(L"a"), Io::Path(L"b"), Io::Path(L"c"), Io::Path(L"a")});
    ASSERT_EQ(ids.size(), 4U);
    EXPECT_EQ(ids[1], b);
    EXPECT_EQ(ids[0], ids[3]);
    EXPECT_EQ(workspace.pictures().size(), 3U);
    EXPECT_EQ(changes, Array<Flags<Change>>{Change::LIST});
    workspace.addFiles({Io::Path(L"a")});
    EXPECT_EQ(changes.size(), 1U);
}

TEST_F(WorkspaceTest, pictureThatIsNotRead_cannotBeShown)
{
    const PictureId id = workspace.add(Io::Path(L"a"), nullptr);
    workspace.setCurrent(id);
    EXPECT_EQ(workspace.current(), nullptr);
    workspace.setPicture(id, Tests::coordinates(4, 3));
    workspace.setCurrent(id);
    EXPECT_EQ(workspace.currentPicture()->size(), (Pixel{4, 3}));
}

TEST_F(WorkspaceTest, receivedPicture_canBeSentAgain)
{
    const PictureId id = workspace.add({}, Tests::coordinates(4, 3), Viewer::PictureOrigin::SENDER);
    EXPECT_FALSE(workspace.find(id)->isUnsaved());
    workspace.limitMemory(0);
    EXPECT_NE(workspace.find(id)->picture, nullptr) << "but not by the viewer";
}

TEST_F(WorkspaceTest, unsaved_isWhatHasNoFile)
{
    const PictureId id = workspace.add({}, Tests::coordinates(4, 3), Viewer::PictureOrigin::DESKTOP);
    EXPECT_TRUE(workspace.find(id)->isUnsaved());
    workspace.setCurrent(id);
    changes.clear();
    workspace.setFile(id, Io::Path(L"folder/saved.png"));
    EXPECT_FALSE(workspace.find(id)->isUnsaved());
    EXPECT_EQ(workspace.currentPicture()->name(), L"saved.png");
    EXPECT_EQ(changes, Array<Flags<Change>>{Change::LIST | Flags(Change::PICTURE)});
}

TEST_F(WorkspaceTest, steps_goRoundTheList)
{
    const PictureId a = addRead(L"a");
    const PictureId b = addRead(L"b");
    const PictureId c = addRead(L"c");
    EXPECT_EQ(workspace.neighbour(1), a) << "nothing is shown yet";
    EXPECT_EQ(workspace.neighbour(-1), c);
    EXPECT_EQ(workspace.neighbour(1, b), c);
    workspace.setCurrent(a);
    EXPECT_EQ(workspace.neighbour(1), b);
    EXPECT_EQ(workspace.neighbour(-1), c);
    EXPECT_EQ(workspace.neighbour(-5), b);
    EXPECT_EQ(workspace.neighbour(3), std::nullopt) << "that is the current one";
}

TEST_F(WorkspaceTest, filter_hidesPicturesFromTheSteps)
{
    const PictureId a = addRead(L"beauty.exr");
    const PictureId b = addRead(L"Depth.exr");
    const PictureId c = addRead(L"beauty2.exr");
    workspace.setCurrent(a);
    workspace.setFilter(L"BEAUTY");
    EXPECT_TRUE(workspace.isListed(*workspace.find(a)));
    EXPECT_FALSE(workspace.isListed(*workspace.find(b)));
    EXPECT_EQ(workspace.neighbour(1), c);
    workspace.setFilter(L"depth");
    EXPECT_EQ(workspace.neighbour(1), b) << "also from a picture that is hidden";
    workspace.setFilter(L"none");
    EXPECT_EQ(workspace.neighbour(1), std::nullopt);
    workspace.setFilter({});
    EXPECT_TRUE(workspace.isListed(*workspace.find(c)));
}

TEST_F(WorkspaceTest, closingTheCurrentPicture_showsTheNextThatIsRead)
{
    const PictureId a = addRead(L"a");
    const PictureId b = addRead(L"b");
    workspace.add(Io::Path(L"unread"), nullptr);
    const PictureId d = addRead(L"d");
    workspace.setCurrent(b);
    workspace.close(b);
    EXPECT_EQ(currentName(), L"d");
    workspace.close(d);
    EXPECT_EQ(currentName(), L"a");
    workspace.close(a);
    EXPECT_EQ(workspace.current(), nullptr);
    EXPECT_EQ(workspace.pictures().size(), 1U);
    workspace.close(a);
    EXPECT_EQ(workspace.find(a), nullptr);
}

TEST_F(WorkspaceTest, closingTheReference_leavesNone)
{
    const PictureId a = addRead(L"a");
    workspace.setReference(a);
    changes.clear();
    workspace.close(a);
    EXPECT_EQ(workspace.reference(), nullptr);
    EXPECT_EQ(changes, Array<Flags<Change>>{Change::LIST | Flags(Change::REFERENCE)});
}

TEST_F(WorkspaceTest, changeOfAPicture_isToldForWhatItIs)
{
    const PictureId a = addRead(L"a");
    const PictureId b = addRead(L"b");
    workspace.setCurrent(a);
    workspace.setReference(b);
    changes.clear();
    workspace.setPicture(a, Tests::coordinates(1, 1));
    workspace.setPicture(b, Tests::coordinates(1, 1));
    workspace.setReference(b);
    workspace.setCurrent(a);
    EXPECT_EQ(changes, (Array<Flags<Change>>{Change::PICTURE, Change::REFERENCE}));
}

TEST_F(WorkspaceTest, observer_mayChangeTheWorkspace)
{
    bool isFirst = true;
    workspace.observe([&](Flags<Change>) {
        if (std::exchange(isFirst, false))
            workspace.close(workspace.pictures().front().id);
    });
    addRead(L"a");
    EXPECT_TRUE(workspace.pictures().empty());
}

TEST_F(WorkspaceTest, pictureSavedElsewhere_keepsItsSource)
{
    const PictureId a = addRead(L"a.exr");
    workspace.setFile(a, Io::Path(L"folder/a.jpg"));
    EXPECT_EQ(workspace.find(a)->file, Io::Path(L"folder/a.jpg"));
    EXPECT_EQ(workspace.find(a)->source, Io::Path(L"a.exr"));
    EXPECT_EQ(workspace.findFile(Io::Path(L"a.exr")), workspace.find(a));
    EXPECT_EQ(workspace.findFile(Io::Path(L"folder/a.jpg")), nullptr) << "the file may hold less";
    workspace.setPicture(a, Tests::coordinates(1, 1)->named(L"a.exr"));
    EXPECT_EQ(workspace.find(a)->picture->name(), L"a.jpg") << "the name stays";
}

TEST_F(WorkspaceTest, pictureSavedOverItsSource_keepsItsPixels)
{
    const PictureId a = addRead(L"a.png");
    workspace.setFile(a, Io::Path(L"./a.png"));
    EXPECT_FALSE(workspace.find(a)->canBeReadAgain());
    workspace.limitMemory(0);
    EXPECT_NE(workspace.find(a)->picture, nullptr);
}

TEST_F(WorkspaceTest, pictureOfTheScreenThatWasSaved_keepsItsPixels)
{
    const PictureId id = workspace.add({}, Tests::coordinates(4, 3), Viewer::PictureOrigin::DESKTOP);
    workspace.setFile(id, Io::Path(L"screen.jpg"));
    EXPECT_FALSE(workspace.find(id)->canBeReadAgain());
    workspace.limitMemory(0);
    EXPECT_NE(workspace.find(id)->picture, nullptr);
}

TEST_F(WorkspaceTest, relativeAndAbsolutePath_areOneFile)
{
    const Array<PictureId> ids =
        workspace.addFiles({Io::Path(L"missing.png"), Io::Path(std::filesystem::absolute("missing.png")),
                            Io::Path(L"folder/../missing.png")});
    EXPECT_EQ(workspace.pictures().size(), 1U);
    EXPECT_EQ(ids, (Array<PictureId>{ids[0], ids[0], ids[0]}));
    EXPECT_EQ(workspace.findFile(Io::Path(L"./missing.png")), workspace.find(ids[0]));
}

TEST_F(WorkspaceTest, symbolicLink_isTheFileThatItStandsForNow)
{
    const Tests::TemporaryFolder folder;
    const Io::Path link = folder.file(L"latest.exr");
    for (const wchar_t* name : {L"1.exr", L"2.exr"})
        folder.file(name, "x");
    std::error_code failure;
    std::filesystem::create_symlink(folder.file(L"1.exr").native(), link.native(), failure);
    if (failure)
        GTEST_SKIP() << "no symbolic links: " << failure.message();
    const Array<PictureId> ids = workspace.addFiles({link, folder.file(L"1.exr")});
    EXPECT_EQ(ids[0], ids[1]);
    std::filesystem::remove(link.native());
    std::filesystem::create_symlink(folder.file(L"2.exr").native(), link.native());
    EXPECT_EQ(workspace.addFiles({folder.file(L"2.exr")})[0], ids[0]);
    EXPECT_NE(workspace.addFiles({folder.file(L"1.exr")})[0], ids[0]);
}

TEST_F(WorkspaceTest, pathInAnotherCase_isTheSameFileIfTheSystemSaysSo)
{
    const Tests::TemporaryFolder folder;
    const Io::Path file = folder.file(L"Beauty.exr", "x");
    const Io::Path other = folder.file(L"beauty.EXR");
    const bool isSame = std::filesystem::exists(other.native());
    const Array<PictureId> ids = workspace.addFiles({file, other});
    EXPECT_EQ(ids[0] == ids[1], isSame);
}

TEST_F(WorkspaceTest, thousandFiles_areAddedAtOnce)
{
    Array<Io::Path> files;
    for (int i = 0; i < 1000; ++i)
        files.emplace_back(std::to_wstring(i) + L".png");
    EXPECT_EQ(workspace.addFiles(files).size(), 1000U);
    EXPECT_EQ(workspace.pictures().size(), 1000U);
    EXPECT_EQ(changes.size(), 1U);
    workspace.addFiles(files);
    EXPECT_EQ(workspace.pictures().size(), 1000U);
}

TEST_F(WorkspaceTest, memory_isTakenWheneverAPictureComes)
{
    constexpr std::uint64_t BYTES = std::uint64_t(4) * 3 * 3;
    workspace.limitMemory(2 * BYTES);
    const PictureId a = addRead(L"a");
    const PictureId b = addRead(L"b");
    workspace.setCurrent(b);
    EXPECT_NE(workspace.find(a)->picture, nullptr);
    const PictureId c = addRead(L"c");
    EXPECT_EQ(workspace.find(a)->picture, nullptr) << "no picture needs to be shown for that";
    EXPECT_NE(workspace.find(c)->picture, nullptr) << "the newest one may be about to be shown";
    workspace.setPicture(a, Tests::coordinates(4, 3));
    EXPECT_EQ(workspace.find(c)->picture, nullptr);
    EXPECT_NE(workspace.find(a)->picture, nullptr);
}

TEST_F(WorkspaceTest, memoryOfAFileWithLayers_isCounted)
{
    Tests::ExrPart part;
    part.channels = {{"R"}, {"G"}, {"B"}, {"depth.Z"}};
    const Array<std::byte> content = Tests::exrFile({part});
    const auto file = *Viewer::LayeredFile::open(content);
    ASSERT_EQ(file->byteCount(), content.size());
    const auto layered = std::make_shared<const Viewer::Picture>(L"a", *file->read(0, {}), file, 0);
    const PictureId a = workspace.add(Io::Path(L"a"), layered);
    const std::uint64_t image = layered->image().rowBytes() * std::uint64_t(layered->size().y);
    workspace.limitMemory(image + content.size());
    EXPECT_NE(workspace.find(a)->picture, nullptr);
    workspace.limitMemory(image + content.size() - 1);
    EXPECT_EQ(workspace.find(a)->picture, nullptr);
}

TEST_F(WorkspaceTest, memory_isTakenFromWhatWasNotLookedAtForLongest)
{
    const PictureId a = addRead(L"a");
    const PictureId b = addRead(L"b");
    const PictureId c = addRead(L"c");
    const PictureId unsaved = workspace.add({}, Tests::coordinates(4, 3), Viewer::PictureOrigin::DESKTOP);
    for (const PictureId id : {b, a, c})
        workspace.setCurrent(id);
    constexpr std::uint64_t BYTES = std::uint64_t(4) * 3 * 3;
    workspace.limitMemory(4 * BYTES);
    EXPECT_NE(workspace.find(b)->picture, nullptr);
    workspace.limitMemory(3 * BYTES);
    EXPECT_EQ(workspace.find(b)->picture, nullptr);
    EXPECT_NE(workspace.find(a)->picture, nullptr);
    workspace.limitMemory(0);
    EXPECT_EQ(workspace.find(a)->picture, nullptr);
    EXPECT_NE(workspace.find(c)->picture, nullptr) << "it is the current one";
    EXPECT_NE(workspace.find(unsaved)->picture, nullptr) << "it cannot be read again";
}
