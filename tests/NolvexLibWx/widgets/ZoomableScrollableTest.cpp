// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/ZoomableScrollable.h"

#include "NolvexLib/StopException.h"
#include "support/FrameFixture.h"
#include "support/TouchPad.h"

#include <wx/scrolwin.h>

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <stdexcept>
#include <vector>

using namespace Nolvex;

namespace {

using Amounts = std::vector<int>;

/// A view that takes down what reaches it.
class View : public ZoomableScrollable
{
public:
    using ZoomableScrollable::bindScrollAndZoomEvents;

    void onScrollOrZoom(wxMouseEvent& event, int amount) override
    {
        amounts.push_back(amount);
        types.push_back(event.GetEventType());
        axis = event.GetWheelAxis();
        positions.push_back(event.GetPosition());
        // The function may destroy the view, and must not be destroyed with it while running.
        const std::function<void(wxMouseEvent&)> acting = act;
        if (acting)
            acting(event);
    }

    Amounts amounts;
    std::vector<wxEventType> types;
    std::vector<wxPoint> positions;
    wxMouseWheelAxis axis = wxMOUSE_WHEEL_VERTICAL;
    std::function<void(wxMouseEvent&)> act;
};

/// Both a window and a view, with the bases in either order.
class ScrolledView : public wxScrolledWindow, public View
{
public:
    explicit ScrolledView(wxWindow* parent) : wxScrolledWindow(parent) { bindScrollAndZoomEvents(this); }
};

class ViewFirst : public View, public wxWindow
{
public:
    explicit ViewFirst(wxWindow* parent) : wxWindow(parent, wxID_ANY) { bindScrollAndZoomEvents(this); }
};

bool turnWheel(wxWindow* window, int rotation, wxMouseWheelAxis axis = wxMOUSE_WHEEL_VERTICAL)
{
    wxMouseEvent event(wxEVT_MOUSEWHEEL);
    event.SetEventObject(window);
    event.m_wheelRotation = rotation;
    event.m_wheelDelta = 120;
    event.m_wheelAxis = axis;
    return window->ProcessWindowEvent(event);
}

bool magnify(wxWindow* window, float magnification)
{
    wxMouseEvent event(wxEVT_MAGNIFY);
    event.SetEventObject(window);
    event.m_magnification = magnification;
    return window->ProcessWindowEvent(event);
}

void pinch(wxWindow* window, const std::vector<float>& deltas)
{
    for (const float delta : deltas)
        magnify(window, delta);
    magnify(window, 0.0f);
}

struct ZoomableScrollableTest : Tests::FrameFixture
{
    wxWindow* window = new wxWindow(panel, wxID_ANY, wxPoint(20, 20), wxSize(200, 150));
    std::unique_ptr<View> view = std::make_unique<View>();

    ZoomableScrollableTest() { view->bindScrollAndZoomEvents(window); }
};

} // namespace

TEST_F(ZoomableScrollableTest, wheel_passesEveryRotationUnchanged)
{
    for (const int rotation : {120, -240, 1, 0, 119, -120000})
        EXPECT_TRUE(turnWheel(window, rotation));
    EXPECT_EQ(view->amounts, (Amounts{120, -240, 1, 0, 119, -120000}));
    EXPECT_EQ(view->types.front(), wxEVT_MOUSEWHEEL);
}

TEST_F(ZoomableScrollableTest, wheel_turnedSideways_isPassedWithItsAxis)
{
    turnWheel(window, -120, wxMOUSE_WHEEL_HORIZONTAL);
    EXPECT_EQ(view->amounts, Amounts{-120});
    EXPECT_EQ(view->axis, wxMOUSE_WHEEL_HORIZONTAL);
}

TEST_F(ZoomableScrollableTest, wheel_doesNotChangeAPinch)
{
    magnify(window, -0.5f);
    turnWheel(window, 120);
    magnify(window, 0.0f);
    EXPECT_EQ(view->amounts, (Amounts{120, -1}));
}

TEST_F(ZoomableScrollableTest, pinch_isOneStepInItsNetDirection)
{
    pinch(window, {0.1f, 0.2f, -0.05f});
    EXPECT_EQ(view->amounts, Amounts{1});
    pinch(window, {0.3f, -0.5f});
    EXPECT_EQ(view->amounts, (Amounts{1, -1}));
    EXPECT_EQ(view->types.back(), wxEVT_MAGNIFY);
}

TEST_F(ZoomableScrollableTest, pinch_isNoStepBeforeItsEnd)
{
    magnify(window, 0.5f);
    magnify(window, 0.5f);
    EXPECT_EQ(view->amounts, Amounts{});
}

TEST_F(ZoomableScrollableTest, pinch_ofSumZero_zoomsOut)
{
    pinch(window, {0.25f, -0.25f});
    EXPECT_EQ(view->amounts, Amounts{-1});
}

TEST_F(ZoomableScrollableTest, pinch_withoutDeltas_zoomsOut)
{
    pinch(window, {});
    magnify(window, -0.0f);
    EXPECT_EQ(view->amounts, (Amounts{-1, -1}));
}

