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

[[noreturn]] void refuseMarkup(std::string_view text, std::size_t start)
{
    const auto isHere = [&](const Markup& markup) { return text.substr(start).starts_with(markup.start); };
    throw Flaw{std::find_if(FOREIGN_MARKUP.begin(), FOREIGN_MARKUP.end(), isHere)->refusal, start};
}

bool isWhite(char byte)
{
    return WHITE_SPACE.find(byte) != std::string_view::npos;
}

bool isBeyondAscii(char byte)
{
    return static_cast<unsigned char>(byte) >= 0x80;
}

// Returns 0 for the bytes that may be a flaw where they stand, and more for all others. White space below
// U+0020 is among the former. A number is used instead of a bool, and its minimum instead of a disjunction,
// because compilers then vectorise the loop over a block.
constexpr unsigned char harmlessness(char byte)
{
    const auto differenceTo = [](char notable, int unit) {
        return static_cast<unsigned char>(unit ^ notable);
    };
    const auto least = [](unsigned char a, unsigned char b) { return a < b ? a : b; };
    const unsigned char inTexts = least(differenceTo('&', byte), differenceTo(']', byte));
    const unsigned char inMarkup = least(differenceTo('!', byte), differenceTo(':', byte));
    const unsigned char questionOrEquals = differenceTo('?', byte | ('?' ^ '='));   // they differ in one bit
    const unsigned char control = static_cast<signed char>(byte) < 0x20 ? 0 : 0xFF; // negative beyond ASCII
    return least(least(inTexts, inMarkup), least(questionOrEquals, control));
}

// The answers for all bytes, since a table is faster where the bytes are looked at one by one.
constexpr std::array<bool, 256> NOTABLE_BYTES = [] {
    std::array<bool, 256> table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = harmlessness(static_cast<char>(i)) == 0;
    return table;
}();

constexpr std::size_t BLOCK = 64;

bool isHarmlessBlock(const char* bytes)
{
    unsigned char least = 0xFF;
    for (std::size_t i = 0; i < BLOCK; ++i)
        least = harmlessness(bytes[i]) < least ? harmlessness(bytes[i]) : least;
    return least != 0;
}

