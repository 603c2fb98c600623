// SPDX-License-Identifier: MIT
#include "apps/viewer/ImageFile.h"
#include "support/PairedRatio.h"

#include <benchmark/benchmark.h>

#include <ImfArray.h>
#include <ImfChannelList.h>
#include <ImfFrameBuffer.h>
#include <ImfHeader.h>
#include <ImfInputFile.h>
#include <ImfOutputFile.h>
#include <ImfThreading.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <thread>

namespace Nolvex::Benchmarks {

namespace {

constexpr int WIDTH = 7680;
constexpr int HEIGHT = 4320;

constexpr std::array<const char*, 4> CHANNELS{"R", "G", "B", "A"};
using FloatPixel = std::array<float, CHANNELS.size()>;

Imf::FrameBuffer frameBufferFor(FloatPixel* pixels)
{
    Imf::FrameBuffer buffer;
    for (std::size_t i = 0; i < CHANNELS.size(); ++i)
        buffer.insert(CHANNELS[i], Imf::Slice(Imf::FLOAT, reinterpret_cast<char*>(pixels) + i * sizeof(float),
                                              sizeof(FloatPixel), sizeof(FloatPixel) * WIDTH));
    return buffer;
}

/// A file of floats like those of a renderer: light that changes slowly, with noise.
class RenderedFile
{
public:
    RenderedFile() : m_path(std::filesystem::temp_directory_path() / "nolvex-benchmark-8k.exr")
    {
        Imf::setGlobalThreadCount(static_cast<int>(std::thread::hardware_concurrency()));
        Imf::Array<FloatPixel> pixels(static_cast<long>(WIDTH) * HEIGHT);
        std::mt19937 random(8); // NOLINT(cert-msc51-cpp): the same file in every run
        for (int y = 0; y < HEIGHT; ++y) {
            for (int x = 0; x < WIDTH; ++x) {
                const float light = static_cast<float>(x) / WIDTH + static_cast<float>(y) / HEIGHT;
                const float noise = static_cast<float>(random() % 1024) / 16384.0f;
                pixels[static_cast<long>(y) * WIDTH + x] = {light + noise, 0.5f * light + noise,
                                                            0.1f * light + noise, 1.0f};
            }
        }
        Imf::Header header(WIDTH, HEIGHT);
        header.compression() = Imf::ZIP_COMPRESSION;
        for (const char* channel : CHANNELS)
            header.channels().insert(channel, Imf::Channel(Imf::FLOAT));
        Imf::OutputFile file(m_path.string().c_str(), header);
        file.setFrameBuffer(frameBufferFor(pixels));
        file.writePixels(HEIGHT);
    }

    ~RenderedFile()
    {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }

    RenderedFile(const RenderedFile&) = delete;
    RenderedFile& operator=(const RenderedFile&) = delete;

    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

// Reads as the documentation of OpenEXR shows it.
void readByOpenExr(const std::filesystem::path& path)
{
    Imf::InputFile file(path.string().c_str());
    Imf::Array<FloatPixel> pixels(static_cast<long>(WIDTH) * HEIGHT);
    file.setFrameBuffer(frameBufferFor(pixels));
    file.readPixels(0, HEIGHT - 1);
    benchmark::DoNotOptimize(pixels[0]);
}

Contest openingAFile()
{
    const auto file = std::make_shared<RenderedFile>();
    return {[file] { readByOpenExr(file->path()); },
            [path = Io::Path(file->path())] {
                const auto picture = Viewer::readPictureFile(path);
                if (!picture)
                    std::abort();
                benchmark::DoNotOptimize((*picture)->size());
            }};
}

// The figure is the time in which OpenEXR reads the file into floats divided by the time in which the viewer
// has the picture. The goal is at most 1.3 times the time of OpenEXR.
const Figure OPEN_EXR("viewer_open_exr_8k", 1.0 / 1.3, openingAFile);

} // namespace

} // namespace Nolvex::Benchmarks
