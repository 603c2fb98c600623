// SPDX-License-Identifier: MIT
#include "apps/viewer/RecentMenu.h"

#include "NolvexLibWx/StringConversions.h"
#include "support/FrameFixture.h"
#include "support/ViewerFixture.h"

#include <wx/fileconf.h>
#include <wx/menu.h>
#include <wx/sstream.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

using namespace Nolvex;

namespace {

std::shared_ptr<wxConfigBase> emptyConfig()
{
    wxStringInputStream nothing{wxString()};
    return std::make_shared<wxFileConfig>(nothing);
}

Io::Path absolutePath(const std::wstring& name)
{
    return std::filesystem::absolute((Io::Path(L"/pictures") / Io::Path(name)).native());
}

struct RecentMenuTest : Tests::FrameFixture
{
    Viewer::Settings settings{emptyConfig()};
    Viewer::Workspace workspace;
    Array<Io::Path> opened;
    wxMenu* first = new wxMenu;
    std::unique_ptr<Viewer::RecentMenu> recent;

    RecentMenuTest()
    {
        auto* const bar = new wxMenuBar;
        first->Append(wxID_OPEN, L"Open");
        first->Append(wxID_EXIT, L"Exit");
        bar->Append(first, L"Picture");
        frame->SetMenuBar(bar);
    }

    // The frame refers to the members.
    ~RecentMenuTest() override { destroyFrame(); }

    void make()
    {
        recent = std::make_unique<Viewer::RecentMenu>(
            *frame, workspace, settings, [this](const Io::Path& file) { opened.push_back(file); });
    }

    const wxMenu& menu() const { return *first->FindItemByPosition(1)->GetSubMenu(); }

    Array<wxString> labels() const
    {
        Array<wxString> texts;
        for (const wxMenuItem* const item : menu().GetMenuItems())
            texts.push_back(item->GetItemLabelText());
        return texts;
    }

    void choose(int id) const
    {
        wxCommandEvent event(wxEVT_MENU, id);
        frame->GetEventHandler()->ProcessEvent(event);
    }

    static wxString label(int number, const std::wstring& name)
    {
        return wxString::Format(L"%d ", number) + Wx::toWxString(absolutePath(name).nativeStr());
    }
};

} // namespace

TEST_F(RecentMenuTest, withoutFiles_isEmpty)
{
    make();
    EXPECT_TRUE(labels().empty());
    choose(wxID_FILE1);
    EXPECT_TRUE(opened.empty());
}

TEST_F(RecentMenuTest, filesOfTheLastRun_areListedWithTheLatestFirst)
{
    for (const wchar_t* name : {L"a.png", L"b.png"})
        settings.addRecentFile(absolutePath(name));
    make();
    EXPECT_EQ(labels(), (Array<wxString>{label(1, L"b.png"), label(2, L"a.png")}));
}

TEST_F(RecentMenuTest, shownPicture_joinsTheMenuAndAListedOneDoesNot)
{
    make();
    const Viewer::PictureId id = workspace.add(absolutePath(L"a.png"), Tests::coordinates(4, 3));
    workspace.addFiles({absolutePath(L"b.png")});
    EXPECT_TRUE(labels().empty());
    workspace.setCurrent(id);
    EXPECT_EQ(labels(), Array<wxString>{label(1, L"a.png")});
}

TEST_F(RecentMenuTest, pictureOfTheScreen_doesNotJoin)
{
    make();
    workspace.setCurrent(workspace.add({}, Tests::coordinates(4, 3), Viewer::PictureOrigin::DESKTOP));
    EXPECT_TRUE(labels().empty());
}

TEST_F(RecentMenuTest, chosenFile_isOpened)
{
    for (const wchar_t* name : {L"a.png", L"b.png"})
        settings.addRecentFile(absolutePath(name));
    make();
    choose(wxID_FILE2);
    EXPECT_EQ(opened, Array<Io::Path>{absolutePath(L"a.png")});
    choose(wxID_FILE9);
    EXPECT_EQ(opened.size(), 1U);
}

TEST_F(RecentMenuTest, ampersandOfAName_isShown)
{
    settings.addRecentFile(absolutePath(L"a&b & c.png"));
    make();
    EXPECT_EQ(labels(), Array<wxString>{label(1, L"a&b & c.png")});
}

TEST_F(RecentMenuTest, tenthFile_pushesTheOldestOut)
{
    make();
    for (int i = 0; i < 10; ++i)
        workspace.setCurrent(
            workspace.add(absolutePath(std::to_wstring(i) + L".png"), Tests::coordinates(4, 3)));
    ASSERT_EQ(labels().size(), 9U);
    EXPECT_EQ(labels().front(), label(1, L"9.png"));
    EXPECT_EQ(labels().back(), label(9, L"1.png"));
}
