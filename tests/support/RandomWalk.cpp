// SPDX-License-Identifier: MIT
#include "support/RandomWalk.h"

#include "support/Events.h"

#include <wx/frame.h>
#include <wx/nonownedwnd.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace Nolvex {

namespace {

constexpr int REST_PERIOD = 30;        // steps
constexpr int SHOWN_STEPS = 25;        // of those that led to a failure
constexpr int HOLD_TIME = 200;         // milliseconds; long enough for a drop-down button to open
constexpr int POPUP_TIME_LIMIT = 3000; // milliseconds

void collect(wxWindow* window, Array<wxWindow*>& found)
{
    if (window->IsBeingDeleted())
        return;
    found.push_back(window);
    for (wxWindow* child : window->GetChildren())
        collect(child, found);
}

Array<wxWindow*> windowsBelow(wxWindow* window)
{
    Array<wxWindow*> found;
    collect(window, found);
    found.erase(found.begin());
    return found;
}

bool isPopup(const wxWindow* window)
{
    return dynamic_cast<const wxNonOwnedWindow*>(window) != nullptr;
}

bool hasPopupShown(wxFrame* frame)
{
    return std::ranges::any_of(windowsBelow(frame),
                               [](const wxWindow* window) { return isPopup(window) && window->IsShown(); });
}

} // namespace

Tests::RandomWalk::RandomWalk(wxFrame* frame, unsigned seed) : m_frame(frame), m_engine(seed)
{
    m_frame->Bind(wxEVT_CLOSE_WINDOW, [](wxCloseEvent& event) { event.Veto(); });
    addMouseSteps();
    addKeySteps();
    addWindowSteps();
}

Tests::RandomWalk::~RandomWalk()
{
    // The button of the mouse is never left down for the tests that follow.
    if (m_pressed)
        wxUIActionSimulator().MouseUp();
}

void Tests::RandomWalk::addMouseSteps()
{
    // Several times, as most of what people do is done with the mouse.
    for (int i = 0; i < 3; ++i) {
        addAction("move", [this] { movePointer(); });
        addAction("press", [this] { press(); });
        addAction("release", [this] { release(); });
    }
    addAction("double click", [this] { doubleClick(); });
    addAction("wheel", [this] { turnWheel(); });
    addAction("wait", [] { pumpEvents(HOLD_TIME); });
}

void Tests::RandomWalk::addKeySteps()
{
    struct Key
    {
        const char* name;
        int code;
        int modifiers;
    };

    constexpr Key KEYS[] = {
        {"Tab", WXK_TAB, wxMOD_NONE},         {"Shift+Tab", WXK_TAB, wxMOD_SHIFT},
        {"Ctrl+Tab", WXK_TAB, wxMOD_CONTROL}, {"Escape", WXK_ESCAPE, wxMOD_NONE},
        {"Space", WXK_SPACE, wxMOD_NONE},     {"Enter", WXK_RETURN, wxMOD_NONE},
        {"Up", WXK_UP, wxMOD_NONE},           {"Down", WXK_DOWN, wxMOD_NONE},
        {"Left", WXK_LEFT, wxMOD_NONE},       {"Right", WXK_RIGHT, wxMOD_NONE},
        {"Ctrl+End", WXK_END, wxMOD_CONTROL}, {"a", 'A', wxMOD_NONE},
    };
    for (const Key& key : KEYS)
        addAction(key.name, [this, key] { type(key.code, key.modifiers); });
}

void Tests::RandomWalk::addWindowSteps()
{
    addAction("disable or enable", [this] { toggleEnabled(); });
    addAction("disable or enable", [this] { toggleEnabled(); });
}

void Tests::RandomWalk::addAction(const std::string& name, const Action& action)
{
    m_steps.push_back({name, action});
}

void Tests::RandomWalk::avoid(std::function<bool(const wxWindow*)> isAvoided)
{
    m_isAvoided = std::move(isAvoided);
}

