// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/FileFilter.h"

#include "NolvexLib/StopException.h"

#include <gtest/gtest.h>

namespace Nolvex::Io {
namespace {

String wildcard(const Array<FileFilter>& filters)
{
    return FileFilter::getWildcardString(filters, FileFilterFormat::WILDCARD);
}

TEST(FileFilterTest, getWildcardString_ofSeveral_listsThemInOrder)
{
    EXPECT_EQ(wildcard({{L"PNG images", {L"*.png"}}, {L"JPEG images", {L"*.jpg", L"*.jpeg"}}}),
              L"PNG images (*.png)|*.png|JPEG images (*.jpg;*.jpeg)|*.jpg;*.jpeg");
}

TEST(FileFilterTest, getWildcardString_ofDescriptionThatEndsInThePatterns_doesNotRepeatThem)
{
    EXPECT_EQ(wildcard({{L"PNG images (*.png)", {L"*.png"}}}), L"PNG images (*.png)|*.png");
}

TEST(FileFilterTest, getWildcardString_ofNoFilter_isEmpty)
{
    EXPECT_EQ(wildcard({}), L"");
}

TEST(FileFilterTest, getWildcardString_withoutPattern_letsEveryFileThrough)
{
    EXPECT_EQ(wildcard({{L"All files", {}}}), L"All files (*)|*");
    EXPECT_EQ(wildcard({{L"All files", {L""}}}), L"All files (*)|*");
}

TEST(FileFilterTest, getWildcardString_withoutDescription_showsThePatterns)
{
    EXPECT_EQ(wildcard({{L"", {L"*.a", L"*.b"}}}), L"*.a;*.b|*.a;*.b");
}

TEST(FileFilterTest, getWildcardString_withVerticalBars_keepsTheForm)
{
    EXPECT_EQ(wildcard({{L"PNG|JPEG|", {L"a|b.*"}}, {L"x", {L"*.x"}}}),
              L"PNG/JPEG/ (a?b.*)|a?b.*|x (*.x)|*.x");
}

TEST(FileFilterTest, getWildcardString_inFormatThatIsNone_isAProgrammingError)
{
    EXPECT_THROW(FileFilter::getWildcardString({}, static_cast<FileFilterFormat>(1)), StopException);
}

} // namespace
} // namespace Nolvex::Io
