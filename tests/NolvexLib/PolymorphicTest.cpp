// SPDX-License-Identifier: MIT
#include "NolvexLib/Polymorphic.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>
#include <utility>

namespace Nolvex {
namespace {

struct Value : public Polymorphic
{
    explicit Value(int v, bool* destroyed = nullptr) : value(v), isDestroyed(destroyed) {}

    Value(const Value&) = default;
    Value& operator=(const Value&) = default;

    ~Value() override
    {
        if (isDestroyed != nullptr)
            *isDestroyed = true;
    }

    int value;
    bool* isDestroyed;
};

// Copying through the base class would copy a part of the object only.
static_assert(!std::is_copy_constructible_v<Polymorphic> && !std::is_copy_assignable_v<Polymorphic>);
static_assert(!std::is_move_constructible_v<Polymorphic> && !std::is_move_assignable_v<Polymorphic>);

TEST(PolymorphicTest, destructor_throughTheBase_destroysTheDerivedObject)
{
    bool isDestroyed = false;
    std::unique_ptr<Polymorphic> object = std::make_unique<Value>(1, &isDestroyed);
    object.reset();
    EXPECT_TRUE(isDestroyed);
}

TEST(PolymorphicTest, copies_ofTheDerivedObject_areWhole)
{
    const Value original(7);
    const Value copy = original;
    Value assigned(1);
    assigned = copy;
    EXPECT_EQ(assigned.value, 7);
}

} // namespace
} // namespace Nolvex
