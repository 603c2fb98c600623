// SPDX-License-Identifier: MIT
#include "tools/render-sample/PathTracer.h"

#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>

namespace {

using namespace Nolvex::RenderSample;

constexpr int LARGEST_NUMBER = 16384;

int usage()
{
    std::cerr << "usage: render-sample OUTPUT.pfm [WIDTH HEIGHT SAMPLES]\n"
                 "Renders the viewer's sample picture into a Portable Float Map in linear light.\n"
                 "Sizes are in pixels, SAMPLES are light paths a pixel; without them 448 280 2400.\n";
    return 2;
}

bool parse(const char* text, int& number)
{
    const char* end = text + std::strlen(text);
    const auto [stop, error] = std::from_chars(text, end, number);
    if (error == std::errc() && stop == end && number >= 1 && number <= LARGEST_NUMBER) {
        return true;
    }
    std::cerr << "render-sample: not a number from 1 to " << LARGEST_NUMBER << ": " << text << '\n';
    return false;
}

void append(std::string& bytes, double value)
{
    const auto bits = std::bit_cast<std::uint32_t>(static_cast<float>(value));
    for (int shift = 0; shift < 32; shift += 8) {
        bytes.push_back(static_cast<char>((bits >> shift) & 0xFFu));
    }
}

/// A Portable Float Map stores its rows from the bottom up. The negative scale means little endian.
std::string render(const Frame& frame)
{
    std::string bytes =
        "PF\n" + std::to_string(frame.width) + ' ' + std::to_string(frame.height) + "\n-1.0\n";
    for (int row = frame.height - 1; row >= 0; --row) {
        for (int column = 0; column < frame.width; ++column) {
            const Vector3 colour = tracedPixel(frame, column, row);
            append(bytes, colour.x);
            append(bytes, colour.y);
            append(bytes, colour.z);
        }
        std::cerr << '\r' << row << " rows left   " << std::flush;
    }
    std::cerr << '\n';
    return bytes;
}

/// The file is opened before the minutes of rendering, so that a wrong path is reported at once.
int run(const char* output, const Frame& frame)
{
    std::ofstream file(output, std::ios::binary);
    if (!file) {
        std::cerr << "render-sample: cannot write " << output << '\n';
        return 1;
    }
    file << render(frame);
    file.close();
    if (!file) {
        std::cerr << "render-sample: writing " << output << " failed\n";
        return 1;
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    if ((argc != 2 && argc != 5) || argv[1][0] == '-') {
        return usage();
    }
    Frame frame;
    if (argc == 5 &&
        !(parse(argv[2], frame.width) && parse(argv[3], frame.height) && parse(argv[4], frame.samples))) {
        return usage();
    }
    return run(argv[1], frame);
}
