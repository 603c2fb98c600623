// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace Nolvex::Detail {

inline constexpr std::string_view XML_WHITE_SPACE = " \t\r\n";

inline constexpr char BAD_XML_NAME[] = "The name is invalid or its tag is not closed";
inline constexpr char XML_ATTRIBUTE[] = "An attribute is not allowed";

/// What is thrown where a document leaves XmlString's form.
struct XmlFlaw
{
    const char* what;
    std::size_t byte; ///< The position in the document.
};

inline bool isXmlWhite(char byte)
{
    return XML_WHITE_SPACE.find(byte) != std::string_view::npos;
}

/// Looks for characters, references, attributes, names and markup beyond the form from `start` on, where the
/// declaration ends. Throws an XmlFlaw for the first. Tags that pugixml refuses by itself are left to
/// pugixml.
void checkXmlCharacters(std::string_view text, std::size_t start);

/// Throws an XmlFlaw that names the markup whose < stands at `start` and which is no tag of the form.
[[noreturn]] void refuseXmlMarkup(std::string_view text, std::size_t start);

} // namespace Nolvex::Detail
