// SPDX-License-Identifier: MIT
#include "NolvexLib/Array.h"
#include "NolvexLib/ArrayView.h"
#include "NolvexLib/AutoPtr.h"
#include "NolvexLib/Mutex.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/RecursiveMutex.h"
#include "NolvexLib/Stack.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <type_traits>

namespace Nolvex {
namespace {

static_assert(!std::is_copy_constructible_v<AutoPtr<int>> && std::is_move_constructible_v<AutoPtr<int>>);
static_assert(!std::is_copy_constructible_v<Mutex> && !std::is_copy_constructible_v<RecursiveMutex>);

// Counts how often it was destroyed.
struct CountingDeleter
{
    int* count;

    void operator()(int*) const { ++*count; }
};

TEST(AliasesTest, arrayView_seesTheArray)
{
    Array<int> array = {1, 2, 3};
    const ArrayView<int> view = array;
    view[1] = 5;
    EXPECT_EQ(array, (Array<int>{1, 5, 3}));
    EXPECT_EQ(view.size(), 3u);
}

TEST(AliasesTest, stack_isUsedFromItsEndAndReadFromItsFront)
{
    Stack<int> stack;
    stack.push_back(1);
    stack.push_back(2);
    EXPECT_EQ(stack.back(), 2);
    EXPECT_EQ(stack.front(), 1);
    stack.pop_back();
    EXPECT_EQ(stack.back(), 1);
}

TEST(AliasesTest, optional_isNoneUntilGivenAValue)
{
    Optional<int> value;
    EXPECT_FALSE(value);
    value = 0;
    EXPECT_TRUE(value);
}

TEST(AliasesTest, autoPtr_destroysWithTheDeleterOnce)
{
    int destroyed = 0;
    int object = 0;
    {
        AutoPtr<int, CountingDeleter> owner(&object, CountingDeleter{&destroyed});
        const AutoPtr<int, CountingDeleter> next = std::move(owner);
        EXPECT_EQ(destroyed, 0);
    }
    EXPECT_EQ(destroyed, 1);
}

// Returns whether another thread gets the lock now.
template<class AnyMutex>
bool isFreeElsewhere(AnyMutex& mutex)
{
    bool isFree = false;
    std::thread([&] {
        isFree = mutex.try_lock();
        if (isFree)
            mutex.unlock();
    }).join();
    return isFree;
}

TEST(AliasesTest, mutex_keepsOtherThreadsOutWhileItIsLocked)
{
    Mutex mutex;
    mutex.lock();
    EXPECT_FALSE(isFreeElsewhere(mutex));
    mutex.unlock();
    EXPECT_TRUE(isFreeElsewhere(mutex));
}

TEST(AliasesTest, recursiveMutex_isFreeAfterAsManyUnlocksAsLocks)
{
    RecursiveMutex mutex;
    mutex.lock();
    mutex.lock();
    mutex.unlock();
    EXPECT_FALSE(isFreeElsewhere(mutex));
    mutex.unlock();
    EXPECT_TRUE(isFreeElsewhere(mutex));
}

} // namespace
} // namespace Nolvex
