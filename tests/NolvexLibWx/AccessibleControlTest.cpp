// SPDX-License-Identifier: MIT
#include "NolvexLibWx/AccessibleControl.h"

#include <gtest/gtest.h>

#include <type_traits>

using namespace Nolvex;
using Wx::AccessibleControl;
using Wx::AccessibleRole;
using Wx::AccessibleState;

namespace {

static_assert(std::has_virtual_destructor_v<AccessibleControl>);
static_assert(!std::is_copy_constructible_v<AccessibleControl>);

/// A control that tells only what it must.
class Label : public AccessibleControl
{
public:
    AccessibleRole role() const override { return AccessibleRole::LABEL; }

    String name() const override { return L"name"; }
};

} // namespace

TEST(AccessibleControlTest, controlThatTellsOnlyItsRoleAndName_hasNothingElse)
{
    const Label label;
    EXPECT_EQ(label.description(), String());
    EXPECT_EQ(label.states().bits(), 0u);
    EXPECT_TRUE(label.actions().empty());
    EXPECT_EQ(label.value(), Optional<Wx::AccessibleValue>());
    EXPECT_EQ(label.valueText(), String());
    EXPECT_EQ(label.itemCount(), 0);
    EXPECT_EQ(label.itemName(0), String());
    EXPECT_EQ(label.selectedItem(), Optional<int>());
}

TEST(AccessibleControlTest, requestsThatTheControlDoesNotServe_changeNothing)
{
    Label label;
    label.doAction(0);
    label.setValue(1.0);
    label.selectItem(0);
    EXPECT_EQ(label.name(), L"name");
    EXPECT_EQ(label.selectedItem(), Optional<int>());
}

TEST(AccessibleControlTest, states_areBitsOfTheirOwn)
{
    std::uint32_t all = 0;
    for (const AccessibleState state :
         {AccessibleState::CHECKABLE, AccessibleState::CHECKED, AccessibleState::MIXED,
          AccessibleState::EXPANDABLE, AccessibleState::EXPANDED, AccessibleState::HAS_POPUP,
          AccessibleState::READ_ONLY}) {
        const std::uint32_t bit = Flags<AccessibleState>(state).bits();
        EXPECT_EQ(all & bit, 0u);
        all |= bit;
    }
    EXPECT_EQ(all, 127u);
}
