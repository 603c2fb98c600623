// SPDX-License-Identifier: MIT
#include "NolvexLib/SimpleTextDeserializer.h"

#include "NolvexLib/SimpleTextSerializer.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace Nolvex {

namespace {

template<class T>
Optional<T> parse(StringView text)
{
    return SimpleTextDeserializer::parse<T>(text);
}

template<class T>
void expectLimitsComeBack()
{
    for (const T value : {std::numeric_limits<T>::min(), T(0), T(1), std::numeric_limits<T>::max()})
        EXPECT_EQ(parse<T>(SimpleTextSerializer::format(value)), value);
}

} // namespace

TEST(SimpleTextDeserializerTest, parse_whatTheSerializerWrote_comesBackForEveryType)
{
    expectLimitsComeBack<int>();
    expectLimitsComeBack<unsigned int>();
    expectLimitsComeBack<long>();
    expectLimitsComeBack<unsigned long>();
    expectLimitsComeBack<long long>();
    expectLimitsComeBack<unsigned long long>();
}

TEST(SimpleTextDeserializerTest, parse_oneBeyondTheLimits_givesNone)
{
    EXPECT_FALSE(parse<std::int32_t>(L"2147483648"));
    EXPECT_FALSE(parse<std::int32_t>(L"-2147483649"));
    EXPECT_FALSE(parse<std::uint32_t>(L"4294967296"));
    EXPECT_FALSE(parse<std::int64_t>(L"9223372036854775808"));
    EXPECT_FALSE(parse<std::int64_t>(L"-9223372036854775809"));
    EXPECT_FALSE(parse<std::uint64_t>(L"18446744073709551616"));
    EXPECT_FALSE(parse<std::uint64_t>(L"18446744073709551620"));
    EXPECT_FALSE(parse<std::uint64_t>(L"99999999999999999999999999"));
}

TEST(SimpleTextDeserializerTest, parse_whatIsNotDigitsOnly_givesNone)
{
    for (const wchar_t* text :
         {L"",   L"-",   L"+5", L" 5", L"5 ",    L"\t5", L"5\n", L"0x5", L"5.0",    L"5e1",    L"--5",
          L"5-", L"- 5", L"5,", L",5", L"1,000", L"a",   L"5a",  L"x=5", L"\x0665", L"\xFF15", L"\x2212"})
        EXPECT_FALSE(parse<std::int32_t>(text)) << StringView(text).toUtf8();
}

TEST(SimpleTextDeserializerTest, parse_neighboursOfTheDigits_giveNone)
{
    for (const wchar_t* text : {L"/", L":", L"1/", L"1:"}) {
        EXPECT_FALSE(parse<std::int32_t>(text));
        EXPECT_FALSE(parse<std::uint64_t>(text));
    }
}

TEST(SimpleTextDeserializerTest, parse_zeroUnitInside_givesNone)
{
    EXPECT_FALSE(parse<std::int32_t>(std::wstring(L"5\0", 2)));
    EXPECT_FALSE(parse<std::int32_t>(std::wstring(L"\0005", 2)));
}

TEST(SimpleTextDeserializerTest, parse_minusForAnUnsignedType_givesNone)
{
    EXPECT_FALSE(parse<std::uint32_t>(L"-1"));
    EXPECT_FALSE(parse<std::uint32_t>(L"-0"));
    EXPECT_FALSE(parse<std::uint64_t>(L"-1"));
}

TEST(SimpleTextDeserializerTest, parse_leadingZeros_countForNothing)
{
    EXPECT_EQ(parse<std::int32_t>(L"007"), 7);
    EXPECT_EQ(parse<std::int32_t>(L"-007"), -7);
    EXPECT_EQ(parse<std::int32_t>(L"-0"), 0);
    EXPECT_EQ(parse<std::uint32_t>(std::wstring(1000, L'0') + L"4294967295"), 4294967295U);
}

TEST(SimpleTextDeserializerTest, read_valuesInOrder_thenNone)
{
    SimpleTextDeserializer deserializer(L"5,-7,18446744073709551615", L",", VariableNames::OMIT);
    EXPECT_EQ(deserializer.read<std::int32_t>(), 5);
    EXPECT_EQ(deserializer.read<std::int64_t>(), -7);
    EXPECT_FALSE(deserializer.isAtEnd());
    EXPECT_EQ(deserializer.read<std::uint64_t>(), std::numeric_limits<std::uint64_t>::max());
    EXPECT_TRUE(deserializer.isAtEnd());
    EXPECT_FALSE(deserializer.read<std::int32_t>());
    EXPECT_FALSE(deserializer.isAtEnd());
}

