// SPDX-License-Identifier: MIT
#include "NolvexLibWx/net/ReadDataContext.h"

#include "Connections.h"
#include "NolvexLib/StopException.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

namespace Nolvex::Wx::Legacy {
namespace {

constexpr std::byte BYTES[3] = {};

static_assert(std::has_virtual_destructor_v<ReadDataContext>);

/// Notes which hooks were called.
class NotingContext : public ReadDataContext
{
public:
    void onReceiveStart(const XmlString& header) const override
    {
        ReadDataContext::onReceiveStart(header);
        m_calls.push_back("start");
    }

    void onReceiveEnd(const XmlString& header) const override
    {
        ReadDataContext::onReceiveEnd(header);
        m_calls.push_back("end");
    }

    const std::vector<std::string>& calls() const { return m_calls; }

private:
    mutable std::vector<std::string> m_calls;
};

TEST(ReadDataContextTest, getFilePath_withoutAnOverride_isAProgrammingError)
{
    EXPECT_THROW(static_cast<void>(ReadDataContext().getFilePath(XmlString())), StopException);
}

TEST(ReadDataContextTest, otherHooks_withoutAnOverride_doNothing)
{
    const ReadDataContext context;
    EXPECT_NO_THROW(context.onReceiveStart(XmlString()));
    EXPECT_NO_THROW(context.onReceiveEnd(XmlString()));
}

TEST(ReadDataContextTest, hooks_areCalledForRawData)
{
    Tests::ConnectedPair pair;
    ASSERT_EQ(pair.client.writeRawMemory(BYTES, XmlString(), DataCompression::None, DataType::RawData),
              SocketResult::Success);
    ReceivedData received;
    const NotingContext context;
    ASSERT_EQ(pair.server.readData(received, context), SocketResult::Success);
    EXPECT_EQ(context.calls(), (std::vector<std::string>{"start", "end"}));
}

TEST(ReadDataContextTest, hooks_areNotCalledForText)
{
    Tests::ConnectedPair pair;
    ASSERT_EQ(pair.client.writeString(Tests::tree(L"Key", L"abc")), SocketResult::Success);
    ReceivedData received;
    const NotingContext context;
    ASSERT_EQ(pair.server.readData(received, context), SocketResult::Success);
    EXPECT_TRUE(context.calls().empty());
}

} // namespace
} // namespace Nolvex::Wx::Legacy
