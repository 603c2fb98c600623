// SPDX-License-Identifier: MIT
#include "NolvexLib/StopException.h"

#include "NolvexLib/Exception.h"

#include <gtest/gtest.h>

#include <exception>
#include <type_traits>
#include <utility>

namespace Nolvex {
namespace {

// Code that catches failures must not catch a programming error.
static_assert(!std::is_base_of_v<std::exception, StopException> &&
              !std::is_base_of_v<Exception, StopException>);
static_assert(!std::is_convertible_v<StopException*, std::exception*>);

TEST(StopExceptionTest, throwStopException_namesThePlace)
{
    try {
        Detail::throwStopException("widgets/StaticLine", 42);
        FAIL() << "returned";
    } catch (const StopException& exception) {
        EXPECT_EQ(exception.file(), "widgets/StaticLine");
        EXPECT_EQ(exception.line(), 42);
    }
}

TEST(StopExceptionTest, copies_nameTheSamePlace)
{
    const StopException original("Function", 7);
    StopException other("Lib", 1);
    other = original;
    EXPECT_EQ(other.file(), "Function");
    EXPECT_EQ(other.line(), 7);
    EXPECT_EQ(StopException(std::move(other)).file(), "Function");
}

} // namespace
} // namespace Nolvex
