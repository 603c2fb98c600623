// SPDX-License-Identifier: MIT
#include "NolvexLib/XmlForm.h"

#include "NolvexLib/Array.h"
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

// Well-formed XML that is no part of the form. The longer starts come first.
constexpr std::array<Markup, 4> FOREIGN_MARKUP = {{
    {"<!--", "A comment is not allowed"},
    {"<![CDATA[", "A CDATA section is not allowed"},
    {"<!", "A document type definition is not allowed"},
    {"<?", "A processing instruction or a second declaration is not allowed"},
}};

struct Flaw
{
    const char* what;
    std::size_t byte;
};

struct OpenElement
{
    std::string_view name;
    bool hasChildren = false;
    bool hasText = false;
};

bool isWhite(char byte)
{
    return WHITE_SPACE.find(byte) != std::string_view::npos;
}

// U+FFFE or U+FFFF in valid UTF-8.
bool startsWithNoncharacter(std::string_view text)
{
    return text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF");
}

bool isUtf8EncodingName(std::string_view name)
{
    constexpr std::string_view EXPECTED = "utf-8";
    return std::equal(name.begin(), name.end(), EXPECTED.begin(), EXPECTED.end(),
                      [](char a, char b) { return a == b || (a >= 'A' && a <= 'Z' && a - 'A' + 'a' == b); });
}

// Goes once over the text, without recursion. Throws a Flaw at the first thing that is not of the form.
class XmlChecker
{
public:
    explicit XmlChecker(std::string_view text) : m_text(text) {}

    void check()
    {
        checkCharacters();
        takeDeclaration();
        takeRootStart();
        while (!m_open.empty())
            takeContent();
        skipWhite();
        if (!rest().empty())
            refuse("Nothing may follow the root element");
    }

private:
    [[noreturn]] static void refuseAt(const char* what, std::size_t byte) { throw Flaw{what, byte}; }

    [[noreturn]] void refuse(const char* what) const { refuseAt(what, m_position); }

    std::string_view rest() const { return m_text.substr(m_position); }

    bool take(std::string_view expected)
    {
        const bool found = rest().starts_with(expected);
        if (found)
            m_position += expected.size();
        return found;
    }

    void skipWhite()
    {
        m_position = std::min(m_text.find_first_not_of(WHITE_SPACE, m_position), m_text.size());
    }

    void checkCharacters() const
    {
        const auto broken = utf8::find_invalid(m_text.begin(), m_text.end());
        if (broken != m_text.end())
            refuseAt("The text is no valid UTF-8", static_cast<std::size_t>(broken - m_text.begin()));
        for (std::size_t i = 0; i < m_text.size(); ++i) {
            const auto byte = static_cast<unsigned char>(m_text[i]);
            if ((byte < 0x20 && !isWhite(m_text[i])) || startsWithNoncharacter(m_text.substr(i)))
                refuseAt("The text holds a character XML cannot carry", i);
        }
    }

    void takeDeclaration()
    {
        constexpr std::string_view START = "<?xml";
        if (!rest().starts_with(START) || rest().size() == START.size() || !isWhite(rest()[START.size()]))
            return;
        m_position += START.size();
        if (takeSetting("version").value_or("") != "1.0")
            refuse("The declaration must give the version 1.0");
        if (!isUtf8EncodingName(takeSetting("encoding").value_or("utf-8")))
            refuse("The declaration must give the encoding UTF-8");
        const std::string_view standalone = takeSetting("standalone").value_or("no");
        skipWhite();
        if ((standalone != "yes" && standalone != "no") || !take("?>"))
            refuse("The declaration is malformed");
    }

    // One name="value" of the declaration, white space before it; none when another thing comes next.
    Optional<std::string_view> takeSetting(std::string_view name)
    {
        const std::size_t start = m_position;
        skipWhite();
        if (m_position == start || !take(name)) {
            m_position = start;
            return {};
        }
        skipWhite();
        if (!take("="))
            refuse("The declaration is malformed");
        skipWhite();
        return takeQuoted();
    }

