// SPDX-License-Identifier: MIT
// Tests the viewer by the keyboard alone.
#include "NolvexLibWx/DpiScaling.h"
#include "apps/viewer/Command.h"
#include "support/Gestures.h"
#include "support/ViewerFixture.h"

#include <wx/accel.h>
#include <wx/menu.h>
#include <wx/platinfo.h>
#include <wx/timer.h>

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <utility>

using namespace Nolvex;
using Tests::coordinates;
using Tests::pumpUntil;
using Tests::typeKey;

namespace {

// Types a key a little after a menu has opened, from a timer: on Windows an open menu runs its own event
// loop, from which the opening call returns only when the menu is closed.
class DelayedKey : public wxTimer
{
public:
    DelayedKey(int key, int times, std::function<bool()> isOpen)
        : m_key(key), m_times(times), m_isOpen(std::move(isOpen))
    {
        Start(DELAY);
    }

    void Notify() override
    {
        // wxWidgets tells that a menu opens before the menu takes keys.
        if (!m_isOpen() || !std::exchange(m_wasOpen, true))
            return;
        wxUIActionSimulator().Char(m_key);
        if (--m_times == 0)
            Stop();
    }

private:
    static constexpr int DELAY = 300; // milliseconds

    int m_key;
    int m_times;
    std::function<bool()> m_isOpen;
    bool m_wasOpen = false;
};

// On Windows the first Escape leads from a menu to the menu bar, the second one out of it.
int escapesOutOfMenus()
{
    return (wxPlatformInfo::Get().GetOperatingSystemId() & wxOS_WINDOWS) != 0 ? 2 : 1;
}

struct ViewerKeyboardTest : Tests::ViewerFixture
{
    int opened = 0;
    int closed = 0;
    bool isClosing = false;

    /// Counts the menus that the user opens and closes.
    void watchMenus()
    {
        frame->Bind(wxEVT_MENU_OPEN, [this](wxMenuEvent& event) {
            ++opened;
            event.Skip();
        });
        frame->Bind(wxEVT_MENU_CLOSE, [this](wxMenuEvent& event) {
            ++closed;
            event.Skip();
        });
    }

    /// Calls the function, which opens a menu, and types the key into the menu.
    void typeIntoMenu(int key, const std::function<void()>& open, int times = 1)
    {
        const int before = opened;
        const DelayedKey delayed(key, times, [this, before] { return opened > before; });
        open();
        ASSERT_TRUE(pumpUntil([&] { return opened > before; }));
        EXPECT_TRUE(pumpUntil([&] { return closed == opened; }));
    }

    /// Shows the viewer, opens a menu by the function and presses Escape in the menu.
    void expectEscapeClosesOnlyTheMenu(const std::function<void()>& open)
    {
        show(coordinates(60, 40));
        focus(view);
        watchMenus();
        frame->Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) {
            isClosing = true;
            event.Veto();
        });
        typeIntoMenu(WXK_ESCAPE, open, escapesOutOfMenus());
        Tests::pumpEvents(200);
        EXPECT_FALSE(isClosing);
    }
};

void pressAlt(char mnemonic)
{
    wxUIActionSimulator().Char(mnemonic, wxMOD_ALT);
}

} // namespace

TEST_F(ViewerKeyboardTest, escapeInAMenu_closesTheMenuOnly)
{
    expectEscapeClosesOnlyTheMenu([] { pressAlt('v'); });
    typeKey(WXK_ESCAPE);
    EXPECT_TRUE(pumpUntil([&] { return isClosing; })) << "without a menu";
}

TEST_F(ViewerKeyboardTest, escapeInAMenuOpenedByTheMouse_closesTheMenuOnly)
{
    // GTK sends the keys of such a menu to the window first. The menu bar lies above the client area.
    expectEscapeClosesOnlyTheMenu([&] { Tests::clickAt(frame, wxPoint(20, -10)); });
}

TEST_F(ViewerKeyboardTest, letterInAMenu_runsItsCommand)
{
    show(coordinates(60, 40));
    focus(view);
    watchMenus();
    typeIntoMenu('s', [] { pressAlt('v'); });
    EXPECT_TRUE(pumpUntil([&] { return frame->hasLightSurround(); }));
}

