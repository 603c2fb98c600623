// SPDX-License-Identifier: MIT
// Compares the spinner with a second, naive implementation of its arithmetic in generated cases.
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/widgets/TextControl.h"
#include "SpinnerFixture.h"
#include "support/SystemLimits.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>

using namespace Nolvex;
using namespace Nolvex::Tests;

namespace {

constexpr int CASES = 2500;
constexpr int ACTIONS = 6; // of each case

// Writes out every rule where it applies.
struct Model
{
    float low, high, standard, step;
    int digits;
    Optional<float> clickSpeed;
    float value = 0;
    float rest = 0;
    std::string text;
    Reports sent;

    float limited(float x) const
    {
        float y = std::isnan(x) || x > high ? high : x;
        if (y < low)
            y = low;
        return y;
    }

    void set(float x, bool notify)
    {
        rest = 0;
        char buffer[256];
        std::snprintf(buffer, sizeof buffer, "%.*f", digits, static_cast<double>(limited(x)));
        value = limited(std::strtof(buffer, nullptr));
        text = buffer;
        if (digits > 0)
            while (text.size() > 3 && text[text.size() - 1] == '0' && text[text.size() - 2] == '0')
                text.resize(text.size() - 1);
        if (notify)
            sent.push_back("value " + std::to_string(static_cast<double>(value)));
    }

    void setAndKeepRest(float x, bool notify)
    {
        set(x, notify);
        rest = x - value;
    }

    float amount() const { return step > 0 ? step : std::max(std::fabs(value), 1.0f) * 0.004f; }

    void makeSteps(bool up, float times)
    {
        float unit = 1;
        for (int i = 0; i < digits; ++i)
            unit *= 10;
        unit = 1 / unit;
        const float by = clickSpeed ? *clickSpeed : amount();
        if (by >= unit)
            setAndKeepRest(limited((up ? by : -by) * times + value + rest), true);
        else
            set(value + (up ? unit : -unit) * times, true);
    }

    void dragBy(int pixels, int scale)
    {
        setAndKeepRest(
            limited(value - static_cast<float>(pixels) * amount() / static_cast<float>(scale) + rest), true);
    }

    void type(const std::string& typed)
    {
        std::string plain = typed;
        std::replace(plain.begin(), plain.end(), ',', '.');
        char* end = nullptr;
        const float number = std::strtof(plain.c_str(), &end);
        if (end == plain.c_str()) {
            setAndKeepRest(limited(value + rest), false);
        } else if (number == value) {
            set(value, false);
        } else {
            sent.emplace_back("start");
            set(number, true);
            sent.emplace_back("end");
        }
    }
};

class SpinnerModelTest : public SpinnerFixture
{
protected:
    std::mt19937 random{20260101};

    int upTo(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(random); }

    float number()
    {
        const float sizes[] = {1, 1, 10, 255, 1000, 0.01f, 1e6f};
        return std::uniform_real_distribution<float>(-1, 1)(random) * sizes[upTo(7)];
    }

    Model makeCase()
    {
        const float a = number();
        const float b = number();
        const float steps[] = {0, 1, 0.5f, 0.1f, 0.015f, 3, -1, 0.0001f};
        Model model{std::min(a, b), std::max(a, b), number(), steps[upTo(8)], upTo(6), {}, 0, 0, {}, {}};
        model.set(model.standard, false);
        return model;
    }

    void dragBoth(Model& model, bool up)
    {
        wxWindow* const arrow = up ? spinner->upArrow() : spinner->downArrow();
        sendMouse(arrow, wxEVT_MOTION, 0);
        sendMouse(arrow, wxEVT_MOTION, 4);
        sendMouse(arrow, wxEVT_LEFT_DOWN, 4);
        model.sent.emplace_back("start");
        const float before = model.value;
        int y = 4;
        for (int i = upTo(4) + 1; i > 0; --i) {
            const int to = upTo(80) - 40;
            if (to == y)
                continue;
            sendMouse(arrow, wxEVT_MOTION, to);
            model.dragBy(to - y, Wx::scaleByDpi(1));
            y = to;
        }
        const bool dragged = model.sent.back() != "start";
        const bool right = upTo(4) == 0;
        sendMouse(arrow, right ? wxEVT_RIGHT_UP : wxEVT_LEFT_UP, y);
        if (right)
            model.set(dragged ? before : model.standard, true);
        else if (!dragged)
            model.makeSteps(up, 1);
        model.sent.emplace_back("end");
    }

