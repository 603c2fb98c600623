// SPDX-License-Identifier: MIT
#include "NolvexLib/XmlString.h"

#include "NolvexLib/PlainName.h"
#include "NolvexLib/StopException.h"
#include "NolvexLib/detail/XmlForm.h"

#include <pugixml.hpp>

#include <algorithm>
#include <iterator>
#include <new>
#include <utility>

namespace Nolvex {

// The document has one root element. Each element below it has elements, one text that is not empty, or
// nothing.
struct XmlString::Content
{
    pugi::xml_document document;

    pugi::xml_node root() const { return document.first_child(); }
};

namespace {

class Utf8Writer final : public pugi::xml_writer
{
public:
    explicit Utf8Writer(std::string& target) : m_target(target) {}

    void write(const void* data, std::size_t size) override
    {
        m_target.append(static_cast<const char*>(data), size);
    }

private:
    std::string& m_target;
};

// pugixml returns null nodes if there is not enough memory.
pugi::xml_node existing(pugi::xml_node node)
{
    if (!node)
        throw std::bad_alloc();
    return node;
}

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

// The text is the element's own value after parsing, and a child after addChild.
bool hasText(pugi::xml_node element)
{
    return *element.child_value() != '\0';
}

// The number of levels of elements below the element. It is at most Detail::MAX_XML_LEVELS, so recursion is
// no risk.
int levelsBelow(pugi::xml_node element)
{
    if (!element.first_child() || hasText(element))
        return 0;
    int deepest = 0;
    for (const pugi::xml_node child : element.children())
        deepest = std::max(deepest, levelsBelow(child));
    return deepest + 1;
}

// Ends at `last`, which was the last child before the call: target and source may be the same element.
void appendCopies(pugi::xml_node target, pugi::xml_node first, pugi::xml_node last)
{
    for (pugi::xml_node child = first; child; child = child.next_sibling()) {
        existing(target.append_copy(child));
        if (child == last)
            return;
    }
}

bool areEqual(pugi::xml_node a, pugi::xml_node b)
{
    if (hasText(a) || hasText(b))
        return std::string_view(a.child_value()) == b.child_value();
    const auto areEqualElements = [](pugi::xml_node x, pugi::xml_node y) {
        return std::string_view(x.name()) == y.name() && areEqual(x, y);
    };
    const auto left = a.children();
    const auto right = b.children();
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), areEqualElements);
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
    XmlString tree;
    tree.m_content = std::make_unique<Content>();
    if (Optional<String> refusal = Detail::readXmlForm(xml, tree.m_content->document))
        return Unexpected{*std::move(refusal)};
    return tree;
}

bool XmlString::operator==(const XmlString& other) const
{
    if (isEmpty() || other.isEmpty())
        return isEmpty() == other.isEmpty();
    return areEqual(m_content->root(), other.m_content->root());
}

void XmlString::addChild(StringView key, const String& value)
{
    const std::string name = keyBytes(key);
    const std::string text = bytesInForm(value);
    pugi::xml_node child = existing(content().root().append_child(name.c_str()));
    if (!text.empty() && !existing(child.append_child(pugi::node_pcdata)).set_value(text.c_str()))
        throw std::bad_alloc();
}

void XmlString::addChild(StringView key, const XmlString& tree)
{
    const std::string name = keyBytes(key);
    const pugi::xml_node source = tree.m_content ? tree.m_content->root() : pugi::xml_node();
    if (levelsBelow(source) + 2 > Detail::MAX_XML_LEVELS)
        Detail::throwStopException("XmlString", __LINE__);
    const pugi::xml_node first = source.first_child();
    const pugi::xml_node last = source.last_child();
    appendCopies(existing(content().root().append_child(name.c_str())), first, last);
}

void XmlString::addTree(const XmlString& other)
{
    if (!other.isEmpty()) {
        const pugi::xml_node source = other.m_content->root();
        appendCopies(content().root(), source.first_child(), source.last_child());
    }
}

std::size_t XmlString::removeChildren(StringView key)
{
    if (!m_content)
        return 0;
    pugi::xml_node root = m_content->root();
    const std::string name = key.toUtf8();
    std::size_t count = 0;
    for (pugi::xml_node next = root.child(name.c_str()); next; ++count) {
        const pugi::xml_node child = std::exchange(next, next.next_sibling(name.c_str()));
        root.remove_child(child);
    }
    return count;
}

Optional<String> XmlString::getChild(StringView key) const
{
    const pugi::xml_node child = m_content ? m_content->root().child(key.toUtf8().c_str()) : pugi::xml_node();
    if (!child || (child.first_child() && !hasText(child)))
        return {};
    return String::fromUtf8(child.child_value());
}

Optional<XmlString> XmlString::getTree(StringView key) const
{
    const pugi::xml_node child = m_content ? m_content->root().child(key.toUtf8().c_str()) : pugi::xml_node();
    if (!child || hasText(child))
        return {};
    XmlString tree;
    if (child.first_child())
        appendCopies(tree.content().root(), child.first_child(), child.last_child());
    return tree;
}

std::size_t XmlString::countChildren(StringView key) const
{
    if (!m_content)
        return 0;
    const std::string name = key.toUtf8();
    const auto children = m_content->root().children(name.c_str());
    return static_cast<std::size_t>(std::distance(children.begin(), children.end()));
}

std::size_t XmlString::childCount() const
{
    if (!m_content)
        return 0;
    const auto children = m_content->root().children();
    return static_cast<std::size_t>(std::distance(children.begin(), children.end()));
}

bool XmlString::isEmpty() const
{
    return !m_content || !m_content->root().first_child();
}

String XmlString::toString() const
{
    return String::fromUtf8(toUtf8());
}

std::string XmlString::toUtf8() const
{
    if (isEmpty())
        return "<root></root>";
    constexpr unsigned int FORM =
        pugi::format_raw | pugi::format_no_declaration | pugi::format_no_empty_element_tags;
    std::string bytes;
    Utf8Writer writer(bytes);
    m_content->root().print(writer, "", FORM, pugi::encoding_utf8);
    return bytes;
}

XmlString::Content& XmlString::content()
{
    if (!m_content) {
        auto content = std::make_unique<Content>();
        existing(content->document.append_child(Detail::XML_ROOT_NAME));
        m_content = std::move(content);
    }
    return *m_content;
}

} // namespace Nolvex
