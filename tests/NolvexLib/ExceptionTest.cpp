// SPDX-License-Identifier: MIT
#include "NolvexLib/Exception.h"

#include "NolvexLib/StopException.h"

#include <gtest/gtest.h>

#include <exception>
#include <type_traits>

namespace Nolvex {
namespace {

// No handler for failures may catch a programming error.
static_assert(!std::is_base_of_v<std::exception, StopException> &&
              !std::is_base_of_v<Exception, StopException>);
static_assert(!std::is_convertible_v<StopException*, std::exception*>);

TEST(ExceptionTest, what_isTheMessage)
{
    const Exception exception("The file \"\xC3\xA4\" cannot be opened.");
    EXPECT_STREQ(exception.what(), "The file \"\xC3\xA4\" cannot be opened.");
}

TEST(ExceptionTest, thrown_isCaughtAsAStandardException)
{
    try {
        throw Exception("failed");
    } catch (const std::exception& exception) {
        EXPECT_STREQ(exception.what(), "failed");
        EXPECT_NE(dynamic_cast<const Exception*>(&exception), nullptr);
    }
}

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
