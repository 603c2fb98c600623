// SPDX-License-Identifier: MIT
#include "NolvexLib/detail/XmlTree.h"

#include "NolvexLib/detail/XmlReader.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Nolvex::Detail {

namespace {

void writeText(std::string& document, std::string_view text)
{
    for (;;) {
        const std::size_t plain = std::min(text.find_first_of("&<>"), text.size());
        document.append(text.substr(0, plain));
        if (plain == text.size())
            return;
        document.append(text[plain] == '&' ? "&amp;" : text[plain] == '<' ? "&lt;" : "&gt;");
        text.remove_prefix(plain + 1);
    }
}

void writeStartTag(std::string& document, std::string_view name)
{
    document.append("<").append(name).append(">");
}

void writeEndTag(std::string& document, std::string_view name)
{
    document.append("</").append(name).append(">");
}

} // namespace

XmlTree::XmlTree(std::string storage, Array<Element> elements)
    : m_storage(std::move(storage)), m_elements(std::move(elements))
{}

bool XmlTree::operator==(const XmlTree& other) const
{
    const std::size_t count = m_elements.size();
    if (other.m_elements.size() != count)
        return false;
    for (std::size_t i = 0; i < count; ++i) {
        if (m_elements[i].level != other.m_elements[i].level || name(i) != other.name(i) ||
            text(i) != other.text(i))
            return false;
    }
    return true;
}

XmlTree::Range XmlTree::childAt(std::size_t index) const
{
    std::size_t end = std::min(index + 1, m_elements.size());
    while (end < m_elements.size() && m_elements[end].level > 1)
        ++end;
    return {index, end};
}

int XmlTree::levelCount() const
{
    int deepest = 0;
    for (const Element& element : m_elements)
        deepest = std::max(deepest, element.level);
    return deepest;
}

void XmlTree::append(std::string_view name, std::string_view text, int level)
{
    const std::size_t start = m_storage.size();
    m_storage.append(name).push_back('\0');
    const std::size_t textStart = text.empty() ? m_storage.size() - 1 : m_storage.size();
    if (!text.empty())
        m_storage.append(text).push_back('\0');
    m_elements.push_back({start, textStart, level});
}

void XmlTree::append(const XmlTree& source, const Range& range, int level)
{
    // The names and texts of the source stay where they are meanwhile, even if it is this tree.
    std::size_t size = m_storage.size();
    for (std::size_t i = range.first; i < range.end; ++i)
        size += source.name(i).size() + source.text(i).size() + 2;
    m_storage.reserve(size);
    for (std::size_t i = range.first; i < range.end; ++i) {
        const int shift = level - source.m_elements[range.first].level;
        append(source.name(i), source.text(i), source.m_elements[i].level + shift);
    }
}

std::string XmlTree::toUtf8() const
{
    std::string document;
    document.reserve(2 * m_storage.size());
    std::array<std::string_view, MAX_XML_LEVELS> open{XML_ROOT_NAME};
    int level = 0;
    writeStartTag(document, XML_ROOT_NAME);
    for (std::size_t i = 0; i < m_elements.size(); ++i) {
        for (; level >= m_elements[i].level; --level)
            writeEndTag(document, open[static_cast<std::size_t>(level)]);
        open[static_cast<std::size_t>(++level)] = name(i);
        writeStartTag(document, name(i));
        writeText(document, text(i));
    }
    for (; level >= 0; --level)
        writeEndTag(document, open[static_cast<std::size_t>(level)]);
    return document;
}

} // namespace Nolvex::Detail
