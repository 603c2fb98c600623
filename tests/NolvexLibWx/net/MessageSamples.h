// SPDX-License-Identifier: MIT
#pragma once

#include "Connections.h"

#include "../../NolvexLib/Io/Bytes.h"
#include "NolvexLib/Io/DeflateOutputStream.h"
#include "NolvexLib/Io/FileInputStream.h"
#include "NolvexLib/Io/MemoryOutputStream.h"
#include "support/TemporaryFolder.h"

#include <utility>

namespace Nolvex::Wx::Legacy {

using Tests::element;
using Tests::header;
using Tests::TemporaryFolder;
using Tests::viewOf;

// Writes every file to the same path and records the calls of the hooks.
class FileContext : public ReadDataContext
{
public:
    explicit FileContext(Io::Path path) : m_path(std::move(path)) {}

    Io::Path getFilePath(const XmlString& header) const override
    {
        calls += "path ";
        seenHeader = header;
        return m_path;
    }

    void onReceiveStart(const XmlString&) const override { calls += "start "; }

    void onReceiveEnd(const XmlString&) const override { calls += "end "; }

    mutable std::string calls;
    mutable XmlString seenHeader;

private:
    Io::Path m_path;
};

inline std::string contentOf(const Io::Path& path)
{
    Io::FileInputStream stream(path);
    return Tests::readAll(stream);
}

// Returns lines that resemble each other to some degree.
inline std::string compressibleText(std::size_t size)
{
    const std::string noise = Tests::incompressibleText(size / 4 + 1);
    std::string text;
    for (std::size_t i = 0; text.size() < size; ++i)
        text.append(noise, i * 64 % noise.size(), 64).append(192, static_cast<char>('a' + i % 26));
    text.resize(size);
    return text;
}

inline std::string fileHeader(const std::string& size, const std::string& compression,
                              const std::string& more = "")
{
    return header(element("DataType", "1") + element("FileSize", size) + element("Compressed", compression) +
                  more);
}

inline std::string rawHeader(const std::string& size)
{
    return header(element("DataType", "2") + element("FileSize", size) + element("Compressed", "0"));
}

inline std::string deflatedText(std::string_view text)
{
    Io::MemoryOutputStream target;
    Io::DeflateOutputStream stream(target, 6, 65536);
    Tests::writeText(stream, text);
    stream.finish();
    return Tests::textOf(ArrayView<const std::byte>(target.bytes()));
}

} // namespace Nolvex::Wx::Legacy