// The position of the next byte that may be a flaw, or the length of the text.
std::size_t findNotable(std::string_view text, std::size_t at)
{
    for (; text.size() - at >= BLOCK; at += BLOCK) {
        if (!isHarmlessBlock(text.data() + at))
            break;
    }
    const bool isTail = text.size() >= BLOCK && text.size() - at < BLOCK;
    if (isTail && isHarmlessBlock(text.data() + text.size() - BLOCK))
        return text.size();
    while (at < text.size() && !NOTABLE_BYTES[static_cast<unsigned char>(text[at])])
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

// Looks at the characters and tags before pugixml reads the text, so that most refused texts cost no memory.
// What pugixml refuses by itself is left to pugixml. Throws a Flaw.
class CharacterCheck final
{
public:
    CharacterCheck(std::string_view text, std::size_t start) : m_text(text), m_start(start), m_seen(start) {}

    void run()
    {
        for (std::size_t at = m_start; (at = findNotable(m_text, at)) < m_text.size();)
            at += isBeyondAscii(m_text[at]) ? takeWide(at) : takeAscii(at);
    }

private:
    std::size_t takeWide(std::size_t at)
    {
        const std::size_t size = takeBeyondAscii(m_text.substr(at), at);
        checkTagAround(at);
        return size;
    }

    std::size_t takeAscii(std::size_t at)
    {
        const char byte = m_text[at];
        if (byte == ':' || byte == '=')
            checkTagAround(at);
        else if (byte == '!' || byte == '?')
            checkMarkupBefore(at);
        else if (const char* what = flawOfText(m_text.substr(at)))
            throw Flaw{what, at};
        return 1;
    }

    static const char* flawOfText(std::string_view rest)
    {
        const auto isNext = [&](std::string_view entity) { return rest.starts_with(entity); };
        const char byte = rest.front();
        if (byte == '&' && std::none_of(ENTITIES.begin(), ENTITIES.end(), isNext))
            return "Only the five predefined entities are allowed";
        if (isNext("]]>"))
            return "The characters ]]> are not allowed, nor is a CDATA section";
        return byte == '&' || byte == ']' || isWhite(byte) ? nullptr : UNCARRIABLE;
    }

    void checkMarkupBefore(std::size_t at) const
    {
        if (at > m_start && m_text[at - 1] == '<')
            refuseMarkup(m_text, at - 1);
    }

    // Only these bytes can be part of an attribute or of a name beyond the form, so that all other tags need
    // no look.
    void checkTagAround(std::size_t at)
    {
        const std::size_t known = m_bracket;
        const std::size_t bracket = lastBracketBefore(at);
        if (bracket != known && m_text[bracket] == '<') // each tag once, however many such bytes it has
            checkTag(bracket + 1);
    }

    // The form has no values in quotes, so the last bracket tells whether a byte stands in a tag. No byte is
    // looked at twice.
    std::size_t lastBracketBefore(std::size_t at)
    {
        const auto isBracket = [](char byte) { return byte == '<' || byte == '>'; };
        const std::string_view unseen = m_text.substr(m_seen, at - m_seen);
        const auto found = std::find_if(unseen.rbegin(), unseen.rend(), isBracket);
        if (found != unseen.rend())
            m_bracket = m_seen + static_cast<std::size_t>(unseen.rend() - found) - 1;
        m_seen = at;
        return m_bracket;
    }

    // The tag's name begins at `start`. The tag holds a byte that ends the name, or white space behind it.
    void checkTag(std::size_t start) const
    {
        std::size_t end = start;
        if (isPlainNameStart(m_text[end])) {
            while (isPlainNameByte(m_text[end]))
                ++end;
        }
        if (m_text[end] == ':' || isBeyondAscii(m_text[end]))
            throw Flaw{BAD_NAME, end};
        if (end == start || !isWhite(m_text[end]))
            return;
        const std::size_t next = m_text.find_first_not_of(WHITE_SPACE, end);
        if (m_text[next] != '/' && m_text[next] != '>')
            throw Flaw{ATTRIBUTE, next};
    }

    std::string_view m_text;
    std::size_t m_start;
    std::size_t m_seen; // the text before has been looked at for brackets
    std::size_t m_bracket = std::string_view::npos;
};

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

// Has pugixml parse one text, whose characters and tags have been checked, and checks where its elements and
// texts stand. Throws a Flaw.
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
        checkRoot(m_document.first_child());
    }

    // Each of pugixml's answers costs a call, so most elements get only the question for the level.
    bool for_each(pugi::xml_node& node) override
    {
        const int level = depth();
        if (level > m_lastLevel) {
            if (*m_last.child_value() != '\0')
                refuseText(m_last, node, level);
            if (level == MAX_XML_LEVELS - 1)
                throw Flaw{"The elements are nested too deeply", positionOf(node)};
        }
        m_last = node;
        m_lastLevel = level;
        return true;
    }

private:
    void parse()
    {
        // Line ends stay as they are, and white space is kept where an element holds nothing else. What
        // follows the root becomes nodes, which the check finds.
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
        refuseMarkup(m_text, std::min(m_text.rfind('<', byte), byte));
    }

    void checkRoot(pugi::xml_node root)
    {
        if (root.name() != std::string_view(XML_ROOT_NAME))
            throw Flaw{"The root element must be named root", positionOf(root)};
        m_last = root;
        root.traverse(*this);
        const pugi::xml_node next = root.next_sibling();
        if (next)
            throw Flaw{"Nothing may follow the root element", positionOf(next)};
        if (std::string_view(root.value()).find_first_not_of(WHITE_SPACE) != std::string_view::npos)
            throw Flaw{ROOT_TEXT, m_text.find('>', positionOf(root)) + 1};
        if (*root.value() != '\0') // white space, which means nothing there
            root.text().set("");
    }

    [[noreturn]] void refuseText(pugi::xml_node parent, pugi::xml_node first, int level) const
    {
        if (*parent.value() != '\0')
            throw Flaw{MIXED_CONTENT, positionOf(first)};
        const auto isText = [](pugi::xml_node child) { return child.type() == pugi::node_pcdata; };
        throw Flaw{level == 0 ? ROOT_TEXT : MIXED_CONTENT, positionOf(parent.find_child(isText))};
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
    int m_lastLevel = -1; // below the root
};

} // namespace

Optional<String> readXmlForm(std::string_view bytes, pugi::xml_document& document)
{
    try {
        const std::size_t start = takeDeclaration(bytes);
        CharacterCheck(bytes, start).run();
        FormReader(bytes, start, document).read();
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
