// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"
#include "NolvexLib/ByteArray.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/String.h"
#include "NolvexLib/XmlString.h"

#include <cstddef>
#include <stdexcept>
#include <string>

namespace Nolvex::Tests {

/// The exchange, or what the peer was told, is not as it should be.
class Refusal : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A backslash and what is not printable ASCII become \u{HEX}.
std::string escaped(const String& text);

// What the peer reads and writes. The names are UTF-8; Exception and Refusal where a file fails.

Io::Path pathOf(const std::string& name);

ByteArray contentOf(const std::string& name);

std::string textIn(const std::string& name);

/// From a file that holds the XML form.
XmlString treeIn(const std::string& name);

void store(const std::string& folder, const std::string& name, ArrayView<const std::byte> content);

} // namespace Nolvex::Tests