void Tests::RandomWalk::walk(int steps)
{
    for (int i = 1; i <= steps && !testing::Test::HasFailure(); ++i) {
        const Step step = m_steps[static_cast<std::size_t>(number(static_cast<int>(m_steps.size())))];
        m_taken.push_back(step.name);
        step.take();
        pumpEvents(2);
        if (i % REST_PERIOD == 0 || i == steps)
            rest();
    }
}

int Tests::RandomWalk::number(int limit)
{
    // The distributions of the standard library differ between its makers.
    return static_cast<int>(m_engine() % static_cast<unsigned>(limit));
}

std::string Tests::RandomWalk::lastSteps() const
{
    std::string text;
    const std::size_t from = m_taken.size() - std::min<std::size_t>(m_taken.size(), SHOWN_STEPS);
    for (std::size_t i = from; i < m_taken.size(); ++i)
        text += (i == from ? "" : ", ") + m_taken[i];
    return text;
}

wxWindow* Tests::RandomWalk::anyWindow()
{
    const Array<wxWindow*> windows = windowsBelow(m_frame);
    return windows[static_cast<std::size_t>(number(static_cast<int>(windows.size())))];
}

bool Tests::RandomWalk::isAvoided(const wxWindow* window) const
{
    for (; window != nullptr && m_isAvoided; window = window->GetParent()) {
        if (m_isAvoided(window))
            return true;
    }
    return false;
}

void Tests::RandomWalk::movePointer()
{
    // Half of the moves end in a control that was picked, since much of a frame is empty.
    wxRect area(m_frame->ClientToScreen(wxPoint(0, 0)), m_frame->GetClientSize());
    const wxWindow* const target = number(2) == 0 ? anyWindow() : nullptr;
    if (target != nullptr && !isPopup(target) && target->IsShownOnScreen())
        area.Intersect(target->GetScreenRect());
    if (!area.IsEmpty())
        wxUIActionSimulator().MouseMove(area.x + number(area.width), area.y + number(area.height));
}

void Tests::RandomWalk::press()
{
    // Outside the frame lie the desktop and the windows of other programs.
    const wxRect area(m_frame->ClientToScreen(wxPoint(0, 0)), m_frame->GetClientSize());
    if (m_pressed || !area.Contains(wxGetMousePosition()) ||
        isAvoided(wxFindWindowAtPoint(wxGetMousePosition())))
        return;
    m_pressed = wxUIActionSimulator().MouseDown();
}

void Tests::RandomWalk::release()
{
    if (std::exchange(m_pressed, false))
        wxUIActionSimulator().MouseUp();
}

void Tests::RandomWalk::doubleClick()
{
    release();
    press();
    release();
    press();
    release();
}

void Tests::RandomWalk::turnWheel()
{
    wxWindow* const target = anyWindow();
    wxMouseEvent event(wxEVT_MOUSEWHEEL);
    event.m_wheelDelta = 120;
    event.m_wheelRotation = number(2) == 0 ? 120 : -120;
    event.m_linesPerAction = 3;
    event.SetEventObject(target);
    target->HandleWindowEvent(event);
}

void Tests::RandomWalk::type(int key, int modifiers)
{
    // Without a focus in the frame the keys would go to another program.
    const wxWindow* const focus = wxWindow::FindFocus();
    if (focus != nullptr && !isAvoided(focus))
        wxUIActionSimulator().Char(key, modifiers);
}

void Tests::RandomWalk::toggleEnabled()
{
    wxWindow* const target = anyWindow();
    if (!isAvoided(target))
        target->Enable(!target->IsThisEnabled());
}

void Tests::RandomWalk::rest()
{
    release();
    for (wxWindow* window : windowsBelow(m_frame))
        window->Enable();
    wxUIActionSimulator().MouseMove(5, 5);
    EXPECT_TRUE(pumpUntil([] { return wxWindow::GetCapture() == nullptr; })) << "a window keeps the mouse";
    EXPECT_TRUE(pumpUntil([this] { return !hasPopupShown(m_frame); }, POPUP_TIME_LIMIT))
        << "a popup stays on the screen";
    EXPECT_TRUE(m_frame->IsShown());
}

} // namespace Nolvex
