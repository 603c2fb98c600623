// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Noncopyable.h"

#include <string>

namespace Nolvex::Tests {

/// While an object of this class lives, the numbers of the user have a decimal comma.
class DecimalComma : private Noncopyable
{
public:
    DecimalComma();
    ~DecimalComma();

    /// Returns false if the system cannot be given a decimal comma.
    bool isInEffect() const;

private:
    std::wstring m_former;
};

} // namespace Nolvex::Tests
