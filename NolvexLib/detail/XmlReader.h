// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Expected.h"
#include "NolvexLib/String.h"
#include "NolvexLib/detail/XmlTree.h"

#include <cstddef>
#include <string_view>

namespace Nolvex::Detail {

inline constexpr std::string_view XML_ROOT_NAME = "root";

/// Reads a document of XmlString's form from UTF-8, in one pass, or returns the sentence that says why the
/// document is refused. The tree takes a copy of the document and at most 7 times its size in memory.
[[nodiscard]] Expected<XmlTree, String> readXml(std::string_view document);

/// The sentence that reports a refusal. It ends in the position, counted in bytes from 0.
[[nodiscard]] String describeXmlFlaw(std::string_view what, std::size_t byte);

} // namespace Nolvex::Detail
