// SPDX-License-Identifier: MIT
// What XmlString reads is compared with what another reader makes of the same documents.
#include "NolvexLib/XmlString.h"

#include <pugixml.hpp>

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <string_view>

namespace Nolvex {

namespace {

constexpr int DOCUMENT_COUNT = 30'000;
constexpr int LEAST_ACCEPTED = 1'000;

constexpr std::array<std::string_view, 40> PIECES = {
    "<a>",  "</a>",  "<b/>",   "<b />", "<root>", "</root>", "</a >", "<c_1.x-y>", "</c_1.x-y>", "&amp;",
    "&lt;", "&gt;",  "&quot;", "&#65;", "&",      "]]>",     "]]",    "<!-- -->",  "<![CDATA[",  "<?x?>",
    " ",    "\n",    "\t",     "\r\n",  "x",      "1 > 0",   "'",     "\"",        "=",          ":",
    "\x01", "<a b>", "<a:b/>", "<",     "/",      "text",    "\x80",  "\u00E4",    "\u20AC",     "\uFFFD"};

/// A document of random pieces, which keeps to the form often enough.
std::string randomDocument(std::mt19937& random)
{
    std::string content;
    for (unsigned left = static_cast<unsigned>(random()) % 9; left > 0; --left) {
        const auto piece = std::string(PIECES[random() % PIECES.size()]);
        const bool isElement = random() % 3 == 0;
        content += isElement ? std::string("<e>").append(piece).append("</e>") : piece;
    }
    return std::string("<root>").append(content).append("</root>");
}

void addChildren(XmlString& tree, const pugi::xml_node& element)
{
    for (const pugi::xml_node child : element.children()) {
        const String key = String::fromUtf8(child.name());
        if (child.first_child().type() == pugi::node_element) {
            XmlString below;
            addChildren(below, child);
            tree.addChild(key, below);
        } else if (child.type() == pugi::node_element) {
            tree.addChild(key, String::fromUtf8(child.child_value()));
        }
    }
}

} // namespace

TEST(XmlPeerTest, acceptedDocuments_haveTheTreeThatPugixmlReads)
{
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp): each run reads the same documents
    int accepted = 0;
    for (int i = 0; i < DOCUMENT_COUNT; ++i) {
        const std::string document = randomDocument(random);
        const auto tree = XmlString::fromUtf8(document);
        if (!tree)
            continue;
        ++accepted;
        constexpr unsigned int OPTIONS = pugi::parse_escapes | pugi::parse_ws_pcdata_single;
        pugi::xml_document peer;
        ASSERT_TRUE(peer.load_buffer(document.data(), document.size(), OPTIONS, pugi::encoding_utf8))
            << document;
        XmlString expected;
        addChildren(expected, peer.child("root"));
        ASSERT_EQ(tree->toUtf8(), expected.toUtf8()) << document;
    }
    EXPECT_GE(accepted, LEAST_ACCEPTED);
}

} // namespace Nolvex
