// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/BinaryOutputStream.h"

#include "NolvexLib/StopException.h"

namespace Nolvex::Io {

BinaryOutputStream::BinaryOutputStream() = default;
BinaryOutputStream::~BinaryOutputStream() = default;

void BinaryOutputStream::flush() {}

void BinaryOutputStream::write(const void* buffer, std::int64_t count)
{
    if (count < 0)
        Detail::throwStopException("Io/BinaryOutputStream", __LINE__);
    if (count > 0)
        writeImpl(buffer, count);
}

} // namespace Nolvex::Io