    std::string_view takeQuoted()
    {
        if (!rest().starts_with('"') && !rest().starts_with('\''))
            refuse("The declaration is malformed");
        const std::size_t end = m_text.find(m_text[m_position], m_position + 1);
        if (end == std::string_view::npos)
            refuse("The declaration is malformed");
        const std::string_view value = m_text.substr(m_position + 1, end - m_position - 1);
        m_position = end + 1;
        return value;
    }

    void takeRootStart()
    {
        skipWhite();
        if (rest().empty())
            refuse("There is no root element");
        if (rest().front() != '<')
            refuse("No text may stand before the root element");
        const std::size_t start = m_position;
        if (takeMarkup() != XML_ROOT_NAME)
            refuseAt("The root element must be named root", start);
    }

    void takeContent()
    {
        if (rest().empty())
            refuse("The text ends inside an element");
        if (rest().front() != '<')
            takeText();
        else if (rest().starts_with("</"))
            takeEndTag();
        else
            takeMarkup();
    }

    // Returns the name of the element that begins.
    std::string_view takeMarkup()
    {
        for (const Markup& markup : FOREIGN_MARKUP) {
            if (rest().starts_with(markup.start))
                refuse(markup.refusal);
        }
        return takeStartTag();
    }

    std::string_view takeStartTag()
    {
        enterChild();
        ++m_position;
        const std::string_view name = takeName();
        const std::size_t nameEnd = m_position;
        skipWhite();
        if (take(">"))
            m_open.push_back({name});
        else if (!take("/>"))
            refuse(m_position == nameEnd ? "The name is invalid or its tag is not closed"
                                         : "An attribute is not allowed");
        return name;
    }

    void enterChild()
    {
        if (m_open.size() == XML_DEEPEST_LEVEL)
            refuse("The elements are nested too deeply");
        if (m_open.empty())
            return;
        if (m_open.back().hasText)
            refuse("An element may hold text or elements, not both");
        m_open.back().hasChildren = true;
    }

    void takeEndTag()
    {
        const std::size_t start = m_position;
        m_position += 2;
        const std::string_view name = takeName();
        skipWhite();
        if (!take(">"))
            refuse("The end tag is malformed");
        if (name != m_open.back().name)
            refuseAt("The end tag does not match the start tag", start);
        m_open.pop_back();
    }

    std::string_view takeName()
    {
        const std::string_view text = rest();
        if (text.empty() || !isPlainNameStart(text.front()))
            refuse("A name must begin with an English letter or an underscore");
        const auto end = std::find_if_not(text.begin(), text.end(), isPlainNameUnit<char>);
        const auto length = static_cast<std::size_t>(end - text.begin());
        m_position += length;
        return text.substr(0, length);
    }

    void takeText()
    {
        const std::string_view text = rest().substr(0, rest().find('<'));
        checkEntities(text);
        const std::size_t marked = text.find("]]>");
        if (marked != std::string_view::npos)
            refuseAt("The characters ]]> must not stand in a text", m_position + marked);
        if (text.find_first_not_of(WHITE_SPACE) != std::string_view::npos) {
            if (m_open.size() == 1)
                refuse("The root element must not hold text");
            if (m_open.back().hasChildren)
                refuse("An element may hold text or elements, not both");
            m_open.back().hasText = true;
        }
        m_position += text.size();
    }

    void checkEntities(std::string_view text) const
    {
        constexpr auto NPOS = std::string_view::npos;
        for (std::size_t at = text.find('&'); at != NPOS; at = text.find('&', at + 1)) {
            const std::string_view reference = text.substr(at);
            if (std::none_of(ENTITIES.begin(), ENTITIES.end(),
                             [&](std::string_view entity) { return reference.starts_with(entity); }))
                refuseAt("Only the five predefined entities are allowed", m_position + at);
        }
    }

    std::string_view m_text;
    std::size_t m_position = 0;
    Array<OpenElement> m_open;
};

} // namespace

Optional<String> findXmlFlaw(std::string_view bytes)
{
    try {
        XmlChecker(bytes).check();
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
