// SPDX-License-Identifier: MIT
#include "NolvexLib/Version.h"
#include "apps/viewer/reading/openimageio/OpenImageIoReader.h"

#include <string_view>

#define NOLVEX_MODULE_EXPORT __attribute__((visibility("default")))

// OtherFormatsFunction of OtherFormats.h
extern "C" NOLVEX_MODULE_EXPORT const Nolvex::Viewer::PictureReader*
nolvexOtherFormatsReader(const char* version)
{
    static const Nolvex::Viewer::OpenImageIoReader READER;
    return std::string_view(version) == NOLVEX_VERSION ? &READER : nullptr;
}