    void holdBoth(Model& model, bool up)
    {
        wxWindow* const arrow = up ? spinner->upArrow() : spinner->downArrow();
        sendMouse(arrow, wxEVT_LEFT_DOWN);
        model.sent.emplace_back("start");
        for (int i = upTo(4); i > 0; --i) {
            tick();
            model.makeSteps(up, 1);
        }
        sendMouse(arrow, wxEVT_LEFT_UP);
        model.makeSteps(up, 1);
        model.sent.emplace_back("end");
    }

    void typeBoth(Model& model)
    {
        const char* const texts[] = {"", "x", "1", "2,5", "-3.25", "1e3", "12abc", "  7", "0,125"};
        const std::string typed = upTo(3) == 0 ? model.text : texts[upTo(9)];
        typeText(typed);
        pressEnter();
        model.type(typed);
    }

    void pressKeyBoth(Model& model, bool up)
    {
        const bool page = upTo(2) == 0;
        wxKeyEvent event(wxEVT_KEY_DOWN);
        event.m_keyCode = page ? (up ? WXK_PAGEUP : WXK_PAGEDOWN) : (up ? WXK_UP : WXK_DOWN);
        spinner->textField()->GetEventHandler()->ProcessEvent(event);
        model.sent.emplace_back("start");
        model.makeSteps(up, page ? 10.0f : 1.0f);
        model.sent.emplace_back("end");
    }

    void overrideBoth(Model& model)
    {
        const float speeds[] = {5, 0.05f, 0.3f, 0, -2};
        model.clickSpeed = upTo(3) == 0 ? Optional<float>() : Optional<float>(speeds[upTo(5)]);
        spinner->setClickSpeedOverride([speed = model.clickSpeed] { return speed; });
    }

    void resetBoth(Model& model)
    {
        sendMouse(spinner->downArrow(), wxEVT_RIGHT_UP);
        model.set(model.standard, true);
    }

    // Making a window takes much longer than configuring one.
    void startBoth(const Model& model, bool anew)
    {
        if (anew && spinner)
            spinner->Destroy();
        if (anew || !spinner)
            make(model.low, model.high, model.standard, model.digits, model.step);
        spinner->configure(model.low, model.high, model.standard, model.digits, model.step, false);
        spinner->setClickSpeedOverride({});
        spinner->setValue(model.standard, false);
        takeReports();
    }

    void configureBoth(Model& model)
    {
        const Model other = makeCase();
        model.low = other.low;
        model.high = other.high;
        model.standard = other.standard;
        model.digits = other.digits;
        model.setAndKeepRest(model.limited(model.value + model.rest), true);
        model.step = other.step;
        spinner->configure(model.low, model.high, model.standard, model.digits, model.step, true);
    }

    void actOnBoth(Model& model)
    {
        const bool coin = upTo(2) == 0;
        switch (upTo(9)) {
        case 0: {
            const float value = number();
            spinner->setValue(value, coin);
            model.set(value, coin);
            break;
        }
        case 1:
            model.digits = upTo(6);
            spinner->setPrecision(model.digits, coin);
            model.setAndKeepRest(model.limited(model.value + model.rest), coin);
            break;
        case 2:
            dragBoth(model, coin);
            break;
        case 3:
            typeBoth(model);
            break;
        case 4:
            configureBoth(model);
            break;
        case 5:
            pressKeyBoth(model, coin);
            break;
        case 6:
            overrideBoth(model);
            break;
        case 7:
            resetBoth(model);
            break;
        default:
            holdBoth(model, coin);
        }
    }
};

} // namespace

TEST_F(SpinnerModelTest, generatedCases_agreeInValueTextAndEvents)
{
    for (int number = 0; number < Tests::affordableRounds(CASES); ++number) {
        Model model = makeCase();
        startBoth(model, number % 20 == 0);
        for (int action = 0; action < ACTIONS; ++action) {
            actOnBoth(model);
            ASSERT_EQ(spinner->value(), model.value) << "case " << number << ", action " << action;
            ASSERT_EQ(text(), model.text) << "case " << number << ", action " << action;
            ASSERT_EQ(takeReports(), std::exchange(model.sent, {}))
                << "case " << number << ", action " << action;
        }
    }
}