TEST_F(ZoomableScrollableTest, pinch_startsAtZeroAfterTheLast)
{
    pinch(window, {10.0f});
    pinch(window, {-0.1f});
    pinch(window, {0.1f});
    EXPECT_EQ(view->amounts, (Amounts{1, -1, 1}));
}

TEST_F(ZoomableScrollableTest, pinch_withNanOrInfinity_countsItsOtherDeltas)
{
    constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
    constexpr float INF = std::numeric_limits<float>::infinity();
    pinch(window, {0.5f, NOT_A_NUMBER});
    pinch(window, {NOT_A_NUMBER, -0.5f});
    pinch(window, {-0.5f, INF});
    pinch(window, {0.5f, -INF});
    EXPECT_EQ(view->amounts, (Amounts{1, -1, -1, 1}));
    constexpr float MAX = std::numeric_limits<float>::max();
    pinch(window, {MAX, MAX, -MAX, -MAX, -MAX});
    pinch(window, {0.1f});
    EXPECT_EQ(view->amounts.back(), 1);
}

TEST_F(ZoomableScrollableTest, event_thatIsSkipped_reachesOtherHandlers)
{
    View first;
    first.bindScrollAndZoomEvents(window);
    turnWheel(window, 120);
    EXPECT_EQ(view->amounts, Amounts{});
    first.act = [](wxMouseEvent& event) { event.Skip(); };
    turnWheel(window, -120);
    EXPECT_EQ(view->amounts, Amounts{-120});
    EXPECT_EQ(first.amounts, (Amounts{120, -120}));
}

TEST_F(ZoomableScrollableTest, bind_usesSeveralWindows)
{
    auto* other = new wxWindow(panel, wxID_ANY);
    view->bindScrollAndZoomEvents(other);
    turnWheel(window, 120);
    turnWheel(other, 240);
    magnify(window, -0.5f);
    magnify(other, 0.75f);
    magnify(other, 0.0f);
    EXPECT_EQ(view->amounts, (Amounts{120, 240, 1}));
}

TEST_F(ZoomableScrollableTest, bind_ofTheSameWindowAgain_changesNothing)
{
    view->act = [](wxMouseEvent& event) { event.Skip(); };
    view->bindScrollAndZoomEvents(window);
    turnWheel(window, 120);
    EXPECT_EQ(view->amounts, Amounts{120});
}

TEST_F(ZoomableScrollableTest, bind_ofNothing_isAProgrammingError)
{
    EXPECT_THROW(view->bindScrollAndZoomEvents(nullptr), StopException);
}

TEST_F(ZoomableScrollableTest, view_mayBeDestroyedBeforeTheWindow)
{
    view.reset();
    EXPECT_FALSE(turnWheel(window, 120));
    EXPECT_FALSE(magnify(window, 0.0f));
    Tests::pinchTouchPad(window, {1.5});
}

TEST_F(ZoomableScrollableTest, window_mayBeDestroyedBeforeTheView)
{
    auto* other = new wxWindow(panel, wxID_ANY);
    view->bindScrollAndZoomEvents(other);
    window->Destroy();
    turnWheel(other, 240);
    EXPECT_EQ(view->amounts, Amounts{240});
    // The memory of the destroyed window may serve for the next.
    for (int i = 0; i < 10; ++i) {
        auto* next = new wxWindow(panel, wxID_ANY);
        view->bindScrollAndZoomEvents(next);
        EXPECT_TRUE(turnWheel(next, 1));
        next->Destroy();
    }
}

TEST_F(ZoomableScrollableTest, windowThatIsTheView_mayHaveItsBasesInEitherOrder)
{
    auto* scrolled = new ScrolledView(panel);
    auto* viewFirst = new ViewFirst(panel);
    turnWheel(scrolled, 120);
    pinch(viewFirst, {0.5f});
    EXPECT_EQ(scrolled->amounts, Amounts{120});
    EXPECT_EQ(viewFirst->amounts, Amounts{1});
    scrolled->Destroy();
    viewFirst->Destroy();
}

TEST_F(ZoomableScrollableTest, handler_mayDestroyTheView)
{
    view->act = [this](wxMouseEvent&) { view.reset(); };
    turnWheel(window, 120);
    EXPECT_EQ(view, nullptr);
    view = std::make_unique<View>();
    view->bindScrollAndZoomEvents(window);
    view->act = [this](wxMouseEvent&) { view.reset(); };
    pinch(window, {0.5f});
    EXPECT_EQ(view, nullptr);
}

TEST_F(ZoomableScrollableTest, handlerThatThrows_leavesNothingToTheNextPinch)
{
    view->act = [](wxMouseEvent&) { throw std::runtime_error("no zoom"); };
    magnify(window, 5.0f);
    EXPECT_THROW(
        {
            wxMouseEvent event(wxEVT_MAGNIFY);
            window->GetEventHandler()->ProcessEvent(event);
        },
        std::runtime_error);
    view->act = nullptr;
    pinch(window, {-0.5f});
    EXPECT_EQ(view->amounts, (Amounts{1, -1}));
}

