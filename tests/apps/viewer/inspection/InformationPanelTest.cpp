// SPDX-License-Identifier: MIT
#include "apps/viewer/inspection/InformationPanel.h"

#include "NolvexLibWx/StringConversions.h"
#include "support/FrameFixture.h"
#include "support/ViewerFixture.h"

#include <wx/app.h>
#include <wx/utils.h>

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <utility>

using namespace Nolvex;
using Viewer::SharedPicture;

namespace {

struct InformationPanelTest : Tests::FrameFixture
{
    Viewer::InformationPanel* information = new Viewer::InformationPanel(panel);

    static SharedPicture plain(std::uint8_t value, const wchar_t* name = L"a", int width = 51)
    {
        Image image = *Image::create(width, 1, PixelFormat::UINT8_GREY, 1.0f);
        std::memset(image.row(0).data(), value, image.rowBytes());
        return std::make_shared<const Viewer::Picture>(name, std::move(image));
    }

    wxString text() const { return Wx::toWxString(information->text()); }

    bool isTold(const wxString& part) const { return text().Contains(part); }
};

} // namespace

TEST_F(InformationPanelTest, withoutPicture_tellsNothing)
{
    EXPECT_EQ(text(), L"");
    information->setPicture(nullptr, {});
    information->finish();
    EXPECT_EQ(text(), L"");
}

TEST_F(InformationPanelTest, picture_isToldWithItsStatistics)
{
    information->setPicture(plain(255), {});
    information->finish();
    EXPECT_TRUE(isTold(L"NaN pixels: 0")) << text();
    EXPECT_TRUE(isTold(L"1")) << text();
}

TEST_F(InformationPanelTest, hiddenPanel_looksAtThePixelsWhenItIsShown)
{
    information->Hide();
    information->setPicture(plain(255), {});
    information->finish();
    EXPECT_FALSE(isTold(L"NaN pixels")) << text();
    information->Show();
    information->finish();
    EXPECT_TRUE(isTold(L"NaN pixels: 0")) << text();
}

TEST_F(InformationPanelTest, pictureThatChangesFasterThanItIsLookedAt_isToldAllTheSame)
{
    information->setPicture(plain(0), {});
    bool wasTold = false;
    for (int i = 1; i < 20; ++i) {
        // The last state has been looked at by now, and the next one comes before that is told.
        wxMilliSleep(20);
        information->setPicture(plain(static_cast<std::uint8_t>(i)), {});
        wxTheApp->ProcessPendingEvents();
        EXPECT_TRUE(!wasTold || isTold(L"NaN pixels: 0")) << "the numbers flicker";
        wasTold = isTold(L"NaN pixels: 0");
    }
    EXPECT_TRUE(wasTold);
    const wxString before = text();
    information->setPicture(plain(255), {});
    information->finish();
    EXPECT_NE(text(), before) << "the last state is looked at, too";
}

TEST_F(InformationPanelTest, numbersOfAnotherPicture_areNotToldUnderItsName)
{
    information->setPicture(plain(255), {});
    information->finish();
    information->setPicture(plain(255, L"b"), {});
    EXPECT_FALSE(isTold(L"NaN pixels")) << text();
    information->finish();
    information->setPicture(plain(255, L"b", 50), {});
    EXPECT_FALSE(isTold(L"NaN pixels")) << text();
    information->finish();
    information->setPicture(plain(255, L"b", 50), wxRect(0, 0, 7, 1));
    EXPECT_FALSE(isTold(L"NaN pixels")) << text();
    information->finish();
    EXPECT_TRUE(isTold(L"NaN pixels: 0")) << text();
}
