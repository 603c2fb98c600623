// SPDX-License-Identifier: MIT
#include "NolvexLib/detail/XmlReader.h"

#include "NolvexLib/Optional.h"
#include "NolvexLib/PlainName.h"

#include <utf8.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace Nolvex::Detail {

namespace {

// What is thrown where a document leaves the form.
struct Flaw
{
    const char* what;
    std::size_t byte;
};

constexpr char ROOT_TEXT[] = "The root element must not hold text";
constexpr char MIXED_CONTENT[] = "An element may hold text or elements, not both";
constexpr char BAD_DECLARATION[] = "The declaration is malformed";
constexpr char UNCARRIABLE[] = "The text holds a character XML cannot carry";
constexpr char UNENDED[] = "The text ends inside an element";

struct Entity
{
    std::string_view reference;
    char character;
};

constexpr std::array<Entity, 5> ENTITIES = {
    {{"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}}};

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

constexpr bool isWhite(char byte)
{
    return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
}

constexpr bool isBeyondAscii(char byte)
{
    return static_cast<unsigned char>(byte) >= 0x80;
}

// The bytes of a text that mean nothing but themselves, wherever they stand.
constexpr std::array<bool, 256> PLAIN_BYTES = [] {
    std::array<bool, 256> table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        const char byte = static_cast<char>(i);
        table[i] =
            isWhite(byte) || (i >= 0x20 && !isBeyondAscii(byte) && byte != '<' && byte != '&' && byte != ']');
    }
    return table;
}();

bool isPlain(char byte)
{
    return PLAIN_BYTES[static_cast<unsigned char>(byte)];
}

bool isUtf8EncodingName(std::string_view name)
{
    constexpr std::string_view EXPECTED = "utf-8";
    return std::equal(name.begin(), name.end(), EXPECTED.begin(), EXPECTED.end(),
                      [](char a, char b) { return a == b || (a >= 'A' && a <= 'Z' && a - 'A' + 'a' == b); });
}

/// Names and texts stay where they are in the copy of the document. A zero byte is written behind each of
/// them as soon as the byte that stood there has been read. The zero byte at the end of the std::string ends
/// every loop over bytes, because a document cannot hold one.
class Reader final
{
public:
    explicit Reader(std::string_view document) : m_bytes(document)
    {
        constexpr std::size_t SHORTEST_ELEMENT = std::string_view("<a/>").size();
        const auto tags = static_cast<std::size_t>(std::count(document.begin(), document.end(), '<'));
        m_elements.reserve(std::min(tags, document.size() / SHORTEST_ELEMENT));
    }

    XmlTree read() &&
    {
        takeDeclaration();
        takeRoot();
        while (m_level > 0)
            takeContent();
        expectEnd();
        return {std::move(m_bytes), std::move(m_elements)};
    }

private:
    struct OpenElement
    {
        std::size_t name;
        std::size_t nameEnd;
        bool hasChildren;
    };

    bool isNext(std::string_view expected, std::size_t at) const
    {
        return std::string_view(m_bytes).substr(at).starts_with(expected);
    }

    std::size_t skipWhite(std::size_t at) const
    {
        return skip(at, [](char byte) { return isWhite(byte); });
    }

    std::size_t skipName(std::size_t at) const
    {
        return skip(at, [](char byte) { return isPlainNameByte(byte); });
    }

    // The compiler keeps a pointer of its own in a register, but not that of the std::string.
    template<class Predicate>
    std::size_t skip(std::size_t at, Predicate isSkipped) const
    {
        const char* byte = m_bytes.data() + at;
        while (isSkipped(*byte))
            ++byte;
        return static_cast<std::size_t>(byte - m_bytes.data());
    }

    void takeDeclaration()
    {
        constexpr std::string_view START = "<?xml";
        if (!isNext(START, 0) || !isWhite(m_bytes[START.size()]))
            return;
        m_at = START.size();
        if (takeSetting("version") != "1.0")
            throw Flaw{"The declaration must give the version 1.0", 0};
        if (!isUtf8EncodingName(takeSetting("encoding").value_or("utf-8")))
            throw Flaw{"The declaration must give the encoding UTF-8", 0};
        const std::string_view standalone = takeSetting("standalone").value_or("no");
        m_at = skipWhite(m_at);
        if ((standalone != "yes" && standalone != "no") || !isNext("?>", m_at))
            throw Flaw{BAD_DECLARATION, m_at};
        m_at += 2;
    }

    // Returns the value of the setting if it comes next.
    Optional<std::string_view> takeSetting(std::string_view name)
    {
        const std::size_t start = skipWhite(m_at);
        if (start == m_at || !isNext(name, start))
            return {};
        const std::size_t equals = skipWhite(start + name.size());
        if (m_bytes[equals] != '=')
            throw Flaw{BAD_DECLARATION, equals};
        const std::size_t quote = skipWhite(equals + 1);
        const bool isQuoted = m_bytes[quote] == '"' || m_bytes[quote] == '\'';
        const std::size_t end = isQuoted ? m_bytes.find(m_bytes[quote], quote + 1) : std::string::npos;
        if (end == std::string::npos)
            throw Flaw{BAD_DECLARATION, quote};
        m_at = end + 1;
        return std::string_view(m_bytes).substr(quote + 1, end - quote - 1);
    }

    void takeRoot()
    {
        m_at = skipWhite(m_at);
        if (m_at == m_bytes.size())
            throw Flaw{"There is no root element", m_at};
        if (m_bytes[m_at] != '<')
            throw Flaw{"No text may stand before the root element", m_at};
        const std::size_t start = m_at;
        takeStartTag();
        if (std::string_view(m_bytes.data() + start + 1) != XML_ROOT_NAME)
            throw Flaw{"The root element must be named root", start};
    }

    void expectEnd() const
    {
        const std::size_t at = skipWhite(m_at);
        if (isNext("<!", at) || isNext("<?", at))
            refuseMarkup(at);
        if (at != m_bytes.size())
            throw Flaw{"Nothing may follow the root element", at};
    }

    // Takes what comes next in the open element: an end tag and the text before it, or a start tag.
    void takeContent()
    {
        OpenElement& element = m_open[m_level - 1];
        const std::size_t start = m_at;
        m_at = skipWhite(start);
        if (m_bytes[m_at] == '<' && m_bytes[m_at + 1] != '/') {
            element.hasChildren = true;
            takeStartTag();
            return;
        }
        const bool isText = m_bytes[m_at] != '<' && m_at < m_bytes.size();
        if (isText && (m_level == 1 || element.hasChildren))
            throw Flaw{m_level == 1 ? ROOT_TEXT : MIXED_CONTENT, m_at};
        // White space is a text where the element has nothing else.
        const std::size_t end = isText ? takeText(start) : m_at;
        takeEndTag(element);
        if (m_level == 0 || element.hasChildren)
            return;
        m_bytes[end] = '\0';
        m_elements.back().text = start;
    }

    // Resolves the entities in place and stops at the next tag. Returns where the resolved text ends.
    std::size_t takeText(std::size_t start)
    {
        std::size_t end = start;
        for (m_at = start; m_bytes[m_at] != '<';) {
            const std::size_t from = m_at;
            const char byte = m_bytes[from];
            if (byte == '&') {
                m_bytes[end++] = takeEntity();
                continue;
            }
            m_at = isPlain(byte) ? skipPlain(from) : takeRarity(from);
            if (end != from)
                std::copy(m_bytes.data() + from, m_bytes.data() + m_at, m_bytes.data() + end);
            end += m_at - from;
        }
        return end;
    }

    std::size_t skipPlain(std::size_t at) const
    {
        return skip(at, [](char byte) { return isPlain(byte); });
    }

    char takeEntity()
    {
        for (const Entity& entity : ENTITIES) {
            if (isNext(entity.reference, m_at)) {
                m_at += entity.reference.size();
                return entity.character;
            }
        }
        throw Flaw{"Only the five predefined entities are allowed", m_at};
    }

    // Returns the end of the run of bytes beyond ASCII, or of the single byte, that must be looked at
    // closely.
    std::size_t takeRarity(std::size_t at) const
    {
        if (isBeyondAscii(m_bytes[at]))
            return takeBeyondAscii(at);
        if (isNext("]]>", at))
            throw Flaw{"The characters ]]> are not allowed, nor is a CDATA section", at};
        if (m_bytes[at] != ']')
            throw Flaw{at == m_bytes.size() ? UNENDED : UNCARRIABLE, at};
        return at + 1;
    }

    // The run must consist of whole sequences of UTF-8, since no sequence contains bytes of ASCII.
    std::size_t takeBeyondAscii(std::size_t at) const
    {
        const char* const first = m_bytes.data() + at;
        const char* const end = std::find_if_not(first, m_bytes.data() + m_bytes.size(), isBeyondAscii);
        const char* const broken = utf8::find_invalid(first, end);
        if (broken != end)
            throw Flaw{"The text is no valid UTF-8", at + static_cast<std::size_t>(broken - first)};
        const std::string_view run(first, static_cast<std::size_t>(end - first));
        const std::size_t noncharacter = std::min(run.find("\xEF\xBF\xBE"), run.find("\xEF\xBF\xBF"));
        if (noncharacter != std::string_view::npos)
            throw Flaw{UNCARRIABLE, at + noncharacter};
        return at + run.size();
    }

    void takeStartTag()
    {
        const std::size_t start = m_at;
        if (!isPlainNameStart(m_bytes[start + 1]))
            refuseMarkup(start);
        const std::size_t nameEnd = skipName(start + 1);
        m_at = skipWhite(nameEnd);
        const bool hasSlash = m_bytes[m_at] == '/';
        m_at += hasSlash ? 1 : 0;
        if (m_bytes[m_at] != '>') {
            const bool isAttribute = m_at > nameEnd && !hasSlash && m_at < m_bytes.size();
            throw Flaw{isAttribute ? "An attribute is not allowed"
                                   : "The name is invalid or its tag is not closed",
                       m_at};
        }
        if (m_level == m_open.size())
            throw Flaw{"The elements are nested too deeply", start};
        ++m_at;
        m_bytes[nameEnd] = '\0';
        if (m_level > 0)
            m_elements.push_back({start + 1, nameEnd, static_cast<int>(m_level)});
        if (!hasSlash)
            m_open[m_level++] = {start + 1, nameEnd, false};
    }

    void takeEndTag(const OpenElement& element)
    {
        const std::string_view name(m_bytes.data() + element.name, element.nameEnd - element.name);
        const std::size_t nameEnd = m_at + 2 + name.size();
        if (m_at == m_bytes.size())
            throw Flaw{UNENDED, m_at};
        if (m_bytes[m_at + 1] != '/')
            refuseBesideText(m_at);
        if (!isNext(name, m_at + 2) || isPlainNameByte(m_bytes[nameEnd]))
            throw Flaw{"The end tag does not match the start tag", m_at};
        m_at = skipWhite(nameEnd);
        if (m_bytes[m_at] != '>')
            throw Flaw{m_at == m_bytes.size() ? UNENDED : "The end tag is malformed", m_at};
        ++m_at;
        --m_level;
    }

    [[noreturn]] void refuseBesideText(std::size_t start) const
    {
        if (isPlainNameStart(m_bytes[start + 1]))
            throw Flaw{MIXED_CONTENT, start};
        refuseMarkup(start);
    }

    // The markup that begins at `start` is no tag of the form.
    [[noreturn]] void refuseMarkup(std::size_t start) const
    {
        const auto isHere = [&](const Markup& markup) { return isNext(markup.start, start); };
        throw Flaw{std::find_if(FOREIGN_MARKUP.begin(), FOREIGN_MARKUP.end(), isHere)->refusal, start};
    }

    std::string m_bytes;
    Array<XmlTree::Element> m_elements;
    std::array<OpenElement, MAX_XML_LEVELS> m_open;
    std::size_t m_level = 0; // the number of open elements
    std::size_t m_at = 0;
};

} // namespace

Expected<XmlTree, String> readXml(std::string_view document)
{
    try {
        return Reader(document).read();
    } catch (const Flaw& flaw) {
        return Unexpected{describeXmlFlaw(flaw.what, flaw.byte)};
    }
}

String describeXmlFlaw(std::string_view what, std::size_t byte)
{
    return String::fromAscii(what) + L" (byte " + String(std::to_wstring(byte)) + L").";
}

} // namespace Nolvex::Detail
