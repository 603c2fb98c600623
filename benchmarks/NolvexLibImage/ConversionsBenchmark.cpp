// SPDX-License-Identifier: MIT
#include "NolvexLibImage/pixels/Conversions.h"
#include "NolvexLibImage/pixels/CpuLevel.h"
#include "support/PairedRatio.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>
#include <vector>

namespace Nolvex::Benchmarks {

namespace {

constexpr std::size_t PIXELS = std::size_t(3840) * 2160;
constexpr std::size_t FLOAT_BYTES = PIXELS * sizeof(Rgb);

/// One picture as floats, as bytes, and a second block of floats to copy to or to convert to.
struct Picture
{
    std::vector<Rgb> floats = std::vector<Rgb>(PIXELS);
    std::vector<Rgb> otherFloats = std::vector<Rgb>(PIXELS);
    std::vector<std::uint8_t> bytes = std::vector<std::uint8_t>(PIXELS * 4);
};

std::shared_ptr<Picture> makePicture()
{
    auto picture = std::make_shared<Picture>();
    std::minstd_rand random; // NOLINT(cert-msc32-c,cert-msc51-cpp): the same picture every time
    std::uniform_real_distribution<float> value(-0.1f, 1.1f);
    for (Rgb& pixel : picture->floats)
        pixel = {value(random), value(random), value(random), value(random)};
    return picture;
}

Work copyFloats(const std::shared_ptr<Picture>& picture)
{
    return [picture] {
        std::memcpy(picture->otherFloats.data(), picture->floats.data(), FLOAT_BYTES);
        benchmark::ClobberMemory();
    };
}

/// Compares `convert` with copying the floats. `level` holds during this work only, for example to measure
/// SSE2.
Contest againstCopy(void (*convert)(Picture&), Pixels::CpuLevel level)
{
    const auto picture = makePicture();
    Contest contest;
    contest.peer = copyFloats(picture);
    contest.ours = [picture, convert, level] {
        const Pixels::CpuLevel before = Pixels::cpuLevel();
        if (!Pixels::setCpuLevel(level))
            std::abort();
        convert(*picture);
        benchmark::ClobberMemory();
        if (!Pixels::setCpuLevel(before))
            std::abort();
    };
    return contest;
}

void toRgba8(Picture& picture)
{
    Pixels::rgbToRgba8(picture.floats.data(), picture.bytes.data(), PIXELS);
}

void toRgb8Alpha8(Picture& picture)
{
    Pixels::rgbToRgb8Alpha8(picture.floats.data(), picture.bytes.data(), picture.bytes.data() + 3 * PIXELS,
                            PIXELS);
}

void fromRgba8(Picture& picture)
{
    Pixels::rgba8ToRgb(picture.bytes.data(), picture.otherFloats.data(), PIXELS);
}

const Figure TO_RGBA8("float_to_rgba8", 0.90, [] { return againstCopy(toRgba8, Pixels::detectCpuLevel()); });
const Figure TO_RGBA8_SSE2("float_to_rgba8_sse2", 0.58,
                           [] { return againstCopy(toRgba8, Pixels::CpuLevel::SSE2); });
const Figure TO_RGB8_ALPHA8("float_to_rgb8_alpha8", 0.90,
                            [] { return againstCopy(toRgb8Alpha8, Pixels::detectCpuLevel()); });
const Figure FROM_RGBA8("rgba8_to_float", 1.0,
                        [] { return againstCopy(fromRgba8, Pixels::detectCpuLevel()); });

} // namespace

} // namespace Nolvex::Benchmarks
