// SPDX-License-Identifier: MIT
// Fuzzes the pictures that come over the wire, without the wire: several messages of two connections, and
// what the viewer does meanwhile.
#include "Fuzz.h"

#include "apps/viewer/wire/ReceivedPictures.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>

using Nolvex::Fuzz::require;

namespace {

using namespace Nolvex;
using Viewer::PictureNews;
using Viewer::ReceivedPictures;

constexpr std::int64_t MAX_BYTES = 1 << 16;

Viewer::WireLimits smallLimits()
{
    Viewer::WireLimits limits;
    limits.maxPictureBytes = MAX_BYTES / 2;
    limits.maxTotalBytes = MAX_BYTES;
    limits.maxPictures = 4;
    return limits;
}

char take(std::string_view& input)
{
    if (input.empty())
        return 0;
    const char first = input.front();
    input.remove_prefix(1);
    return first;
}

void takeNews(ReceivedPictures& pictures, bool mayCopy)
{
    const auto keep = [](PictureNews& news) { return std::shared_ptr<const Image>(std::move(news.image)); };
    for (const PictureNews& news : pictures.takeNews(keep, mayCopy)) {
        require(!news.name.isEmpty() && news.progress >= 0.0f && news.progress <= 1.0f);
        require(news.isComplete == (news.progress >= 1.0f));
        if (news.image)
            require(news.changed.min.x >= 0 && news.changed.max.x <= news.image->descriptor().width &&
                    news.changed.min.y >= 0 && news.changed.max.y <= news.image->descriptor().height);
    }
    require(!mayCopy || !pictures.hasNews());
}

// A header up to its zero byte, the length of the body, and the body.
void applyMessage(ReceivedPictures& pictures, ReceivedPictures::Connection connection,
                  std::string_view& input)
{
    const std::string_view text = input.substr(0, input.find('\0'));
    input.remove_prefix(std::min(input.size(), text.size() + 1));
    const auto length = static_cast<std::uint8_t>(take(input));
    const std::string_view body = input.substr(0, length);
    input.remove_prefix(body.size());
    const auto header = XmlString::fromUtf8(text);
    if (!header)
        return;
    const auto refusal =
        pictures.apply(connection, *header, {reinterpret_cast<const std::byte*>(body.data()), body.size()});
    require(!refusal || !refusal->isEmpty());
    require(pictures.totalBytes() <= MAX_BYTES);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string_view input = Nolvex::Fuzz::asText(data, size);
    ReceivedPictures pictures(smallLimits());
    while (!input.empty()) {
        switch (take(input)) {
        case 'n':
            takeNews(pictures, true);
            break;
        case 'w':
            takeNews(pictures, false);
            break;
        case 'f':
            pictures.forget(L"a");
            break;
        case 'e':
            pictures.endConnection(1, L"The end.");
            break;
        case '2':
            applyMessage(pictures, 2, input);
            break;
        default:
            applyMessage(pictures, 1, input);
        }
    }
    pictures.endConnection(1, L"The end.");
    pictures.endConnection(2, L"The end.");
    takeNews(pictures, false);
    require(pictures.totalBytes() == 0);
    return 0;
}
