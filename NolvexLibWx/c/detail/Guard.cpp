// SPDX-License-Identifier: MIT
#include "NolvexLibWx/c/detail/Guard.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace Nolvex::C {

namespace {

constexpr std::size_t MAX_SENTENCE = 1024;

// No memory has to be found for the sentence that tells that there is none.
thread_local std::array<char, MAX_SENTENCE> lastError{};

} // namespace

void setLastError(const std::string& sentence) noexcept
{
    std::size_t length = std::min(sentence.size(), MAX_SENTENCE - 1);
    // A sentence that is cut off ends behind a whole character.
    while (length < sentence.size() && length > 0 &&
           (static_cast<unsigned char>(sentence[length]) & 0xC0) == 0x80)
        --length;
    std::copy_n(sentence.begin(), length, lastError.begin());
    lastError[length] = '\0';
}

NolvexStatus failed(const std::string& sentence) noexcept
{
    setLastError(sentence);
    return NOLVEX_FAILED;
}

} // namespace Nolvex::C

const char* nolvexLastError()
{
    return Nolvex::C::lastError.data();
}
