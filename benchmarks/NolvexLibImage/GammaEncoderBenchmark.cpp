// SPDX-License-Identifier: MIT
#include "NolvexLibImage/pixels/GammaEncoder.h"
#include "support/PairedRatio.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

namespace Nolvex::Benchmarks {

namespace {

constexpr std::size_t PIXELS = std::size_t(1024) * 512;
constexpr float EXPONENT = 1.0f / 2.2f;

struct Picture
{
    std::vector<Rgb> floats = std::vector<Rgb>(PIXELS);
    std::vector<std::uint8_t> bytes = std::vector<std::uint8_t>(PIXELS * 3);
};

std::shared_ptr<Picture> makePicture()
{
    auto picture = std::make_shared<Picture>();
    std::minstd_rand random; // NOLINT(cert-msc32-c,cert-msc51-cpp): the same picture every time
    std::uniform_real_distribution<float> value(0.0f, 1.05f);
    for (Rgb& pixel : picture->floats)
        pixel = {value(random), value(random), value(random), 1.0f};
    return picture;
}

std::uint8_t encodePower(float value)
{
    const float power = std::pow(value, EXPONENT);
    return static_cast<std::uint8_t>(std::lrint(std::clamp(power, 0.0f, 1.0f) * 255.0f));
}

void encodeByPower(Picture& picture)
{
    std::uint8_t* out = picture.bytes.data();
    for (const Rgb& pixel : picture.floats) {
        *out++ = encodePower(pixel.r);
        *out++ = encodePower(pixel.g);
        *out++ = encodePower(pixel.b);
    }
    benchmark::ClobberMemory();
}

/// The encoder is made anew each time, because the price includes the making of its table.
void encodeByEncoder(Picture& picture)
{
    const Pixels::GammaEncoder encoder(EXPONENT, PIXELS);
    encoder.encode(picture.floats.data(), picture.bytes.data(), nullptr, PIXELS);
    benchmark::ClobberMemory();
}

const Figure ENCODE("gamma22_encode", 7.5, [] {
    const auto picture = makePicture();
    return Contest{[picture] { encodeByPower(*picture); }, [picture] { encodeByEncoder(*picture); }};
});

} // namespace

} // namespace Nolvex::Benchmarks
