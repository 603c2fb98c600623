// SPDX-License-Identifier: MIT
#include "NolvexLib/detail/XmlCharacters.h"

#include "NolvexLib/PlainName.h"

#include <utf8.h>

#include <algorithm>
#include <array>

namespace Nolvex::Detail {

namespace {

constexpr std::array<std::string_view, 5> ENTITIES = {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;"};

struct Markup
{
    std::string_view start;
    const char* refusal;
};

// All that can begin with < without being a tag of the form. A start stands before the shorter starts that
// it begins with.
constexpr std::array<Markup, 5> FOREIGN_MARKUP = {{
    {"<!--", "A comment is not allowed"},
    {"<![CDATA[", "A CDATA section is not allowed"},
    {"<!", "A document type definition is not allowed"},
    {"<?", "A processing instruction or a second declaration is not allowed"},
    {"", "A name must begin with an English letter or an underscore"},
}};

constexpr char UNCARRIABLE[] = "The text holds a character XML cannot carry";

bool isBeyondAscii(char byte)
{
    return static_cast<unsigned char>(byte) >= 0x80;
}

// Returns 0 for a byte that may be a flaw, depending on where the byte stands, and more than 0 for any other
// byte. Tabs and line ends count as bytes that may be a flaw. The function computes the minimum of numbers
// instead of a disjunction of bools because compilers can then vectorise the loop over a block.
constexpr unsigned char harmlessness(char byte)
{
    const auto differenceTo = [](char notable, int unit) {
        return static_cast<unsigned char>(unit ^ notable);
    };
    const auto least = [](unsigned char a, unsigned char b) { return a < b ? a : b; };
    const unsigned char inTexts = least(differenceTo('&', byte), differenceTo(']', byte));
    const unsigned char inMarkup = least(differenceTo('!', byte), differenceTo(':', byte));
    const unsigned char questionOrEquals = differenceTo('?', byte | ('?' ^ '=')); // the two differ in one bit
    const unsigned char control =
        static_cast<signed char>(byte) < 0x20 ? 0 : 0xFF; // bytes beyond ASCII are negative
    return least(least(inTexts, inMarkup), least(questionOrEquals, control));
}

// Tells for each byte whether the byte may be a flaw. A table is faster than the function where bytes are
// looked at one by one.
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

// Returns the position of the next byte that may be a flaw, or the length of the text.
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

// Checks the run of bytes beyond ASCII with which the text begins, and returns the length of the run. The run
// must consist of whole sequences of UTF-8, since no sequence contains bytes of ASCII.
std::size_t takeBeyondAscii(std::string_view text, std::size_t position)
{
    const auto end = std::find_if_not(text.begin(), text.end(), isBeyondAscii);
    const auto broken = utf8::find_invalid(text.begin(), end);
    if (broken != end)
        throw XmlFlaw{"The text is no valid UTF-8",
                      position + static_cast<std::size_t>(broken - text.begin())};
    const std::string_view run = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    const std::size_t noncharacter = std::min(run.find("\xEF\xBF\xBE"), run.find("\xEF\xBF\xBF"));
    if (noncharacter != std::string_view::npos)
        throw XmlFlaw{UNCARRIABLE, position + noncharacter};
    return run.size();
}

// The check runs before pugixml reads the text, so that most refused texts cost no memory.
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
            throw XmlFlaw{what, at};
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
        return byte == '&' || byte == ']' || isXmlWhite(byte) ? nullptr : UNCARRIABLE;
    }

    void checkMarkupBefore(std::size_t at) const
    {
        if (at > m_start && m_text[at - 1] == '<')
            refuseXmlMarkup(m_text, at - 1);
    }

    // Of what pugixml accepts, each attribute has a =, and each name beyond the form has a : or a byte beyond
    // ASCII. Tags without these bytes need no check.
    void checkTagAround(std::size_t at)
    {
        const std::size_t known = m_bracket;
        const std::size_t bracket = lastBracketBefore(at);
        if (bracket != known && m_text[bracket] == '<') // The tag has not been checked for an earlier byte.
            checkTag(bracket + 1);
    }

    // The last bracket tells whether a byte stands in a tag, because the form has no values in quotes, which
    // could contain brackets. No byte is looked at twice.
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

    // The name of the tag begins at `start`. The loops need no bound because the tag contains a byte that is
    // part of neither a name nor white space.
    void checkTag(std::size_t start) const
    {
        std::size_t end = start;
        if (isPlainNameStart(m_text[end])) {
            while (isPlainNameByte(m_text[end]))
                ++end;
        }
        if (m_text[end] == ':' || isBeyondAscii(m_text[end]))
            throw XmlFlaw{BAD_XML_NAME, end};
        if (end == start || !isXmlWhite(m_text[end]))
            return;
        const std::size_t next = m_text.find_first_not_of(XML_WHITE_SPACE, end);
        if (m_text[next] != '/' && m_text[next] != '>')
            throw XmlFlaw{XML_ATTRIBUTE, next};
    }

    std::string_view m_text;
    std::size_t m_start;
    std::size_t m_seen; // The text before this position has been searched for brackets.
    std::size_t m_bracket = std::string_view::npos;
};

} // namespace

void checkXmlCharacters(std::string_view text, std::size_t start)
{
    CharacterCheck(text, start).run();
}

void refuseXmlMarkup(std::string_view text, std::size_t start)
{
    const auto isHere = [&](const Markup& markup) { return text.substr(start).starts_with(markup.start); };
    throw XmlFlaw{std::find_if(FOREIGN_MARKUP.begin(), FOREIGN_MARKUP.end(), isHere)->refusal, start};
}

} // namespace Nolvex::Detail
