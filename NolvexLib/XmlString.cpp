// SPDX-License-Identifier: MIT
#include "NolvexLib/XmlString.h"

#include "NolvexLib/PlainName.h"
#include "NolvexLib/StopException.h"
#include "NolvexLib/detail/XmlReader.h"
#include "NolvexLib/detail/XmlTree.h"

#include <algorithm>
#include <utility>

namespace Nolvex {

struct XmlString::Content
{
    Detail::XmlTree tree;
};

namespace {

using Detail::XmlTree;

std::string keyBytes(StringView key)
{
    if (!Detail::isPlainName(key.view()))
        Detail::throwStopException("XmlString", __LINE__);
    return key.toUtf8();
}

bool isForbiddenUnit(wchar_t unit)
{
    const bool isControl = unit < 0x20 && unit != L'\t' && unit != L'\n' && unit != L'\r';
    return isControl || unit == wchar_t(0xFFFE) || unit == wchar_t(0xFFFF);
}

std::string bytesInForm(const String& value)
{
    std::wstring text = value.wstr();
    std::replace_if(text.begin(), text.end(), isForbiddenUnit, wchar_t(0xFFFD));
    return StringView(text).toUtf8();
}

// Returns the first child of that name from `child` on, or an empty range.
XmlTree::Range findChild(const XmlTree& tree, std::string_view key, XmlTree::Range child)
{
    while (child.first < child.end && tree.name(child.first) != key)
        child = tree.nextChild(child);
    return child;
}

// The position in `bytes`, the UTF-8 form of the text, of the first unit of the text that is no character.
Optional<std::size_t> findLostByte(StringView text, std::string_view bytes)
{
    if (bytes.find("\xEF\xBF\xBD") == std::string_view::npos)
        return {};
    const String back = String::fromUtf8(bytes);
    const auto differing =
        std::mismatch(text.begin(), text.end(), back.wstr().begin(), back.wstr().end()).first;
    if (differing == text.end())
        return {};
    return text.getSubstr(0, static_cast<std::size_t>(differing - text.begin())).toUtf8().size();
}

} // namespace

XmlString::XmlString() = default;
XmlString::~XmlString() = default;
XmlString::XmlString(XmlString&& other) noexcept = default;
XmlString& XmlString::operator=(XmlString&& other) noexcept = default;

XmlString::XmlString(const XmlString& other)
{
    addTree(other);
}

XmlString& XmlString::operator=(const XmlString& other)
{
    return *this = XmlString(other);
}

Expected<XmlString, String> XmlString::fromString(StringView xml)
{
    const std::string bytes = xml.toUtf8();
    if (const auto lost = findLostByte(xml, bytes))
        return Unexpected{Detail::describeXmlFlaw("The text holds a unit that is no character", *lost)};
    return fromUtf8(bytes);
}

Expected<XmlString, String> XmlString::fromUtf8(std::string_view xml)
{
    Expected<XmlTree, String> read = Detail::readXml(xml);
    if (!read)
        return Unexpected{read.error()};
    XmlString result;
    result.m_content = std::make_unique<Content>(Content{*std::move(read)});
    return result;
}

const Detail::XmlTree& XmlString::tree() const
{
    static const XmlTree EMPTY;
    return m_content ? m_content->tree : EMPTY;
}

Detail::XmlTree& XmlString::tree()
{
    if (!m_content)
        m_content = std::make_unique<Content>();
    return m_content->tree;
}

bool XmlString::operator==(const XmlString& other) const
{
    return tree() == other.tree();
}

void XmlString::addChild(StringView key, const String& value)
{
    const std::string name = keyBytes(key);
    tree().append(name, bytesInForm(value), 1);
}

void XmlString::addChild(StringView key, const XmlString& other)
{
    const std::string name = keyBytes(key);
    if (other.tree().levelCount() + 2 > Detail::MAX_XML_LEVELS)
        Detail::throwStopException("XmlString", __LINE__);
    const XmlTree::Range all = other.tree().all();
    tree().append(name, {}, 1);
    tree().append(other.tree(), all, 2);
}

void XmlString::addTree(const XmlString& other)
{
    if (!other.isEmpty())
        tree().append(other.tree(), other.tree().all(), 1);
}

std::size_t XmlString::removeChildren(StringView key)
{
    const std::string name = key.toUtf8();
    std::size_t count = 0;
    XmlTree kept;
    const XmlTree& all = tree();
    for (XmlTree::Range child = all.firstChild(); child.first < child.end; child = all.nextChild(child)) {
        if (all.name(child.first) == name)
            ++count;
        else
            kept.append(all, child, 1);
    }
    if (count > 0)
        tree() = std::move(kept);
    return count;
}

Optional<String> XmlString::getChild(StringView key) const
{
    const XmlTree::Range child = findChild(tree(), key.toUtf8(), tree().firstChild());
    if (child.end - child.first != 1) // There is no such child, or the child has children.
        return {};
    return String::fromUtf8(tree().text(child.first));
}

Optional<XmlString> XmlString::getTree(StringView key) const
{
    const XmlTree::Range child = findChild(tree(), key.toUtf8(), tree().firstChild());
    if (child.first == child.end || !tree().text(child.first).empty())
        return {};
    XmlString result;
    if (child.end - child.first > 1)
        result.tree().append(tree(), XmlTree::below(child), 1);
    return result;
}

std::size_t XmlString::countChildren(StringView key) const
{
    const std::string name = key.toUtf8();
    std::size_t count = 0;
    for (auto child = findChild(tree(), name, tree().firstChild()); child.first < child.end;
         child = findChild(tree(), name, tree().nextChild(child)))
        ++count;
    return count;
}

std::size_t XmlString::childCount() const
{
    std::size_t count = 0;
    for (auto child = tree().firstChild(); child.first < child.end; child = tree().nextChild(child))
        ++count;
    return count;
}

bool XmlString::isEmpty() const
{
    return tree().isEmpty();
}

String XmlString::toString() const
{
    return String::fromUtf8(toUtf8());
}

std::string XmlString::toUtf8() const
{
    return tree().toUtf8();
}

} // namespace Nolvex
