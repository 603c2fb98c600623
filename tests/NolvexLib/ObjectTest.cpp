// SPDX-License-Identifier: MIT
#include "NolvexLib/Object.h"

#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/NoncopyableMovable.h"
#include "NolvexLib/Polymorphic.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace Nolvex {
namespace {

template<class T>
constexpr bool IS_COPYABLE = std::is_copy_constructible_v<T> || std::is_copy_assignable_v<T>;

template<class T>
constexpr bool IS_MOVABLE = std::is_move_constructible_v<T>&& std::is_move_assignable_v<T>;

struct Fixed : private Noncopyable
{};

struct Movable : private NoncopyableMovable
{};

struct Value : public Polymorphic
{
    int value = 0;
};

struct Entity : public Object
{
    explicit Entity(bool& isDestroyed) : m_destroyed(isDestroyed) {}

    ~Entity() override { m_destroyed = true; }

private:
    bool& m_destroyed;
};

static_assert(!IS_COPYABLE<Fixed> && !std::is_move_constructible_v<Fixed> &&
              !std::is_move_assignable_v<Fixed>);
static_assert(!IS_COPYABLE<Movable> && IS_MOVABLE<Movable>);
static_assert(!IS_COPYABLE<Object> && !std::is_move_constructible_v<Object>);
// These classes serve as bases only and cannot be made or destroyed on their own.
static_assert(!std::is_default_constructible_v<Noncopyable> && !std::is_destructible_v<Noncopyable>);
static_assert(!std::is_default_constructible_v<NoncopyableMovable> &&
              !std::is_destructible_v<NoncopyableMovable>);
// Copying through the base would slice the object, while copying the whole object is safe.
static_assert(!IS_COPYABLE<Polymorphic> && IS_COPYABLE<Value> && IS_MOVABLE<Value>);
static_assert(std::has_virtual_destructor_v<Polymorphic> && std::is_base_of_v<Polymorphic, Object>);

TEST(ObjectTest, destructor_throughTheRoot_reachesTheDerivedOne)
{
    bool isDestroyed = false;
    std::unique_ptr<Polymorphic> object = std::make_unique<Entity>(isDestroyed);
    object.reset();
    EXPECT_TRUE(isDestroyed);
}

} // namespace
} // namespace Nolvex
