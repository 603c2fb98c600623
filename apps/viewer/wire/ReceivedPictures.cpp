// SPDX-License-Identifier: MIT
#include "apps/viewer/wire/ReceivedPictures.h"

#include <algorithm>
#include <new>
#include <string>
#include <utility>

namespace Nolvex::Viewer {

namespace {

// So many ends of pictures may wait for the viewer. A viewer whose main thread is busy for long takes no
// more pictures until then.
constexpr std::size_t MAX_WAITING_ENDS = 4096;

bool needsNoCopy(const ReceivedPicture& picture)
{
    return picture.hasNewPixels() ? picture.isComplete() : picture.hasNewProgress();
}

// Throws std::bad_alloc.
void takeNewsOf(const String& name, ReceivedPicture& picture, const ReceivedPictures::Keep& keep,
                Array<PictureNews>& all)
{
    if (!picture.hasNewPixels() && !picture.hasNewProgress())
        return;
    PictureNews news;
    news.name = name;
    news.changed = picture.changedArea();
    news.alpha = picture.alpha();
    news.progress = picture.progress();
    news.isComplete = picture.isComplete();
    all.reserve(all.size() + 1);
    if (picture.hasNewPixels())
        news.image = std::make_unique<Image>(picture.takeImage());
    picture.noteTold();
    all.push_back(std::move(news));
    if (picture.hasGivenPixels())
        picture.lend(keep(all.back()));
}

Optional<String> checkPixelCount(ArrayView<const std::byte> pixels, const Bucket& area, PixelFormat format)
{
    const std::int64_t expected = pixelBytes(area, format);
    if (static_cast<std::int64_t>(pixels.size()) == expected)
        return {};
    return L"The pixels of this rectangle take " + String(std::to_wstring(expected)) + L" bytes, not " +
           String(std::to_wstring(pixels.size())) + L".";
}

String unknownPicture(const String& name)
{
    return L"There is no open picture \"" + name + L"\".";
}

} // namespace

Optional<String> ReceivedPictures::apply(Connection connection, const XmlString& header,
                                         ArrayView<const std::byte> pixels)
try {
    const Expected<WireCommand, String> command = parseWireCommand(header);
    if (!command)
        return command.error();
    if (hasPixels(command->action) == pixels.empty())
        return String(pixels.empty() ? L"This command needs pixels: send it as raw data."
                                     : L"This command takes no pixels: send it as an XML string.");
    return carryOut(connection, *command, pixels);

} catch (const std::bad_alloc&) {
    return String(L"The viewer has not enough memory.");
}

Optional<String> ReceivedPictures::carryOut(Connection connection, const WireCommand& command,
                                            ArrayView<const std::byte> pixels)
{
    switch (command.action) {
    case WireAction::OPEN:
    case WireAction::CREATE:
        return begin(connection, command, pixels);
    case WireAction::UPDATE:
    case WireAction::PROGRESS:
        return change(connection, command, pixels);
    case WireAction::CLOSE:
        return close(command.name);
    }
    return {};
}

Optional<String> ReceivedPictures::begin(Connection connection, const WireCommand& command,
                                         ArrayView<const std::byte> pixels)
{
    if (Optional<String> refusal = checkRoom(command))
        return refusal;
    if (command.action == WireAction::OPEN) {
        if (Optional<String> refusal = checkPixelCount(pixels, command.area, command.format))
            return refusal;
    }
    Expected<ReceivedPicture, String> picture =
        ReceivedPicture::create(command.area.size(), command.format, command.gamma, command.alpha);
    if (!picture)
        return picture.error();
    if (command.action == WireAction::OPEN)
        picture->write(command.area, pixels);
    picture->setProgress(command.progress.value_or(command.action == WireAction::OPEN ? 1.0f : 0.0f));
    m_pictures.insert_or_assign(command.name, Entry{*std::move(picture), {connection}});
    return {};
}

// The picture that has the name now makes room for the new one.
Optional<String> ReceivedPictures::checkRoom(const WireCommand& command) const
{
    if (m_ends.size() >= MAX_WAITING_ENDS)
        return String(L"The viewer is busy.");
    const std::int64_t size = pixelBytes(command.area, command.format);
    if (size > m_limits.maxPictureBytes)
        return L"The picture is too large: at most " + String(std::to_wstring(m_limits.maxPictureBytes)) +
               L" bytes are possible.";
    const auto replaced = m_pictures.find(command.name);
    const bool isNew = replaced == m_pictures.end();
    if (isNew && m_pictures.size() >= m_limits.maxPictures)
        return L"There are as many open pictures as the viewer takes, which is " +
               String(std::to_wstring(m_limits.maxPictures)) + L".";
    if (totalBytes() - (isNew ? 0 : replaced->second.picture.byteCount()) + size > m_limits.maxTotalBytes)
        return String(L"The open pictures would take more memory than the viewer has for them.");
    return {};
}

Optional<String> ReceivedPictures::change(Connection connection, const WireCommand& command,
                                          ArrayView<const std::byte> pixels)
{
    const auto found = m_pictures.find(command.name);
    if (found == m_pictures.end())
        return unknownPicture(command.name);
    ReceivedPicture& picture = found->second.picture;
    if (command.action == WireAction::UPDATE) {
        if (command.area.intersected(picture.bounds()) != command.area)
            return String(L"The rectangle is not inside of the picture.");
        if (Optional<String> refusal = checkPixelCount(pixels, command.area, picture.descriptor().format))
            return refusal;
        picture.write(command.area, pixels);
    }
    if (command.progress)
        picture.setProgress(*command.progress);
    found->second.users.insert(connection);
    return {};
}

Optional<String> ReceivedPictures::close(const String& name)
{
    if (m_pictures.erase(name) == 0)
        return unknownPicture(name);
    PictureNews news;
    news.name = name;
    news.end = PictureNews::End::CLOSED;
    m_ends.push_back(std::move(news));
    return {};
}

void ReceivedPictures::forget(const String& name)
{
    m_pictures.erase(name);
    std::erase_if(m_ends, [&name](const PictureNews& news) { return news.name == name; });
}

void ReceivedPictures::endConnection(Connection connection, const String& reason)
{
    for (auto next = m_pictures.begin(); next != m_pictures.end();) {
        const auto current = next++;
        std::set<Connection>& users = current->second.users;
        if (users.erase(connection) == 0 || !users.empty())
            continue;
        auto node = m_pictures.extract(current);
        leave(node.key(), std::move(node.mapped()), reason);
    }
}

// Nothing changes the picture any more, so that its pixels can be given away without a copy.
void ReceivedPictures::leave(const String& name, Entry entry, const String& reason)
{
    ReceivedPicture& picture = entry.picture;
    PictureNews news;
    news.name = name;
    news.changed = picture.changedArea();
    news.alpha = picture.alpha();
    news.progress = picture.progress();
    news.isComplete = picture.isComplete();
    if (!news.isComplete) {
        news.end = PictureNews::End::LOST;
        news.text = reason;
        picture.setProgress(1.0f);
    }
    if (!news.changed.isEmpty())
        news.image = std::make_unique<Image>(picture.takeImage());
    if (news.image || news.end != PictureNews::End::NONE || picture.hasNewProgress())
        m_ends.push_back(std::move(news));
}

bool ReceivedPictures::hasNews() const
{
    return !m_ends.empty() || std::any_of(m_pictures.begin(), m_pictures.end(), [](const auto& named) {
        return named.second.picture.hasNewPixels() || named.second.picture.hasNewProgress();
    });
}

bool ReceivedPictures::hasNewsWithoutCopy() const
{
    return !m_ends.empty() || std::any_of(m_pictures.begin(), m_pictures.end(), [](const auto& named) {
        return needsNoCopy(named.second.picture);
    });
}

Array<PictureNews> ReceivedPictures::takeNews(const Keep& keep, bool mayCopy)
{
    // A name that has ended may be in use again, so the ends come first.
    Array<PictureNews> all = std::exchange(m_ends, {});
    for (auto next = m_pictures.begin(); next != m_pictures.end();) {
        const auto current = next++;
        if (!mayCopy && !needsNoCopy(current->second.picture))
            continue;
        try {
            takeNewsOf(current->first, current->second.picture, keep, all);
        } catch (const std::bad_alloc&) {
            // A picture whose pixels have gone with the news cannot be changed any more.
            if (current->second.picture.hasGivenPixels())
                m_pictures.erase(current);
        }
    }
    return all;
}

std::int64_t ReceivedPictures::totalBytes() const
{
    std::int64_t sum = 0;
    for (const auto& [name, entry] : m_pictures)
        sum += entry.picture.byteCount();
    for (const PictureNews& news : m_ends) {
        if (news.image)
            sum += static_cast<std::int64_t>(news.image->rowBytes()) * news.image->descriptor().height;
    }
    return sum;
}

} // namespace Nolvex::Viewer
