// SPDX-License-Identifier: MIT
#pragma once

namespace Nolvex::Tests {

/// Sets the pixels per inch by which the system turns a font's points into pixels, until the object is
/// destroyed.
class ScreenResolution
{
public:
    explicit ScreenResolution(double pixelsPerInch);
    ~ScreenResolution();
    ScreenResolution(const ScreenResolution&) = delete;
    ScreenResolution& operator=(const ScreenResolution&) = delete;

    /// Returns whether the resolution could be set. On Windows it cannot change while a program runs.
    bool isSet() const { return m_set; }

private:
    double m_previous = 0.0;
    bool m_set = false;
};

} // namespace Nolvex::Tests
