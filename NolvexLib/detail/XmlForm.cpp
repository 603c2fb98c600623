// SPDX-License-Identifier: MIT
#include "NolvexLib/detail/XmlForm.h"

#include "NolvexLib/detail/XmlCharacters.h"

#include <algorithm>
#include <utility>

namespace Nolvex::Detail {

namespace {

constexpr char BAD_DECLARATION[] = "The declaration is malformed";
constexpr char ROOT_TEXT[] = "The root element must not hold text";
constexpr char MIXED_CONTENT[] = "An element may hold text or elements, not both";

bool isUtf8EncodingName(std::string_view name)
{
    constexpr std::string_view EXPECTED = "utf-8";
    return std::equal(name.begin(), name.end(), EXPECTED.begin(), EXPECTED.end(),
                      [](char a, char b) { return a == b || (a >= 'A' && a <= 'Z' && a - 'A' + 'a' == b); });
}

// Moves to the next attribute if this attribute has the given name. Returns the value of the attribute that
// was passed, or the default.
std::string_view takeSetting(pugi::xml_attribute& attribute, std::string_view name,
                             std::string_view defaultValue)
{
    if (attribute.name() != name)
        return defaultValue;
    return std::exchange(attribute, attribute.next_attribute()).value();
}

// The text holds one >, its last byte. pugixml reads a declaration as it reads an element, and an element
// cannot end before that byte.
void checkDeclaration(std::string_view text)
{
    pugi::xml_document document;
    const bool isParsed = document.load_buffer(
        text.data(), text.size(), pugi::parse_declaration | pugi::parse_fragment, pugi::encoding_utf8);
    if (!isParsed)
        throw XmlFlaw{BAD_DECLARATION, 0};
    pugi::xml_attribute attribute = document.first_child().first_attribute();
    if (takeSetting(attribute, "version", {}) != "1.0")
        throw XmlFlaw{"The declaration must give the version 1.0", 0};
    if (!isUtf8EncodingName(takeSetting(attribute, "encoding", "utf-8")))
        throw XmlFlaw{"The declaration must give the encoding UTF-8", 0};
    const std::string_view standalone = takeSetting(attribute, "standalone", "no");
    if (attribute || (standalone != "yes" && standalone != "no"))
        throw XmlFlaw{BAD_DECLARATION, 0};
}

// Returns the length of the declaration, or 0 if the text does not begin with a declaration.
std::size_t takeDeclaration(std::string_view text)
{
    constexpr std::string_view START = "<?xml";
    if (!text.starts_with(START) || text.size() == START.size() || !isXmlWhite(text[START.size()]))
        return 0;
    const std::size_t end = text.find('>');
    if (end == std::string_view::npos || text[end - 1] != '?')
        throw XmlFlaw{BAD_DECLARATION, std::min(end, text.size())};
    checkDeclaration(text.substr(0, end + 1));
    return end + 1;
}

// Lets pugixml parse a text whose characters and tags have been checked, and then walks over the tree to
// check where elements and texts stand. Throws an XmlFlaw.
class FormReader final : public pugi::xml_tree_walker
{
public:
    // The declaration has been checked and ends at `start`.
    FormReader(std::string_view text, std::size_t start, pugi::xml_document& document)
        : m_text(text), m_start(start), m_document(document)
    {}

    void read()
    {
        const std::size_t first = m_text.find_first_not_of(XML_WHITE_SPACE, m_start);
        if (first == std::string_view::npos)
            throw XmlFlaw{"There is no root element", m_text.size()};
        if (m_text[first] != '<')
            throw XmlFlaw{"No text may stand before the root element", first};
        parse();
        checkRoot(m_document.first_child());
    }

