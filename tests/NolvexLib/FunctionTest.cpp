// SPDX-License-Identifier: MIT
#include "NolvexLib/Function.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <type_traits>

namespace Nolvex {
namespace {

static_assert(!std::is_constructible_v<Function<void()>, int>);
static_assert(!std::is_constructible_v<Function<void()>, void (*)(int)>);

int twice(int value)
{
    return 2 * value;
}

TEST(FunctionTest, constructor_withoutCallable_isEmpty)
{
    EXPECT_FALSE(Function<void()>());
    EXPECT_FALSE(Function<void()>(nullptr));
}

TEST(FunctionTest, call_ofEmptyOne_isAProgrammingError)
{
    EXPECT_THROW(Function<void()>()(), StopException);
}

TEST(FunctionTest, call_reachesFunctionsLambdasAndMembers)
{
    EXPECT_EQ(Function<int(int)>(twice)(4), 8);
    EXPECT_EQ(Function<int(int)>(&twice)(5), 10);
    EXPECT_EQ(Function<int(int)>([](int value) { return value + 1; })(4), 5);
    EXPECT_EQ(Function<std::size_t(const std::string&)>(&std::string::size)("abc"), 3u);
}

TEST(FunctionTest, constructor_fromNullPointerOrEmptyFunction_isEmpty)
{
    EXPECT_FALSE(Function<int(int)>(static_cast<int (*)(int)>(nullptr)));
    using Member = std::size_t (std::string::*)() const noexcept;
    EXPECT_FALSE(Function<std::size_t(const std::string&)>(Member(nullptr)));
    EXPECT_FALSE(Function<int(int)>(std::function<int(int)>()));
    EXPECT_FALSE(Function<long(int)>(Function<int(int)>()));
    EXPECT_EQ(Function<long(int)>(Function<int(int)>(twice))(3), 6);
}

TEST(FunctionTest, call_ofVoidFunction_dropsTheResult)
{
    int calls = 0;
    const Function<void(int)> function = [&](int value) { return calls += value; };
    function(3);
    EXPECT_EQ(calls, 3);
}

TEST(FunctionTest, copies_shareOneTarget)
{
    const Function<int()> counter = [count = 0]() mutable { return ++count; };
    Function<int()> copy;
    copy = counter;
    EXPECT_EQ(counter(), 1);
    EXPECT_EQ(copy(), 2);
}

TEST(FunctionTest, call_takesAndGivesWhatCannotBeCopied)
{
    const Function<std::unique_ptr<int>(std::unique_ptr<int>)> function =
        [held = std::make_unique<int>(1)](std::unique_ptr<int> value) {
            *value += *held;
            return value;
        };
    EXPECT_EQ(*function(std::make_unique<int>(5)), 6);
}

TEST(FunctionTest, call_byReference_changesTheArgument)
{
    const Function<int&(int&)> function = [](int& value) -> int& { return ++value; };
    int value = 1;
    EXPECT_EQ(&function(value), &value);
    EXPECT_EQ(value, 2);
}

TEST(FunctionTest, target_livesUntilTheLastCopyGoes)
{
    auto held = std::make_shared<int>(0);
    const std::weak_ptr<int> watch = held;
    Function<void()> function = [held = std::move(held)] {};
    Function<void()> copy = function;
    function = nullptr;
    EXPECT_FALSE(watch.expired());
    copy = {};
    EXPECT_TRUE(watch.expired());
}

TEST(FunctionTest, call_thatReplacesItsOwnFunction_finishes)
{
    auto held = std::make_shared<int>(0);
    const std::weak_ptr<int> watch = held;
    Function<void()> function;
    bool wasAlive = false;
    function = [&, held = std::move(held)] {
        function = nullptr;
        wasAlive = !watch.expired();
    };
    function();
    EXPECT_TRUE(wasAlive);
    EXPECT_TRUE(watch.expired());
}

} // namespace
} // namespace Nolvex
