// SPDX-License-Identifier: MIT
// EndlessSaver FILE.png TIMES: saves a large picture to the file so many times, and prints a line before
// each.
#include "apps/program/platform/ProcessArguments.h"
#include "apps/viewer/writing/PictureWriter.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

int main(int argc, char** argv)
{
    using namespace Nolvex;
    const Array<Io::Path> arguments = Program::processArguments(argc, argv);
    if (arguments.size() != 2)
        return 2;
    constexpr int LENGTH = 1500;
    Image image = *Image::create(LENGTH, LENGTH, PixelFormat::UINT8_GREY, 1.0f);
    std::size_t value = 1;
    for (int y = 0; y < LENGTH; ++y) {
        for (std::byte& pixel : image.row(y)) {
            value = value * 6364136223846793005u + 1442695040888963407u;
            pixel = static_cast<std::byte>(value >> 56);
        }
    }
    const Viewer::Picture picture(L"noise", std::move(image));
    const int times = std::atoi(arguments[1].nativeStr().toUtf8().c_str());
    for (int i = 0; i < times; ++i) {
        std::puts("saving");
        std::fflush(stdout);
        const Optional<String> failure =
            Viewer::writePictureFile(arguments[0], picture, ImageFormat::PNG, {ColorFormat::UINT8_RGB, false},
                                     [](float) { return true; });
        if (failure) {
            std::fprintf(stderr, "%s\n", failure->toUtf8().c_str());
            return 1;
        }
    }
    return 0;
}
