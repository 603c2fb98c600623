// SPDX-License-Identifier: MIT
#include "apps/viewer/LayerBar.h"

#include "NolvexLibWx/widgets/ComboBox.h"
#include "apps/viewer/LayeredFile.h"
#include "reading/ExrFiles.h"
#include "support/FrameFixture.h"
#include "support/ViewerFixture.h"

#include <gtest/gtest.h>

#include <memory>

using namespace Nolvex;
using Viewer::SharedPicture;

namespace {

using File = std::shared_ptr<const Viewer::LayeredFile>;

File fileWith(const Array<Tests::ExrChannel>& channels)
{
    Tests::ExrPart part;
    part.channels = channels;
    return *Viewer::LayeredFile::open(Tests::exrFile({part}));
}

File threeLayers()
{
    return fileWith(
        {{"R"}, {"G"}, {"B"}, {"light.key.R"}, {"light.key.G"}, {"light.key.B"}, {"uv.u"}, {"uv.v"}});
}

SharedPicture pictureOf(const File& file, std::size_t layer)
{
    return std::make_shared<const Viewer::Picture>(L"a", *file->read(layer, {}), file, layer);
}

struct LayerBarTest : Tests::FrameFixture
{
    Array<std::size_t> chosen;
    int relayouts = 0;
    Viewer::LayerBar* bar = new Viewer::LayerBar(
        panel, [this](std::size_t layer) { chosen.push_back(layer); }, [this] { ++relayouts; });
    Wx::ComboBox* box = Tests::findIn<Wx::ComboBox>(bar);

    wxString shownLabel() const { return box->face().text; }
};

} // namespace

TEST_F(LayerBarTest, withoutPicture_isHidden)
{
    EXPECT_FALSE(bar->IsShown());
    bar->setPicture(nullptr);
    EXPECT_FALSE(bar->IsShown());
    EXPECT_EQ(relayouts, 0);
}

TEST_F(LayerBarTest, oneLayer_leavesTheRowHidden)
{
    bar->setPicture(Tests::coordinates(4, 3));
    bar->setPicture(pictureOf(fileWith({{"R"}, {"G"}, {"B"}}), 0));
    EXPECT_FALSE(bar->IsShown());
    EXPECT_EQ(relayouts, 0);
}

TEST_F(LayerBarTest, severalLayers_areListedWithTheShownOneSelected)
{
    const File file = threeLayers();
    bar->setPicture(pictureOf(file, 1));
    EXPECT_TRUE(bar->IsShown());
    EXPECT_EQ(relayouts, 1);
    EXPECT_EQ(box->getCount(), 3);
    EXPECT_EQ(box->getSelectedId(), 1);
    bar->setPicture(pictureOf(file, 0));
    EXPECT_EQ(box->getSelectedId(), 0);
    EXPECT_EQ(relayouts, 1) << "the room is the same";
    EXPECT_TRUE(chosen.empty()) << "the user has chosen nothing";
}

TEST_F(LayerBarTest, layer_isLabelledWithItsNameAndChannels)
{
    const File file = threeLayers();
    bar->setPicture(pictureOf(file, 0));
    EXPECT_EQ(shownLabel(), L"R, G, B") << "the main layer has no name";
    bar->setPicture(pictureOf(file, 1));
    EXPECT_EQ(shownLabel(), L"light.key (R, G, B)");
    bar->setPicture(pictureOf(file, 2));
    EXPECT_EQ(shownLabel(), L"uv (u, v)") << "the channel that fills the pixel has no name";
}

TEST_F(LayerBarTest, chosenLayer_isToldByItsPlace)
{
    bar->setPicture(pictureOf(threeLayers(), 0));
    box->selectId(2, true);
    EXPECT_EQ(chosen, Array<std::size_t>{2});
}

TEST_F(LayerBarTest, anotherFile_replacesTheLayers)
{
    bar->setPicture(pictureOf(threeLayers(), 2));
    bar->setPicture(pictureOf(fileWith({{"R"}, {"G"}, {"B"}, {"mask.Y"}}), 1));
    EXPECT_EQ(box->getCount(), 2);
    EXPECT_EQ(shownLabel(), L"mask (Y)");
    EXPECT_TRUE(chosen.empty());
}

TEST_F(LayerBarTest, noPictureAnyMore_hidesTheRow)
{
    bar->setPicture(pictureOf(threeLayers(), 0));
    bar->setPicture(nullptr);
    EXPECT_FALSE(bar->IsShown());
    EXPECT_EQ(relayouts, 2);
    EXPECT_EQ(box->getCount(), 0);
}
