// SPDX-License-Identifier: MIT
#include "apps/viewer/ImageFile.h"

#include "NolvexLib/Array.h"
#include "NolvexLib/Exception.h"
#include "NolvexLibWx/StringConversions.h"
#include "apps/viewer/FileContent.h"
#include "apps/viewer/LayeredFile.h"
#include "apps/viewer/reading/PictureReaders.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <new>
#include <system_error>
#include <utility>

namespace Nolvex::Viewer {

namespace {

const wchar_t* const NO_MEMORY = L"there is not enough memory for it";

Unexpected<String> refuse(const String& name, const String& reason)
{
    String message = L"The picture \"" + name + L"\" cannot be shown: " + reason;
    if (!reason.isEmpty() && reason[reason.length() - 1] != L'.')
        message += L".";
    return {message};
}

// Reading the bytes takes about this share of the time that opening a picture takes.
constexpr float BYTES_SHARE = 0.2f;

// Returns a function that tells the progress about a part of the work.
Progress partOf(const Progress& whole, float begin, float end)
{
    if (!whole)
        return {};
    return [whole, begin, end](float share) { return whole(begin + (end - begin) * share); };
}

bool hasReadableExtension(const Io::Path& file)
{
    const wxString extension = Wx::toWxString(file.extension());
    return std::ranges::any_of(readableExtensions(), [&extension](const String& readable) {
        return extension.IsSameAs(Wx::toWxString(readable), false);
    });
}

Array<Io::Path> picturesIn(const Io::Path& folder)
{
    Array<std::filesystem::path> found;
    std::error_code ended;
    for (std::filesystem::directory_iterator entry(folder.native(), ended), end; !ended && entry != end;
         entry.increment(ended)) {
        std::error_code ignored;
        if (hasReadableExtension(entry->path()) && entry->is_regular_file(ignored))
            found.push_back(entry->path());
    }
    std::ranges::sort(found);
    return {found.begin(), found.end()};
}

// What a picture is called, and what it is called when it cannot be shown.
struct Names
{
    String name;
    String inErrors;
};

Expected<SharedPicture, String> readLayer(const Names& names, const std::shared_ptr<const LayeredFile>& file,
                                          std::size_t layer, const ReadingProgress& progress)
{
    Expected<ReadImage, String> read = file->read(layer, progress);
    if (!read)
        return refuse(names.inErrors, read.error());
    return SharedPicture(std::make_shared<const Picture>(names.name, std::move(*read), file, layer));
}

// The main layer has the place 0.
std::size_t placeOf(const String& layer, const Array<PictureLayer>& layers)
{
    const auto found = std::ranges::find(layers, layer, &PictureLayer::name);
    return layer.isEmpty() || found == layers.end() ? 0 : static_cast<std::size_t>(found - layers.begin());
}

} // namespace

Array<Io::FileFilter> readableFilters()
{
    Io::FileFilter pictures{L"Pictures", {}};
    for (const String& extension : readableExtensions())
        pictures.patterns.push_back(L"*." + extension);
    return {pictures, {L"All files", {L"*"}}};
}

Array<Io::Path> withFoldersOpened(const Array<Io::Path>& filesAndFolders)
{
    Array<Io::Path> files;
    for (const Io::Path& path : filesAndFolders) {
        std::error_code ignored;
        if (std::filesystem::is_directory(path.native(), ignored)) {
            const Array<Io::Path> inside = picturesIn(path);
            files.insert(files.end(), inside.begin(), inside.end());
        } else {
            files.push_back(path);
        }
    }
    return files;
}

Expected<SharedPicture, String> readPictureFile(const Io::Path& path, const ReadingProgress& progress)
{
    return readPictureFile(path, String(), progress);
}

Expected<SharedPicture, String> readPictureFile(const Io::Path& path, const String& layer,
                                                const ReadingProgress& progress)
{
    try {
        Expected<Array<std::byte>, String> content =
            readFileContent(path, partOf(progress, 0.0f, BYTES_SHARE));
        if (!content)
            return refuse(path.nativeStr(), content.error());
        const auto file = LayeredFile::open(std::move(*content));
        if (!file)
            return refuse(path.nativeStr(), file.error());
        return readLayer({path.fileName(), path.nativeStr()}, *file, placeOf(layer, (*file)->layers()),
                         partOf(progress, BYTES_SHARE, 1.0f));
    } catch (const Exception& failure) {
        return Unexpected{String::fromUtf8(failure.what())};
    } catch (const std::bad_alloc&) {
        return refuse(path.nativeStr(), NO_MEMORY);
    }
}

Expected<SharedPicture, String> readOtherLayer(const Picture& picture, std::size_t layer,
                                               const ReadingProgress& progress)
{
    if (picture.file() == nullptr)
        return refuse(picture.name(), L"it has no other layers");
    try {
        return readLayer({picture.name(), picture.name()}, picture.file(), layer, progress);
    } catch (const std::bad_alloc&) {
        return refuse(picture.name(), NO_MEMORY);
    }
}

String openedMessage(const Picture& picture)
{
    String message = L"Opened \"" + picture.name() + L"\", " + picture.sizeText() + L" pixels.";
    for (const String& omission : picture.omissions())
        message += L" " + omission;
    return message;
}

} // namespace Nolvex::Viewer
