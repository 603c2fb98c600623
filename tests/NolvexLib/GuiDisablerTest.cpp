// SPDX-License-Identifier: MIT
#include "NolvexLib/GuiDisabler.h"

#include "NolvexLib/Exception.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace Nolvex {
namespace {

static_assert(!std::is_copy_constructible_v<GuiDisabler> && !std::is_move_constructible_v<GuiDisabler>);

class GuiDisablerTest : public testing::Test
{
public:
    ~GuiDisablerTest() override { GuiDisabler::setHook({}); }

protected:
    // Counts how many guards there are.
    void installCountingHook()
    {
        GuiDisabler::setHook([this]() -> std::shared_ptr<void> {
            ++m_disabled;
            return {&m_disabled, [](int* disabled) { --*disabled; }};
        });
    }

    int m_disabled = 0;
};

TEST_F(GuiDisablerTest, constructor_withoutHook_doesNothing)
{
    EXPECT_NO_THROW(GuiDisabler());
}

TEST_F(GuiDisablerTest, guard_isHeldAsLongAsTheDisablerLives)
{
    installCountingHook();
    {
        const GuiDisabler disabler;
        EXPECT_EQ(m_disabled, 1);
        {
            const GuiDisabler nested;
            EXPECT_EQ(m_disabled, 2);
        }
        EXPECT_EQ(m_disabled, 1);
    }
    EXPECT_EQ(m_disabled, 0);
}

TEST_F(GuiDisablerTest, setHook_leavesGuardsAlone)
{
    installCountingHook();
    {
        const GuiDisabler disabler;
        GuiDisabler::setHook({});
        EXPECT_EQ(m_disabled, 1);
        const GuiDisabler withoutHook;
        EXPECT_EQ(m_disabled, 1);
    }
    EXPECT_EQ(m_disabled, 0);
}

TEST_F(GuiDisablerTest, constructor_withHookThatReturnsNull_isFine)
{
    GuiDisabler::setHook([] { return std::shared_ptr<void>(); });
    EXPECT_NO_THROW(GuiDisabler());
}

TEST_F(GuiDisablerTest, constructor_withHookThatRaises_passesItOn)
{
    GuiDisabler::setHook([]() -> std::shared_ptr<void> { throw Exception("no windows"); });
    EXPECT_THROW(GuiDisabler(), Exception);
}

TEST_F(GuiDisablerTest, setHook_whileTheFormerIsDestroyed_doesNotLockUp)
{
    bool isDestroyed = false;
    std::shared_ptr<void> onDestruction(&isDestroyed, [](void* flag) {
        GuiDisabler::setHook({});
        *static_cast<bool*>(flag) = true;
    });
    GuiDisabler::setHook([held = std::move(onDestruction)] { return std::shared_ptr<void>(); });
    GuiDisabler::setHook({});
    EXPECT_TRUE(isDestroyed);
}

} // namespace
} // namespace Nolvex
