// SPDX-License-Identifier: MIT
#include "NolvexLib/Exception.h"

#include <gtest/gtest.h>

#include <exception>

namespace Nolvex {
namespace {

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

} // namespace
} // namespace Nolvex
