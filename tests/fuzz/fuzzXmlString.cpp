// SPDX-License-Identifier: MIT
#include "Fuzz.h"

#include "NolvexLib/XmlString.h"

#include <string>

using Nolvex::String;
using Nolvex::XmlString;
using Nolvex::Fuzz::require;

namespace {

void checkRefusal(const String& error)
{
    require(error.find(L" (byte ") != String::NPOS);
}

void checkRoundTrip(const XmlString& tree)
{
    const std::string written = tree.toUtf8();
    const auto back = XmlString::fromUtf8(written);
    require(back.hasValue() && *back == tree && back->toUtf8() == written);
    const auto wideBack = XmlString::fromString(tree.toString());
    require(wideBack.hasValue() && *wideBack == tree);
}

void checkCopies(const XmlString& tree)
{
    XmlString doubled = tree;
    require(doubled == tree);
    doubled.addTree(doubled);
    require(doubled.childCount() == 2 * tree.childCount());
    checkRoundTrip(doubled);
}

// Puts any bytes into a tree as a text.
void checkText(std::string_view bytes)
{
    XmlString tree;
    tree.addChild(L"text", String::fromUtf8(bytes));
    checkRoundTrip(tree);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes = Nolvex::Fuzz::asText(data, size);
    const auto tree = XmlString::fromUtf8(bytes);
    if (tree) {
        checkRoundTrip(*tree);
        checkCopies(*tree);
    } else {
        checkRefusal(tree.error());
    }
    checkText(bytes);
    return 0;
}
