// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ArrayView.h"

#include <ImfIO.h>
#include <ImfMultiPartInputFile.h>

#include <cstddef>
#include <cstdint>

namespace Nolvex::Viewer {

/// The bytes of a file as OpenEXR reads them, without a copy.
class OpenExrStream : public Imf::IStream
{
public:
    explicit OpenExrStream(ArrayView<const std::byte> bytes);

    bool isMemoryMapped() const override { return true; }

    bool read(char* to, int count) override;
    char* readMemoryMapped(int count) override;

    uint64_t tellg() override { return m_position; }

    void seekg(uint64_t position) override { m_position = position; }

private:
    ArrayView<const std::byte> m_bytes;
    uint64_t m_position = 0;
};

/// An EXR file in memory that OpenEXR reads on all cores. Must not be moved. The functions throw exceptions
/// of OpenEXR if the file is damaged.
class OpenExrFile
{
public:
    static bool knows(ArrayView<const std::byte> bytes);

    /// Reads the headers of all parts.
    explicit OpenExrFile(ArrayView<const std::byte> bytes);

    OpenExrFile(const OpenExrFile&) = delete;
    OpenExrFile& operator=(const OpenExrFile&) = delete;

    Imf::MultiPartInputFile& parts() { return m_parts; }

    const Imf::Header& header(int part) const { return m_parts.header(part); }

    int partCount() const { return m_parts.parts(); }

    ArrayView<const std::byte> bytes() const { return m_bytes; }

private:
    ArrayView<const std::byte> m_bytes;
    OpenExrStream m_stream;
    Imf::MultiPartInputFile m_parts;
};

} // namespace Nolvex::Viewer
