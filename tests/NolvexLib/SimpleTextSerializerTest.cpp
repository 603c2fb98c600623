// SPDX-License-Identifier: MIT
#include "NolvexLib/SimpleTextSerializer.h"

#include "NolvexLib/StopException.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdint>
#include <limits>
#include <locale>

namespace Nolvex {

namespace {

// This locale groups the digits, so that code that uses the locale gives a different text.
class GroupingDigits final : public std::numpunct<wchar_t>
{
protected:
    wchar_t do_thousands_sep() const override { return L'.'; }

    std::string do_grouping() const override { return "\3"; }
};

class GlobalLocale
{
public:
    explicit GlobalLocale(const std::locale& locale) : m_previous(std::locale::global(locale)) {}

    ~GlobalLocale() { std::locale::global(m_previous); }

    GlobalLocale(const GlobalLocale&) = delete;
    GlobalLocale& operator=(const GlobalLocale&) = delete;

private:
    std::locale m_previous;
};

template<class T>
String formatMin()
{
    return SimpleTextSerializer::format(std::numeric_limits<T>::min());
}

template<class T>
String formatMax()
{
    return SimpleTextSerializer::format(std::numeric_limits<T>::max());
}

} // namespace

TEST(SimpleTextSerializerTest, write_oneValueWithoutName_isItsDigitsAlone)
{
    SimpleTextSerializer serializer(L",", VariableNames::OMIT);
    serializer.write(std::int32_t(5));
    EXPECT_EQ(serializer.text(), L"5");
}

TEST(SimpleTextSerializerTest, write_severalValues_joinsThemByTheSeparator)
{
    SimpleTextSerializer serializer(L"; ", VariableNames::OMIT);
    serializer.write(-1);
    serializer.write(0U);
    serializer.write(L"ignored", 20L);
    EXPECT_EQ(serializer.text(), L"-1; 0; 20");
}

TEST(SimpleTextSerializerTest, write_withNames_writesNameAndValue)
{
    SimpleTextSerializer serializer(L",", VariableNames::WRITE);
    serializer.write(L"x", 1);
    serializer.write(L"y_2.b-C", -2);
    EXPECT_EQ(serializer.text(), L"x=1,y_2.b-C=-2");
}

TEST(SimpleTextSerializerTest, text_ofNoValues_isEmpty)
{
    EXPECT_TRUE(SimpleTextSerializer(L",", VariableNames::WRITE).text().isEmpty());
}

TEST(SimpleTextSerializerTest, write_nameThatIsNone_isAProgrammingError)
{
    SimpleTextSerializer serializer(L",", VariableNames::WRITE);
    serializer.write(L"a", 1);
    for (const wchar_t* name : {L"", L"1a", L"a=", L"a b", L"-a", L"\xE4"})
        EXPECT_THROW(serializer.write(name, 1), StopException);
    EXPECT_THROW(serializer.write(1), StopException);
    EXPECT_EQ(serializer.text(), L"a=1");
}

TEST(SimpleTextSerializerTest, format_limitsOfEveryType_areExact)
{
    EXPECT_EQ(formatMin<std::int32_t>(), L"-2147483648");
    EXPECT_EQ(formatMax<std::int32_t>(), L"2147483647");
    EXPECT_EQ(formatMin<std::uint32_t>(), L"0");
    EXPECT_EQ(formatMax<std::uint32_t>(), L"4294967295");
    EXPECT_EQ(formatMin<std::int64_t>(), L"-9223372036854775808");
    EXPECT_EQ(formatMax<std::int64_t>(), L"9223372036854775807");
    EXPECT_EQ(formatMax<std::uint64_t>(), L"18446744073709551615");
    EXPECT_EQ(formatMin<long long>(), L"-9223372036854775808");
    EXPECT_EQ(formatMax<unsigned long long>(), L"18446744073709551615");
}

TEST(SimpleTextSerializerTest, format_underALocaleThatGroupsDigits_doesNotGroup)
{
    const GlobalLocale locale(std::locale(std::locale::classic(), new GroupingDigits));
    EXPECT_EQ(SimpleTextSerializer::format(-1234567), L"-1234567");
}

} // namespace Nolvex
