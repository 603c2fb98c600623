// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/widgets/ColorPickerButton.h"
#include "support/FrameFixture.h"
#include "support/Gestures.h"
#include "support/Screen.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Nolvex::Tests {

/// A picker without a window: the test decides what the user does in it.
class FakePicker : public IColorPicker
{
public:
    using Run = std::function<void(FakePicker&)>;

    FakePicker(Run run, int& alive) : m_run(std::move(run)), m_alive(alive) { ++m_alive; }

    ~FakePicker() override { --m_alive; }

    void setPreviewCallback(const Function<void(const Rgb&)>& onPreview) override { preview = onPreview; }

    void setCommitCallback(const Function<void(const Rgb&)>& onCommit) override { commit = onCommit; }

    void runModal() override
    {
        if (m_run)
            m_run(*this);
    }

    wxPoint getPosition() const override { return position; }

    Function<void(const Rgb&)> preview;
    Function<void(const Rgb&)> commit;
    wxPoint position = wxDefaultPosition;

private:
    Run m_run;
    int& m_alive;
};

/// What the factories of a test were asked for, and what their pickers do.
struct Pickers
{
    struct Request
    {
        WindowHandle owner;
        String title;
        wxPoint position;
        Rgb initial;
    };

    std::vector<Request> requests;
    FakePicker::Run run;          ///< is the picker's runModal
    std::function<void()> making; ///< is called before a picker is made
    bool isNull = false;          ///< the factories return no picker
    int alive = 0;                ///< the pickers that exist
    int factories = 0;            ///< the factories that exist
};

class FakeFactory : public IColorPickerFactory
{
public:
    explicit FakeFactory(Pickers& pickers) : m_pickers(pickers) { ++m_pickers.factories; }

    ~FakeFactory() override { --m_pickers.factories; }

    AutoPtr<IColorPicker> createPicker(WindowHandle owner, const String& title, const wxPoint& position,
                                       const Rgb& initial) override
    {
        if (m_pickers.making)
            m_pickers.making();
        // A test may have destroyed the button: the arguments and this object must still exist.
        m_pickers.requests.push_back({owner, title, position, initial});
        if (m_pickers.isNull)
            return nullptr;
        return std::make_unique<FakePicker>(m_pickers.run, m_pickers.alive);
    }

private:
    Pickers& m_pickers;
};

/// A frame for buttons whose callbacks are recorded.
struct ColorPickerButtonFixture : FrameFixture
{
    using Button = Wx::ColorPickerButton;
    using Entries = std::vector<std::pair<std::string, Rgb>>;

    static constexpr Rgb ORANGE{1.0f, 0.5f, 0.0f, 1.0f};
    static constexpr Rgb TEAL{0.0f, 0.5f, 0.5f, 1.0f};
    static constexpr RgbBytes ORANGE_BYTES{255, 128, 0};
    static constexpr RgbBytes TEAL_BYTES{0, 128, 128};

    explicit ColorPickerButtonFixture() : FrameFixture(L"colours") {}

    /// Makes an orange button of 40 x 30 design units whose position is in pixels.
    Button* make(const wxPoint& position = {40, 40}, const std::string& prefix = {}, bool isEnabled = true)
    {
        auto* button =
            new Button(std::make_unique<FakeFactory>(pickers), panel, L"Title", wxSize(40, 30), isEnabled);
        button->SetPosition(position);
        button->setColor(ORANGE, false);
        button->onPreview = [this, prefix](const Rgb& color) {
            entries.emplace_back(prefix + "preview", color);
        };
        button->onChange = [this, prefix](const Rgb& color) {
            entries.emplace_back(prefix + "change", color);
        };
        return button;
    }

    static wxPoint middleOf(const wxWindow* window)
    {
        return {window->GetSize().x / 2, window->GetSize().y / 2};
    }

    /// Presses and releases the mouse in the button without the system's mouse.
    static void clickWithoutMouse(Button* button)
    {
        const wxWeakRef<Button> self(button);
        sendMouse(button, wxEVT_LEFT_DOWN, middleOf(button));
        if (self)
            sendMouse(button, wxEVT_LEFT_UP, middleOf(button));
    }

    static bool sendMouse(wxWindow* window, wxEventType type, const wxPoint& position,
                          bool isLeftDown = false)
    {
        wxMouseEvent event(type);
        event.SetEventObject(window);
        event.SetPosition(position);
        event.SetLeftDown(isLeftDown);
        return window->HandleWindowEvent(event);
    }

    /// Waits until the pixel in the middle of the button has the colour.
    static bool shows(Button* button, const RgbBytes& color)
    {
        const wxPoint middle = middleOf(button);
        return pumpUntil([&] { return pixelAt(captureClientArea(button), middle.x, middle.y) == color; });
    }

    Pickers pickers;
    Entries entries;
};

} // namespace Nolvex::Tests
