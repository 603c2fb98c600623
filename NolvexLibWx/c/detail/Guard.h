// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Exception.h"
#include "NolvexLib/StopException.h"
#include "NolvexLibWx/c/Nolvex.h"

#include <exception>
#include <string>

namespace Nolvex::C {

/// Keeps the sentence for nolvexLastError on this thread.
void setLastError(const std::string& sentence) noexcept;

/// Keeps the sentence and returns NOLVEX_FAILED.
NolvexStatus failed(const std::string& sentence) noexcept;

/// Runs a function that returns a NolvexStatus, and turns exceptions into sentences.
template<class Body>
NolvexStatus guarded(const Body& body) noexcept
{
    try {
        return body();
    } catch (const StopException& stop) {
        return failed("The library was called in a way that it does not allow (" + stop.file() + ", line " +
                      std::to_string(stop.line()) + ").");
    } catch (const std::exception& failure) {
        return failed(failure.what());
    } catch (...) {
        return failed("The library failed for an unknown reason.");
    }
}

} // namespace Nolvex::C
