// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"

#include <pugixml.hpp>

#include <cstddef>
#include <string_view>

namespace Nolvex::Detail {

inline constexpr char XML_ROOT_NAME[] = "root";

/// How many levels of elements a document may have. The root is level 1.
inline constexpr int MAX_XML_LEVELS = 64;

/// Reads a document of XmlString's form from UTF-8 into `document`, which must be empty. Returns nullopt, or
/// the sentence that says why the document is refused; `document` must then not be used. Elements hold
/// elements, or a text as their own value (pugi::parse_embed_pcdata), or nothing.
[[nodiscard]] Optional<String> readXmlForm(std::string_view bytes, pugi::xml_document& document);

/// The sentence that reports a refusal. It ends in the position, counted in bytes from 0.
[[nodiscard]] String describeXmlFlaw(std::string_view what, std::size_t byte);

} // namespace Nolvex::Detail