TEST(SimpleTextDeserializerTest, read_afterAFailedRead_failsToo)
{
    SimpleTextDeserializer deserializer(L"1,x,3", L",", VariableNames::OMIT);
    EXPECT_EQ(deserializer.read<std::int32_t>(), 1);
    EXPECT_FALSE(deserializer.read<std::int32_t>());
    EXPECT_FALSE(deserializer.read<std::int32_t>());
    EXPECT_FALSE(deserializer.isAtEnd());
}

TEST(SimpleTextDeserializerTest, read_emptyParts_giveNone)
{
    EXPECT_FALSE(SimpleTextDeserializer(L"", L",", VariableNames::OMIT).read<std::int32_t>());
    EXPECT_FALSE(SimpleTextDeserializer(L",5", L",", VariableNames::OMIT).read<std::int32_t>());
    SimpleTextDeserializer trailing(L"5,", L",", VariableNames::OMIT);
    EXPECT_EQ(trailing.read<std::int32_t>(), 5);
    EXPECT_FALSE(trailing.isAtEnd());
    EXPECT_FALSE(trailing.read<std::int32_t>());
}

TEST(SimpleTextDeserializerTest, isAtEnd_ofAnEmptyText_isTrueAtOnce)
{
    EXPECT_TRUE(SimpleTextDeserializer(L"", L",", VariableNames::OMIT).isAtEnd());
}

TEST(SimpleTextDeserializerTest, read_separatorOfSeveralUnits_isTakenWhole)
{
    SimpleTextDeserializer deserializer(L"1; 2; 3;4", L"; ", VariableNames::OMIT);
    EXPECT_EQ(deserializer.read<std::int32_t>(), 1);
    EXPECT_EQ(deserializer.read<std::int32_t>(), 2);
    EXPECT_FALSE(deserializer.read<std::int32_t>()) << "the rest is one part: 3;4";
}

TEST(SimpleTextDeserializerTest, read_emptySeparator_takesTheWholeText)
{
    SimpleTextDeserializer deserializer(L"123", L"", VariableNames::OMIT);
    EXPECT_EQ(deserializer.read<std::int32_t>(), 123);
    EXPECT_TRUE(deserializer.isAtEnd());
}

TEST(SimpleTextDeserializerTest, read_namedValues_acceptsAnyNameUnlessOneIsGiven)
{
    SimpleTextDeserializer deserializer(L"x=1,y=2,z=3", L",", VariableNames::WRITE);
    EXPECT_EQ(deserializer.read<std::int32_t>(), 1);
    EXPECT_EQ(deserializer.read<std::int32_t>(L"y"), 2);
    EXPECT_FALSE(deserializer.read<std::int32_t>(L"a"));
    EXPECT_FALSE(deserializer.read<std::int32_t>(L"z"));
}

TEST(SimpleTextDeserializerTest, read_namedValues_refusesMalformedOnes)
{
    for (const wchar_t* text :
         {L"5", L"=5", L"x=", L"x==5", L"x 5", L"1x=5", L"x =5", L"x= 5", L"x", L"x=y=5"})
        EXPECT_FALSE(SimpleTextDeserializer(text, L",", VariableNames::WRITE).read<std::int32_t>())
            << StringView(text).toUtf8();
}

TEST(SimpleTextDeserializerTest, read_expectedNameWithoutEqualsSign_givesNone)
{
    EXPECT_FALSE(SimpleTextDeserializer(L"5", L",", VariableNames::WRITE).read<std::int32_t>(L"5"));
}

TEST(SimpleTextDeserializerTest, read_nameThatTheTextOmits_isNotLookedAt)
{
    EXPECT_EQ(SimpleTextDeserializer(L"5", L",", VariableNames::OMIT).read<std::int32_t>(L"x"), 5);
}

TEST(SimpleTextDeserializerTest, read_whatTheSerializerWrote_comesBack)
{
    for (const VariableNames names : {VariableNames::WRITE, VariableNames::OMIT}) {
        SimpleTextSerializer serializer(L"|", names);
        serializer.write(L"a", -1);
        serializer.write(L"b", 2ULL);
        SimpleTextDeserializer deserializer(serializer.text(), L"|", names);
        EXPECT_EQ(deserializer.read<int>(L"a"), -1);
        EXPECT_EQ(deserializer.read<unsigned long long>(L"b"), 2ULL);
        EXPECT_TRUE(deserializer.isAtEnd());
    }
}

} // namespace Nolvex
