// SPDX-License-Identifier: MIT
#include "NolvexLib/detail/XmlForm.h"

#include "NolvexLib/PlainName.h"

#include <utf8.h>

#include <algorithm>
#include <array>
#include <utility>

namespace Nolvex::Detail {

namespace {

constexpr std::string_view WHITE_SPACE = " \t\r\n";

constexpr std::array<std::string_view, 5> ENTITIES = {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;"};

struct Markup
{
    std::string_view start;
    const char* refusal;
};

// What begins with < and is no tag of the form. The longer starts come first.
constexpr std::array<Markup, 5> FOREIGN_MARKUP = {{
    {"<!--", "A comment is not allowed"},
    {"<![CDATA[", "A CDATA section is not allowed"},
    {"<!", "A document type definition is not allowed"},
    {"<?", "A processing instruction or a second declaration is not allowed"},
    {"", "A name must begin with an English letter or an underscore"},
}};

constexpr char BAD_DECLARATION[] = "The declaration is malformed";
constexpr char BAD_NAME[] = "The name is invalid or its tag is not closed";
constexpr char ATTRIBUTE[] = "An attribute is not allowed";
constexpr char ROOT_TEXT[] = "The root element must not hold text";
constexpr char MIXED_CONTENT[] = "An element may hold text or elements, not both";
constexpr char UNCARRIABLE[] = "The text holds a character XML cannot carry";

struct Flaw
{
    const char* what;
    std::size_t byte;
};

bool isWhite(char byte)
{
    return WHITE_SPACE.find(byte) != std::string_view::npos;
}

bool isBeyondAscii(char byte)
{
    return static_cast<unsigned char>(byte) >= 0x80;
}

// True for the bytes that may be a flaw wherever they stand. White space below U+0020 is among them.
constexpr bool isNotable(char byte)
{
    return (static_cast<signed char>(byte) < 0x20) | (byte == '&') | (byte == ']'); // negative beyond ASCII
}

// The position of the next notable byte, or the length of the text.
std::size_t findNotable(std::string_view text, std::size_t at)
{
    // Compilers vectorise the inner loop, since it has no branches.
    constexpr std::size_t BLOCK = 32;
    for (; text.size() - at >= BLOCK; at += BLOCK) {
        signed char isFound = 0;
        for (std::size_t i = 0; i < BLOCK; ++i)
            isFound |= static_cast<signed char>(isNotable(text[at + i]));
        if (isFound != 0)
            break;
    }
    while (at < text.size() && !isNotable(text[at]))
        ++at;
    return at;
}

// The bytes beyond ASCII at the start of the text hold whole sequences of UTF-8 only, since no sequence has
// bytes of ASCII. Returns how many there are.
std::size_t takeBeyondAscii(std::string_view text, std::size_t position)
{
    const auto end = std::find_if_not(text.begin(), text.end(), isBeyondAscii);
    const auto broken = utf8::find_invalid(text.begin(), end);
    if (broken != end)
        throw Flaw{"The text is no valid UTF-8", position + static_cast<std::size_t>(broken - text.begin())};
    const std::string_view run = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    const std::size_t noncharacter = std::min(run.find("\xEF\xBF\xBE"), run.find("\xEF\xBF\xBF"));
    if (noncharacter != std::string_view::npos)
        throw Flaw{UNCARRIABLE, position + noncharacter};
    return run.size();
}

const char* flawOfAscii(std::string_view rest)
{
    const auto isNext = [&](std::string_view entity) { return rest.starts_with(entity); };
    const char byte = rest.front();
    if (byte == '&' && std::none_of(ENTITIES.begin(), ENTITIES.end(), isNext))
        return "Only the five predefined entities are allowed";
    if (isNext("]]>"))
        return "The characters ]]> are not allowed, nor is a CDATA section";
    return byte == '&' || byte == ']' || isWhite(byte) ? nullptr : UNCARRIABLE;
}

// Throws the first flaw that is one wherever it stands, be it in markup or in a text.
void checkCharacters(std::string_view text)
{
    for (std::size_t at = 0; (at = findNotable(text, at)) < text.size();) {
        const std::string_view rest = text.substr(at);
        if (isBeyondAscii(text[at]))
            at += takeBeyondAscii(rest, at);
        else if (const char* what = flawOfAscii(rest))
            throw Flaw{what, at};
        else
            ++at;
    }
}

bool isUtf8EncodingName(std::string_view name)
{
    constexpr std::string_view EXPECTED = "utf-8";
    return std::equal(name.begin(), name.end(), EXPECTED.begin(), EXPECTED.end(),
                      [](char a, char b) { return a == b || (a >= 'A' && a <= 'Z' && a - 'A' + 'a' == b); });
}

// Takes the attribute if it has that name. Returns its value, or the default.
std::string_view takeSetting(pugi::xml_attribute& attribute, std::string_view name,
                             std::string_view defaultValue)
{
    if (attribute.name() != name)
        return defaultValue;
    return std::exchange(attribute, attribute.next_attribute()).value();
}

// pugixml reads the declaration as an element, which cannot end before the only > of the text.
void checkDeclaration(std::string_view text)
{
    pugi::xml_document document;
    const bool isParsed = document.load_buffer(
        text.data(), text.size(), pugi::parse_declaration | pugi::parse_fragment, pugi::encoding_utf8);
    if (!isParsed)
        throw Flaw{BAD_DECLARATION, 0};
    pugi::xml_attribute attribute = document.first_child().first_attribute();
    if (takeSetting(attribute, "version", {}) != "1.0")
        throw Flaw{"The declaration must give the version 1.0", 0};
    if (!isUtf8EncodingName(takeSetting(attribute, "encoding", "utf-8")))
        throw Flaw{"The declaration must give the encoding UTF-8", 0};
    const std::string_view standalone = takeSetting(attribute, "standalone", "no");
    if (attribute || (standalone != "yes" && standalone != "no"))
        throw Flaw{BAD_DECLARATION, 0};
}

// Returns the length of the declaration, which is 0 if the text begins with something else.
std::size_t takeDeclaration(std::string_view text)
{
    constexpr std::string_view START = "<?xml";
    if (!text.starts_with(START) || text.size() == START.size() || !isWhite(text[START.size()]))
        return 0;
    const std::size_t end = text.find('>');
    if (end == std::string_view::npos || text[end - 1] != '?')
        throw Flaw{BAD_DECLARATION, std::min(end, text.size())};
    checkDeclaration(text.substr(0, end + 1));
    return end + 1;
}

// Has pugixml parse one text and checks the nodes, in the order of the text, for what pugixml accepts and the
// form does not. Throws a Flaw.
class FormReader final : public pugi::xml_tree_walker
{
public:
    // The declaration ends at `start` and has been checked.
    FormReader(std::string_view text, std::size_t start, pugi::xml_document& document)
        : m_text(text), m_start(start), m_document(document)
    {}

    void read()
    {
        const std::size_t first = m_text.find_first_not_of(WHITE_SPACE, m_start);
        if (first == std::string_view::npos)
            throw Flaw{"There is no root element", m_text.size()};
        if (m_text[first] != '<')
            throw Flaw{"No text may stand before the root element", first};
        parse();
        m_document.traverse(*this);
        finishRoot(m_document.first_child());
    }

    bool for_each(pugi::xml_node& node) override
    {
        const int level = depth();
        const char* name = node.name();
        if (*name == '\0')
            refuse(node);
        if (level == 0)
            checkRoot(node);
        if (level > m_lastLevel && *m_last.value() != '\0')
            throw Flaw{MIXED_CONTENT, positionOf(node)};
        if (level == MAX_XML_LEVELS)
            throw Flaw{"The elements are nested too deeply", positionOf(node)};
        checkTag(node, m_start + static_cast<std::size_t>(name - m_parsed));
        m_last = node;
        m_lastLevel = level;
        return true;
    }

private:
    void parse()
    {
        // Line ends stay as they are, and white space is kept where an element holds nothing else. What the
        // form forbids becomes nodes, which the check finds.
        constexpr unsigned int OPTIONS = pugi::parse_escapes | pugi::parse_ws_pcdata_single |
                                         pugi::parse_embed_pcdata | pugi::parse_fragment |
                                         pugi::parse_declaration | pugi::parse_pi | pugi::parse_comments |
                                         pugi::parse_cdata | pugi::parse_doctype;
        const auto result = m_document.load_buffer(m_text.data() + m_start, m_text.size() - m_start, OPTIONS,
                                                   pugi::encoding_utf8);
        if (!result)
            refuseParsed(result.status, m_start + static_cast<std::size_t>(result.offset));
    }

    [[noreturn]] void refuseParsed(pugi::xml_parse_status status, std::size_t byte) const
    {
        const bool isMismatch = status == pugi::status_end_element_mismatch;
        // pugixml reports a text that ends too early at its last byte.
        if (byte + 1 >= m_text.size() && (isMismatch || m_text.back() != '>'))
            byte = m_text.size();
        if (status == pugi::status_out_of_memory)
            throw Flaw{"There is not enough memory", byte};
        if (isMismatch && byte == m_text.size())
            throw Flaw{"The text ends inside an element", byte};
        if (isMismatch)
            throw Flaw{"The end tag does not match the start tag", startOfMarkup(byte)};
        if (status == pugi::status_bad_start_element)
            throw Flaw{BAD_NAME, byte};
        if (status == pugi::status_bad_attribute)
            throw Flaw{ATTRIBUTE, byte};
        if (status == pugi::status_bad_end_element)
            throw Flaw{"The end tag is malformed", byte};
        // Comments and their like may lack their end, which leaves them open to the end of the text.
        const bool isTag = status == pugi::status_unrecognized_tag;
        const char* mark = isTag ? "<" : status == pugi::status_bad_pi ? "<?" : "<!";
        refuseForeign(std::min(m_text.rfind(mark, byte), byte));
    }

    void checkRoot(pugi::xml_node root)
    {
        if (m_last)
            throw Flaw{"Nothing may follow the root element", positionOf(root)};
        if (root.type() != pugi::node_element)
            refuse(root);
        if (root.name() != std::string_view(XML_ROOT_NAME))
            throw Flaw{"The root element must be named root", positionOf(root)};
        m_parsed = root.name() - root.offset_debug();
    }

    void finishRoot(pugi::xml_node root) const
    {
        if (std::string_view(root.value()).find_first_not_of(WHITE_SPACE) != std::string_view::npos)
            throw Flaw{ROOT_TEXT, m_text.find('>', positionOf(root)) + 1};
        if (*root.value() != '\0') // white space, which means nothing there
            root.text().set("");
    }

    // Looks at the tag as it stands in the text, since each of pugixml's answers costs a call. Its name
    // begins at `start`.
    void checkTag(pugi::xml_node node, std::size_t start) const
    {
        if (m_text[start - 1] != '<')
            refuse(node);
        std::size_t end = start;
        if (isPlainNameStart(m_text[end])) {
            while (isPlainNameByte(m_text[end]))
                ++end;
        }
        if (m_text[end] == '>' || m_text[end] == '/')
            return;
        if (!isWhite(m_text[end]))
            throw Flaw{BAD_NAME, end};
        if (node.first_attribute())
            throw Flaw{ATTRIBUTE, m_text.find_first_not_of(WHITE_SPACE, end)};
    }

    [[noreturn]] void refuseForeign(std::size_t start) const
    {
        const auto isHere = [&](const Markup& markup) {
            return m_text.substr(start).starts_with(markup.start);
        };
        throw Flaw{std::find_if(FOREIGN_MARKUP.begin(), FOREIGN_MARKUP.end(), isHere)->refusal, start};
    }

    [[noreturn]] void refuse(pugi::xml_node node) const
    {
        if (node.type() != pugi::node_pcdata)
            refuseForeign(positionOf(node));
        constexpr std::array<const char*, 2> REFUSALS = {"Nothing may follow the root element", ROOT_TEXT};
        throw Flaw{depth() < 2 ? REFUSALS[depth()] : MIXED_CONTENT, positionOf(node)};
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
    const char* m_parsed = nullptr; // pugixml's copy of the text
    pugi::xml_node m_last;
    int m_lastLevel = 0;
};

} // namespace

Optional<String> readXmlForm(std::string_view bytes, pugi::xml_document& document)
{
    try {
        checkCharacters(bytes);
        FormReader(bytes, takeDeclaration(bytes), document).read();
        return {};
    } catch (const Flaw& flaw) {
        return describeXmlFlaw(flaw.what, flaw.byte);
    }
}

String describeXmlFlaw(std::string_view what, std::size_t byte)
{
    return String::fromAscii(what) + L" (byte " + String(std::to_wstring(byte)) + L").";
}

} // namespace Nolvex::Detail
