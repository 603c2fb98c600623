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

/// Raised if the exchange or the command of the peer is wrong.
class Refusal : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Writes backslashes and all characters except printable ASCII as \u{HEX}.
std::string escaped(const String& text);

// These functions read and write the peer's files. The names are UTF-8. They raise Exception or Refusal if a
// file fails.

Io::Path pathOf(const std::string& name);

ByteArray contentOf(const std::string& name);

std::string textIn(const std::string& name);

/// Reads a tree from a file that contains its XML form.
XmlString treeIn(const std::string& name);

void store(const std::string& folder, const std::string& name, ArrayView<const std::byte> content);

} // namespace Nolvex::Tests
