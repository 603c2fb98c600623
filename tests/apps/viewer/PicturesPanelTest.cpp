// SPDX-License-Identifier: MIT
#include "apps/viewer/PicturesPanel.h"

#include "NolvexLibWx/widgets/TextControl.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"
#include "support/ViewerFixture.h"

#include <wx/listbox.h>

#include <gtest/gtest.h>

using namespace Nolvex;
using Viewer::PictureId;

namespace {

struct PicturesPanelTest : Tests::FrameFixture
{
    Viewer::Workspace workspace;
    Array<PictureId> shown;
    Array<PictureId> closed;
    Viewer::PicturesPanel* pictures = new Viewer::PicturesPanel(
        panel, workspace, [this](PictureId id) { shown.push_back(id); },
        [this](PictureId id) { closed.push_back(id); });
    wxListBox* list = Tests::findIn<wxListBox>(pictures);
    Wx::TextControl* filter = Tests::findIn<Wx::TextControl>(pictures);

    PicturesPanelTest() { pictures->SetSize(panel->GetClientSize()); }

    // The panel refers to the members.
    ~PicturesPanelTest() override { destroyFrame(); }

    PictureId add(const wchar_t* name)
    {
        return workspace.add(Io::Path(name), Tests::coordinates(4, 3)->named(name));
    }

    Array<wxString> rows() const
    {
        const wxArrayString strings = list->GetStrings();
        return {strings.begin(), strings.end()};
    }

    void focus(wxWindow* window) const
    {
        showFrame();
        pictures->SetSize(panel->GetClientSize());
        ASSERT_TRUE(Tests::pumpUntil([window] {
            window->SetFocus();
            return window->HasFocus();
        }));
    }
};

} // namespace

TEST_F(PicturesPanelTest, pictures_areListedInTheirOrder)
{
    EXPECT_TRUE(rows().empty());
    add(L"b.exr");
    add(L"a.exr");
    add(L"c.exr");
    EXPECT_EQ(rows(), (Array<wxString>{L"b.exr", L"a.exr", L"c.exr"}));
}

TEST_F(PicturesPanelTest, currentPicture_isTheSelectedRow)
{
    add(L"a");
    const PictureId b = add(L"b");
    EXPECT_EQ(list->GetSelection(), wxNOT_FOUND);
    workspace.setCurrent(b);
    EXPECT_EQ(list->GetSelection(), 1);
    workspace.close(workspace.pictures()[0].id);
    EXPECT_EQ(rows(), Array<wxString>{L"b"});
    EXPECT_EQ(list->GetSelection(), 0);
    EXPECT_TRUE(shown.empty()) << "the user has selected nothing";
}

TEST_F(PicturesPanelTest, renamedPicture_isListedUnderItsNewName)
{
    const PictureId a = add(L"a");
    workspace.setFile(a, Io::Path(L"folder/new.png"));
    EXPECT_EQ(rows(), Array<wxString>{L"new.png"});
}

TEST_F(PicturesPanelTest, reference_isMarked)
{
    const PictureId a = add(L"a");
    const PictureId b = add(L"b");
    workspace.setReference(a);
    EXPECT_EQ(rows(), (Array<wxString>{L"a (reference)", L"b"}));
    workspace.setReference(b);
    EXPECT_EQ(rows(), (Array<wxString>{L"a", L"b (reference)"}));
    workspace.setReference({});
    EXPECT_EQ(rows(), (Array<wxString>{L"a", L"b"}));
}

TEST_F(PicturesPanelTest, filter_listsTheNamesThatContainIt)
{
    for (const wchar_t* name : {L"Beauty.exr", L"depth.exr", L"beauty2.exr"})
        add(name);
    filter->SetValue(L"BEAUTY");
    EXPECT_EQ(rows(), (Array<wxString>{L"Beauty.exr", L"beauty2.exr"}));
    filter->SetValue(L"reference");
    EXPECT_TRUE(rows().empty());
    filter->SetValue(wxString());
    EXPECT_EQ(list->GetCount(), 3U);
}

TEST_F(PicturesPanelTest, filterThatHidesTheCurrentPicture_leavesNoRowSelected)
{
    workspace.setCurrent(add(L"a"));
    add(L"b");
    filter->SetValue(L"b");
    EXPECT_EQ(list->GetSelection(), wxNOT_FOUND);
    filter->SetValue(wxString());
    EXPECT_EQ(list->GetSelection(), 0);
    EXPECT_TRUE(shown.empty());
}

TEST_F(PicturesPanelTest, selectedRow_isShown)
{
    workspace.setCurrent(add(L"a"));
    add(L"b");
    const PictureId c = add(L"c");
    filter->SetValue(L"c");
    focus(list);
    Tests::clickAt(list, {5, 5});
    EXPECT_TRUE(Tests::pumpUntil([this] { return !shown.empty(); }));
    EXPECT_EQ(shown, Array<PictureId>{c}) << "rows are those of the filtered list";
}

TEST_F(PicturesPanelTest, deleteKey_closesTheSelectedPicture)
{
    add(L"a");
    const PictureId b = add(L"b");
    workspace.setCurrent(b);
    focus(list);
    Tests::typeKey(WXK_DELETE);
    EXPECT_TRUE(Tests::pumpUntil([this] { return !closed.empty(); }));
    EXPECT_EQ(closed, Array<PictureId>{b});
}

TEST_F(PicturesPanelTest, deleteKeyWithoutASelection_closesNothing)
{
    add(L"a");
    wxKeyEvent key(wxEVT_KEY_DOWN);
    key.m_keyCode = WXK_DELETE;
    EXPECT_FALSE(list->GetEventHandler()->ProcessEvent(key)) << "the list has it";
    EXPECT_TRUE(closed.empty());
}

TEST_F(PicturesPanelTest, deleteKeyInTheFilter_deletesText)
{
    workspace.setCurrent(add(L"ab"));
    filter->SetValue(L"ab");
    focus(filter);
    filter->SetInsertionPoint(0);
    Tests::typeKey(WXK_DELETE);
    EXPECT_TRUE(Tests::pumpUntil([this] { return filter->GetValue() == L"b"; }));
    EXPECT_TRUE(closed.empty());
}