    // Each question to pugixml costs a call into another library, so that the walk asks only for the level
    // unless the node is the first child of the node before it.
    bool for_each(pugi::xml_node& node) override
    {
        const int level = depth();
        if (level > m_lastLevel) {
            if (*m_last.child_value() != '\0')
                refuseText(m_last, node, level);
            if (level == MAX_XML_LEVELS - 1)
                throw XmlFlaw{"The elements are nested too deeply", positionOf(node)};
        }
        m_last = node;
        m_lastLevel = level;
        return true;
    }

private:
    void parse()
    {
        // Line ends are not changed, and white space is kept where an element holds nothing else. Elements
        // and texts behind the root become nodes too, so that the check of the root finds them.
        constexpr unsigned int OPTIONS = pugi::parse_escapes | pugi::parse_ws_pcdata_single |
                                         pugi::parse_embed_pcdata | pugi::parse_fragment;
        const auto result = m_document.load_buffer(m_text.data() + m_start, m_text.size() - m_start, OPTIONS,
                                                   pugi::encoding_utf8);
        if (!result)
            refuseParsed(result.status, m_start + static_cast<std::size_t>(result.offset));
    }

    [[noreturn]] void refuseParsed(pugi::xml_parse_status status, std::size_t byte) const
    {
        const bool isMismatch = status == pugi::status_end_element_mismatch;
        // If a text ends too early, pugixml reports the position of the last byte.
        if (byte + 1 >= m_text.size() && (isMismatch || m_text.back() != '>'))
            byte = m_text.size();
        if (status == pugi::status_out_of_memory)
            throw XmlFlaw{"There is not enough memory", byte};
        if (isMismatch && byte == m_text.size())
            throw XmlFlaw{"The text ends inside an element", byte};
        if (isMismatch)
            throw XmlFlaw{"The end tag does not match the start tag", startOfMarkup(byte)};
        if (status == pugi::status_bad_start_element)
            throw XmlFlaw{BAD_XML_NAME, byte};
        if (status == pugi::status_bad_attribute)
            throw XmlFlaw{XML_ATTRIBUTE, byte};
        if (status == pugi::status_bad_end_element)
            throw XmlFlaw{"The end tag is malformed", byte};
        refuseXmlMarkup(m_text, std::min(m_text.rfind('<', byte), byte));
    }

    void checkRoot(pugi::xml_node root)
    {
        if (root.name() != std::string_view(XML_ROOT_NAME))
            throw XmlFlaw{"The root element must be named root", positionOf(root)};
        m_last = root;
        root.traverse(*this);
        if (const pugi::xml_node next = root.next_sibling())
            throw XmlFlaw{"Nothing may follow the root element", positionOf(next)};
        const std::string_view text = root.value();
        if (text.find_first_not_of(XML_WHITE_SPACE) != std::string_view::npos)
            throw XmlFlaw{ROOT_TEXT, m_text.find('>', positionOf(root)) + 1};
        if (!text.empty()) // White space in the root has no meaning.
            root.text().set("");
    }

    [[noreturn]] void refuseText(pugi::xml_node parent, pugi::xml_node first, int level) const
    {
        if (*parent.value() != '\0')
            throw XmlFlaw{MIXED_CONTENT, positionOf(first)};
        const auto isText = [](pugi::xml_node child) { return child.type() == pugi::node_pcdata; };
        throw XmlFlaw{level == 0 ? ROOT_TEXT : MIXED_CONTENT, positionOf(parent.find_child(isText))};
    }

    std::size_t positionOf(pugi::xml_node node) const
    {
        const std::size_t byte = m_start + static_cast<std::size_t>(node.offset_debug());
        return node.type() == pugi::node_pcdata ? byte : startOfMarkup(byte);
    }

    std::size_t startOfMarkup(std::size_t byte) const { return m_text.rfind('<', byte - 1); }

    std::string_view m_text;
    std::size_t m_start;
    pugi::xml_document& m_document;
    pugi::xml_node m_last;
    int m_lastLevel = -1; // 0 is the level of the root's children
};

} // namespace

Optional<String> readXmlForm(std::string_view bytes, pugi::xml_document& document)
{
    try {
        const std::size_t start = takeDeclaration(bytes);
        checkXmlCharacters(bytes, start);
        FormReader(bytes, start, document).read();
        return {};
    } catch (const XmlFlaw& flaw) {
        return describeXmlFlaw(flaw.what, flaw.byte);
    }
}

String describeXmlFlaw(std::string_view what, std::size_t byte)
{
    return String::fromAscii(what) + L" (byte " + String(std::to_wstring(byte)) + L").";
}

} // namespace Nolvex::Detail
