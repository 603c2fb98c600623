// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Optional.h"
#include "NolvexLib/Rgb.h"

#include <wx/dataobj.h>

#include <cstddef>

namespace Nolvex::Wx {

/// A colour on its way from one window to another, by drag and drop or the clipboard, also between processes.
///
/// The format is called "Quillane-Rgb". Its 16 bytes are the floats r, g, b and a in this order, each in the
/// little-endian form of IEEE 754. Every bit pattern passes unchanged: values below 0 and above 1, infinities
/// and NaNs.
class RgbDataObject : public wxDataObjectSimple
{
public:
    static constexpr std::size_t SIZE = 16; ///< bytes

    /// Makes an object that waits for a colour.
    RgbDataObject();

    explicit RgbDataObject(const Rgb& color);

    /// Returns nullopt until a colour has arrived.
    const Optional<Rgb>& color() const { return m_color; }

    void clear() { m_color.reset(); }

    // Both names come from wxDataObjectSimple, which has overloads of them for each format.
    using wxDataObjectSimple::GetDataHere;
    using wxDataObjectSimple::GetDataSize;
    using wxDataObjectSimple::SetData;

    size_t GetDataSize() const override { return SIZE; }

    /// `buffer` has room for `SIZE` bytes. Returns false if there is no colour.
    bool GetDataHere(void* buffer) const override;

    /// Takes the first `SIZE` bytes. Data of another program may be shorter than its format demands: such
    /// data is refused, and the object holds no colour then.
    bool SetData(size_t length, const void* buffer) override;

private:
    Optional<Rgb> m_color;
};

} // namespace Nolvex::Wx