TEST_F(ViewerKeyboardTest, everyCommand_isInAMenuUnderALetterOfItsOwn)
{
    make(nullptr);
    wxMenuBar* bar = frame->GetMenuBar();
    std::set<int> commands;
    for (std::size_t i = 0; i < bar->GetMenuCount(); ++i) {
        std::set<wxString> letters;
        for (const wxMenuItem* item : bar->GetMenu(i)->GetMenuItems()) {
            if (item->IsSeparator())
                continue;
            if (!item->IsSubMenu())
                commands.insert(item->GetId());
            const wxString letter = item->GetItemLabel().AfterFirst('&').Left(1).Lower();
            EXPECT_FALSE(letter.empty()) << item->GetItemLabel();
            EXPECT_TRUE(letters.insert(letter).second) << item->GetItemLabel();
        }
    }
    for (const Viewer::CommandInfo& info : Viewer::commandTable())
        EXPECT_EQ(commands.count(info.command), 1u) << wxString(info.label);
    EXPECT_EQ(commands.size(), Viewer::commandTable().size());
}

TEST_F(ViewerKeyboardTest, keyOfTheMenu_isTheKeyOfTheTable)
{
    make(nullptr);
    for (const Viewer::CommandInfo& info : Viewer::commandTable()) {
        const wxMenuItem* item = frame->GetMenuBar()->FindItem(info.command);
        ASSERT_NE(item, nullptr);
        const std::unique_ptr<wxAcceleratorEntry> key(item->GetAccel());
        ASSERT_EQ(key != nullptr, info.key != 0) << wxString(info.label);
        if (key == nullptr)
            continue;
        EXPECT_EQ(key->GetKeyCode(), info.key);
        wxKeyEvent event(wxEVT_CHAR_HOOK);
        event.m_keyCode = info.key;
        event.SetControlDown((info.modifiers & wxMOD_CONTROL) != 0);
        event.SetShiftDown((info.modifiers & wxMOD_SHIFT) != 0);
        event.SetAltDown((info.modifiers & wxMOD_ALT) != 0);
        EXPECT_EQ(Viewer::commandOf(event), info.command);
        EXPECT_TRUE(wxString(info.tooltip).Contains(info.keyText)) << wxString(info.tooltip);
    }
}

TEST_F(ViewerKeyboardTest, keysWithoutACommand_runNone)
{
    for (const int key : {int('O'), int('C'), int(WXK_RETURN), int(WXK_TAB)}) {
        wxKeyEvent event(wxEVT_CHAR_HOOK);
        event.m_keyCode = key;
        EXPECT_EQ(Viewer::commandOf(event), static_cast<int>(wxID_NONE)) << key;
    }
}

TEST_F(ViewerKeyboardTest, arrows_scrollAPictureLargerThanTheWindow)
{
    show(coordinates(4000, 3000));
    focus(view);
    view->showActualSize();
    typeKey(WXK_HOME);
    const int STEP = Wx::scaleByDpi(16);
    typeKey(WXK_DOWN);
    typeKey(WXK_RIGHT);
    EXPECT_TRUE(pumpUntil([&] { return view->pictureArea().GetTopLeft() == wxPoint(-STEP, -STEP); }));
}

TEST_F(ViewerKeyboardTest, focusBroughtByTab_isMarked_andByOtherMeansNot)
{
    show(coordinates(60, 40));
    frame->showLog(true);
    focus(log);
    const wxImage plain = Tests::captureClientArea(view);
    const auto changedInFirstRow = [&] {
        const wxImage now = Tests::captureClientArea(view);
        int changed = 0;
        for (int x = 0; x < plain.GetWidth(); ++x)
            changed += Tests::pixelAt(now, x, 0) == Tests::pixelAt(plain, x, 0) ? 0 : 1;
        return changed;
    };
    typeKey(WXK_TAB);
    focus(view);
    EXPECT_TRUE(view->hasFocusMark());
    EXPECT_TRUE(pumpUntil([&] { return changedInFirstRow() > plain.GetWidth() / 4; }));
    typeKey('x');
    focus(log);
    EXPECT_FALSE(view->hasFocusMark());
    focus(view);
    EXPECT_FALSE(view->hasFocusMark());
    EXPECT_TRUE(pumpUntil([&] { return changedInFirstRow() == 0; }));
}
