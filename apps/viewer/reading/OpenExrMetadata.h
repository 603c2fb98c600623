// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "apps/viewer/reading/ReadImage.h"

#include <ImfHeader.h>

#include <utility>

namespace Nolvex::Viewer {

/// The header of the part that a picture is from.
class OpenExrHeader : public FormatMetadata
{
public:
    explicit OpenExrHeader(Imf::Header header) : m_header(std::move(header)) {}

    const Imf::Header& header() const { return m_header; }

private:
    Imf::Header m_header;
};

/// Copies the attributes that still hold for the picture when it is written to another file: not those that
/// tell how the pixels, the channels and the parts of the old file were stored.
void copyLastingAttributes(const Imf::Header& from, Imf::Header& to);

/// Returns the attributes of a part as text, in the order of their names.
Array<MetadataEntry> openExrMetadata(const Imf::Header& header);

} // namespace Nolvex::Viewer
