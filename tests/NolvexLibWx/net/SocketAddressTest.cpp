// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/SocketAddress.h"

#include <gtest/gtest.h>

#include <utility>

namespace Nolvex::Wx::Legacy {
namespace {

TEST(SocketAddressTest, constructor_withoutHost_hasNoPort)
{
    EXPECT_EQ(SocketAddress().getPort(), 0);
    EXPECT_EQ(SocketAddress().toString(), L"0.0.0.0");
}

TEST(SocketAddressTest, constructor_withEmptyHost_isLikeTheDefault)
{
    const SocketAddress address{String(), 7};
    EXPECT_TRUE(address == SocketAddress());
    EXPECT_EQ(address.getPort(), 7);
}

TEST(SocketAddressTest, constructor_withDottedHost_keepsIt)
{
    const SocketAddress address(L"10.1.2.3", 5000);
    EXPECT_EQ(address.toString(), L"10.1.2.3");
    EXPECT_EQ(address.getPort(), 5000);
    EXPECT_EQ(SocketAddress(L"10.1.2.3").getPort(), 0);
}

TEST(SocketAddressTest, constructor_withName_resolvesIt)
{
    EXPECT_EQ(SocketAddress(L"localhost").toString(), L"127.0.0.1");
}

TEST(SocketAddressTest, constructor_withPortInTheHost_doesNotParseIt)
{
    const SocketAddress address(L"127.0.0.1:80");
    EXPECT_EQ(address.getPort(), 0);
    EXPECT_NE(address.toString(), L"127.0.0.1");
}

TEST(SocketAddressTest, constructor_withNameThatIsNone_isSilent)
{
    EXPECT_FALSE(SocketAddress(L"no such host \x00e9.invalid") == SocketAddress::localhost());
}

TEST(SocketAddressTest, hasHost_isFalseWhereNothingCanBeSentTo)
{
    EXPECT_FALSE(SocketAddress().hasHost());
    EXPECT_FALSE(SocketAddress::anyAddress(80).hasHost());
    for (const wchar_t* host : {L"", L" ", L"a..b", L"127.0.0.1:80", L"0.0.0.0", L"no-such-host.invalid"})
        EXPECT_FALSE(SocketAddress(host, 80).hasHost()) << host;
}

TEST(SocketAddressTest, hasHost_isTrueForHostsAndBroadcasts)
{
    EXPECT_TRUE(SocketAddress::localhost(80).hasHost());
    EXPECT_TRUE(SocketAddress(L"10.0.0.1").hasHost());
    EXPECT_TRUE(SocketAddress::broadcast(80).hasHost());
    EXPECT_TRUE(SocketAddress(L"255.255.255.255", 80).hasHost());
    const SocketAddress copy = SocketAddress(L"no-such-host.invalid", 80);
    EXPECT_FALSE(SocketAddress(copy).hasHost());
}

TEST(SocketAddressTest, equality_ofDifferentPorts_holds)
{
    EXPECT_TRUE(SocketAddress(L"10.0.0.1", 5000) == SocketAddress(L"10.0.0.1", 6000));
    EXPECT_FALSE(SocketAddress(L"10.0.0.1", 5000) == SocketAddress(L"10.0.0.2", 5000));
}

TEST(SocketAddressTest, broadcast_isBroadcast)
{
    EXPECT_TRUE(SocketAddress::broadcast(9999).isBroadcast());
    EXPECT_EQ(SocketAddress::broadcast(9999).toString(), L"255.255.255.255");
    EXPECT_EQ(SocketAddress::broadcast(9999).getPort(), 9999);
    EXPECT_TRUE(SocketAddress::broadcast().isBroadcast());
    EXPECT_EQ(SocketAddress::broadcast().getPort(), 0);
    EXPECT_FALSE(SocketAddress::localhost().isBroadcast());
}

TEST(SocketAddressTest, localhost_hasNoPortInItsText)
{
    EXPECT_EQ(SocketAddress::localhost(80).toString(), L"127.0.0.1");
    EXPECT_EQ(SocketAddress::localhost(80).getPort(), 80);
    EXPECT_EQ(SocketAddress::localhost().getPort(), 0);
}

TEST(SocketAddressTest, anyAddress_isTheZeroAddress)
{
    EXPECT_EQ(SocketAddress::anyAddress(81).toString(), L"0.0.0.0");
    EXPECT_EQ(SocketAddress::anyAddress(81).getPort(), 81);
}

TEST(SocketAddressTest, setPort_changesThePortAlone)
{
    SocketAddress address(L"10.0.0.1", 5);
    address.setPort(65535);
    EXPECT_EQ(address.getPort(), 65535);
    EXPECT_EQ(address.toString(), L"10.0.0.1");
}

TEST(SocketAddressTest, getHostName_ofLocalhost_isNotEmpty)
{
    EXPECT_FALSE(SocketAddress::localhost().getHostName().isEmpty());
}

TEST(SocketAddressTest, copy_isIndependent)
{
    SocketAddress original(L"10.0.0.1", 5);
    SocketAddress copy(original);
    SocketAddress assigned;
    assigned = original;
    original.setPort(6);
    EXPECT_EQ(copy.getPort(), 5);
    EXPECT_EQ(assigned.getPort(), 5);
    EXPECT_EQ(assigned.toString(), L"10.0.0.1");
}

TEST(SocketAddressTest, assignment_toItself_changesNothing)
{
    SocketAddress address(L"10.0.0.1", 5);
    const SocketAddress& same = address;
    address = same;
    EXPECT_EQ(address.toString(), L"10.0.0.1");
    EXPECT_EQ(address.getPort(), 5);
}

TEST(SocketAddressTest, movedFrom_canBeAssignedTo)
{
    SocketAddress first(L"10.0.0.1", 5);
    SocketAddress second(std::move(first));
    EXPECT_EQ(second.getPort(), 5);
    first = second; // NOLINT(bugprone-use-after-move): allowed
    EXPECT_EQ(first.getPort(), 5);
    SocketAddress third = std::move(second);
    second = SocketAddress(L"10.0.0.2", 7); // NOLINT(bugprone-use-after-move): allowed
    EXPECT_EQ(second.toString(), L"10.0.0.2");
    EXPECT_EQ(third.toString(), L"10.0.0.1");
}

TEST(SocketAddressTest, movedFrom_canBeDestroyed)
{
    SocketAddress first(L"10.0.0.1", 5);
    const SocketAddress second(std::move(first));
    EXPECT_EQ(second.getPort(), 5);
}

TEST(SocketAddressTest, isValid_ofDottedAddresses_isTrue)
{
    for (const wchar_t* text : {L"1.2.3.4", L"0.0.0.0", L"255.255.255.255", L"127.0.0.1", L"001.02.3.04"})
        EXPECT_TRUE(SocketAddress::isValid(text)) << text;
}

TEST(SocketAddressTest, isValid_ofAnythingElse_isFalse)
{
    for (const wchar_t* text : {L"", L"1.2.3", L"1.2.3.4.5", L"256.1.1.1", L"a.b.c.d", L"1.2.3.-1", L"1..2.3",
                                L"1.2.3.", L".1.2.3", L"1.2.3.4 ", L" 1.2.3.4", L"1.2.3.+4", L"1.2.3.-0",
                                L"1.2.3.4:80", L"localhost", L"1.2.3.4294967296", L"1.2.3.0x4", L"1.2.3.4\n"})
        EXPECT_FALSE(SocketAddress::isValid(text)) << text;
}

TEST(SocketAddressTest, getLocalIpAddress_isADottedAddress)
{
    EXPECT_TRUE(SocketAddress::isValid(getLocalIpAddress())) << getLocalIpAddress().toUtf8();
}

} // namespace
} // namespace Nolvex::Wx::Legacy
