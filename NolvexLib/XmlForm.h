// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"

#include <cstddef>
#include <string_view>

namespace Nolvex::Detail {

inline constexpr char XML_ROOT_NAME[] = "root";

/// The deepest an element may lie; the root lies at level 1.
inline constexpr std::size_t XML_DEEPEST_LEVEL = 64;

/// What first keeps UTF-8 bytes from being a text of XmlString's form: an English sentence that ends in the
/// position, counted in bytes from 0. None when the text has the form. Takes time in proportion to the
/// length.
[[nodiscard]] Optional<String> findXmlFlaw(std::string_view bytes);

/// The sentence that reports a flaw.
[[nodiscard]] String describeXmlFlaw(std::string_view what, std::size_t byte);

} // namespace Nolvex::Detail