TEST_F(ZoomableScrollableTest, touchPad_pinchIsOneStep)
{
    showFrame();
    if (!Tests::pinchTouchPad(window, {1.1, 1.6, 1.4}))
        GTEST_SKIP() << "The system sends turns of the wheel in place of pinches.";
    EXPECT_EQ(view->amounts, Amounts{1});
    Tests::pinchTouchPad(window, {1.2, 0.9});
    Tests::pinchTouchPad(window, {});
    EXPECT_EQ(view->amounts, (Amounts{1, -1, -1}));
    EXPECT_EQ(view->types.back(), wxEVT_MAGNIFY);
    EXPECT_EQ(view->positions.back(), wxPoint(20, 20));
}

TEST_F(ZoomableScrollableTest, touchPad_cancelledPinchIsNoStep)
{
    showFrame();
    if (!Tests::pinchTouchPad(window, {5.0}, Tests::PinchEnd::CANCELLED))
        GTEST_SKIP() << "The system sends turns of the wheel in place of pinches.";
    EXPECT_EQ(view->amounts, Amounts{});
    Tests::pinchTouchPad(window, {0.9});
    EXPECT_EQ(view->amounts, Amounts{-1});
}

TEST_F(ZoomableScrollableTest, touchPad_reportsTheWholeMagnification)
{
    showFrame();
    std::vector<float> magnifications;
    window->Bind(wxEVT_MAGNIFY, [&](wxMouseEvent& event) {
        magnifications.push_back(event.GetMagnification());
        event.Skip();
    });
    if (!Tests::pinchTouchPad(window, {1.1, 1.25}))
        GTEST_SKIP() << "The system sends turns of the wheel in place of pinches.";
    EXPECT_EQ(magnifications, (std::vector<float>{0.25f, 0.0f}));
    EXPECT_EQ(view->amounts, Amounts{1});
}

TEST_F(ZoomableScrollableTest, touchPad_reachesAScrolledWindow)
{
    auto* scrolled = new ScrolledView(panel);
    scrolled->SetSize(10, 10, 300, 200);
    showFrame();
    if (!Tests::pinchTouchPad(scrolled, {2.0}))
        GTEST_SKIP() << "The system sends turns of the wheel in place of pinches.";
    EXPECT_EQ(scrolled->amounts, Amounts{1});
}

TEST_F(ZoomableScrollableTest, touchPad_overAChild_reachesTheView)
{
    auto* child = new wxWindow(window, wxID_ANY, wxPoint(0, 0), wxSize(100, 100));
    showFrame();
    if (!Tests::pinchTouchPad(child, {2.0}))
        GTEST_SKIP() << "The system sends turns of the wheel in place of pinches.";
    EXPECT_EQ(view->amounts, Amounts{1});
}

TEST_F(ZoomableScrollableTest, touchPad_overAChildThatIsBoundToo_isTheChildsAlone)
{
    auto* child = new wxWindow(window, wxID_ANY, wxPoint(0, 0), wxSize(100, 100));
    View inner;
    inner.bindScrollAndZoomEvents(child);
    showFrame();
    if (!Tests::pinchTouchPad(child, {2.0}))
        GTEST_SKIP() << "The system sends turns of the wheel in place of pinches.";
    EXPECT_EQ(inner.amounts, Amounts{1});
    Tests::pinchTouchScreen(child, 40, 30);
    EXPECT_EQ(inner.amounts, (Amounts{1, -1}));
    EXPECT_EQ(view->amounts, Amounts{});
    Tests::pinchTouchPad(window, {2.0});
    EXPECT_EQ(view->amounts, Amounts{1});
}

TEST_F(ZoomableScrollableTest, touchScreen_pinchIsOneStep)
{
    showFrame();
    if (!Tests::pinchTouchScreen(window, 40, 60))
        GTEST_SKIP() << "The system sends turns of the wheel in place of pinches.";
    EXPECT_EQ(view->amounts, Amounts{1});
    Tests::pinchTouchScreen(window, 60, 40);
    EXPECT_EQ(view->amounts, (Amounts{1, -1}));
}

TEST_F(ZoomableScrollableTest, touchPad_handlerMayDestroyViewAndWindow)
{
    showFrame();
    view->act = [this](wxMouseEvent&) {
        view.reset();
        window->Destroy();
    };
    if (!Tests::pinchTouchPad(window, {2.0}))
        GTEST_SKIP() << "The system sends turns of the wheel in place of pinches.";
    EXPECT_EQ(view, nullptr);
}

TEST_F(ZoomableScrollableTest, touchPad_destroyedDuringThePinch_isSurvived)
{
    showFrame();
    wxWeakRef<wxWindow> doomed(window);
    window->Bind(wxEVT_MAGNIFY, [&](wxMouseEvent&) { doomed->Destroy(); });
    if (!Tests::pinchTouchPad(window, {2.0}))
        GTEST_SKIP() << "The system sends turns of the wheel in place of pinches.";
    EXPECT_EQ(doomed, nullptr);
    EXPECT_EQ(view->amounts, Amounts{});
}
