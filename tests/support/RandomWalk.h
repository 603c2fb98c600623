// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"

#include <wx/event.h>

#include <functional>
#include <random>
#include <string>

class WXDLLIMPEXP_FWD_CORE wxFrame;
class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Tests {

/// A user who does anything at all with a frame: moves and presses the mouse, turns its wheel, types, and
/// meets controls that are disabled and enabled meanwhile. The same seed takes the same steps. The frame
/// stays open, and the other programs on the screen are left alone.
class RandomWalk
{
public:
    using Action = std::function<void()>;

    RandomWalk(wxFrame* frame, unsigned seed);
    ~RandomWalk();
    RandomWalk(const RandomWalk&) = delete;
    RandomWalk& operator=(const RandomWalk&) = delete;

    /// What the user can do besides. It is done as often as the steps that are common to all frames.
    void addAction(const std::string& name, const Action& action);

    /// Windows for which the function returns true are neither pressed nor disabled, and get no keys.
    void avoid(std::function<bool(const wxWindow*)> isAvoided);

    /// Takes that many steps. Every so many of them, and at the end, the user lets go of everything, when no
    /// window may hold the mouse and nothing that drops down or pops up may stay. Stops at the first failure.
    void walk(int steps);

    /// Returns a number from 0 to `limit` - 1.
    int number(int limit);

    /// The steps that were taken last, the latest at the end.
    std::string lastSteps() const;

private:
    struct Step
    {
        std::string name;
        Action take;
    };

    void addMouseSteps();
    void addKeySteps();
    void addWindowSteps();
    wxWindow* anyWindow();
    bool isAvoided(const wxWindow* window) const;
    void movePointer();
    void press();
    void release();
    void doubleClick();
    void turnWheel();
    void type(int key, int modifiers);
    void toggleEnabled();
    void rest();

    wxFrame* m_frame;
    std::mt19937 m_engine;
    Array<Step> m_steps;
    Array<std::string> m_taken;
    std::function<bool(const wxWindow*)> m_isAvoided;
    bool m_pressed = false;
};

} // namespace Nolvex::Tests
