// SPDX-License-Identifier: MIT
#include "NolvexLib/WindowHandle.h"
#include "NolvexLibWx/FileDialogs.h"
#include "NolvexLibWx/MessageDialog.h"
#include "NolvexLibWx/NolvexLibWx.h"
#include "NolvexLibWx/c/detail/Guard.h"
#include "NolvexLibWx/c/detail/Texts.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

using namespace Nolvex;

struct NolvexPaths
{
    std::vector<std::string> paths;
};

namespace {

Array<Io::FileFilter> filtersOf(const NolvexFileFilter* filters, std::size_t count)
{
    Array<Io::FileFilter> result;
    for (std::size_t index = 0; index < count; ++index) {
        Io::FileFilter filter{C::textOf(filters[index].description), {}};
        const std::string patterns = filters[index].patterns == nullptr ? "" : filters[index].patterns;
        for (std::size_t begin = 0; begin < patterns.size();) {
            const std::size_t end = std::min(patterns.find(';', begin), patterns.size());
            if (end > begin)
                filter.patterns.push_back(
                    String::fromUtf8(std::string_view(patterns).substr(begin, end - begin)));
            begin = end + 1;
        }
        result.push_back(std::move(filter));
    }
    return result;
}

template<class Ask>
NolvexStatus askForPath(char** path, const Ask& ask)
{
    return C::guarded([&] {
        if (!LibWx::isStarted())
            return C::failed("The library has not been started.");
        const Io::Path chosen = ask();
        if (chosen.isEmpty())
            return NOLVEX_CANCELLED;
        *path = C::copyOf(C::bytesOf(chosen));
        return NOLVEX_OK;
    });
}

} // namespace

NolvexStatus nolvexShowMessage(void* owner, const char* title, const char* message, NolvexIcon icon,
                               NolvexButtons buttons)
{
    return C::guarded([&] {
        if (!LibWx::isStarted())
            return C::failed("The library has not been started.");
        if (buttons < NOLVEX_BUTTONS_OK || buttons > NOLVEX_BUTTONS_YES_NO)
            return C::failed("These buttons do not exist.");
        if (icon < NOLVEX_ICON_NONE || icon > NOLVEX_ICON_SUCCESS)
            return C::failed("This icon does not exist.");
        const auto show = buttons == NOLVEX_BUTTONS_OK          ? &Wx::showOkDialog
                          : buttons == NOLVEX_BUTTONS_OK_CANCEL ? &Wx::showOkCancelDialog
                                                                : &Wx::showYesNoDialog;
        const bool agreed = show(WindowHandle{owner}, C::textOf(title), C::textOf(message),
                                 static_cast<Wx::MessageDialogIcon>(icon));
        return agreed ? NOLVEX_OK : NOLVEX_CANCELLED;
    });
}

NolvexStatus nolvexChooseFileToOpen(void* owner, const char* title, const NolvexFileFilter* filters,
                                    size_t filterCount, const char* initial, char** path)
{
    return askForPath(path, [&] {
        return Wx::filenameOpenDlg(WindowHandle{owner}, C::textOf(title), filtersOf(filters, filterCount),
                                   C::pathOf(initial));
    });
}

NolvexStatus nolvexChooseFileToSave(void* owner, const char* title, const NolvexFileFilter* filters,
                                    size_t filterCount, int askBeforeOverwriting, const char* initial,
                                    char** path)
{
    return askForPath(path, [&] {
        const Flags<Wx::FileSelect> flags =
            askBeforeOverwriting != 0 ? Flags(Wx::FileSelect::OverwritePrompt) : Flags<Wx::FileSelect>();
        return Wx::filenameSaveDlg(WindowHandle{owner}, C::textOf(title), filtersOf(filters, filterCount),
                                   flags, C::pathOf(initial));
    });
}

NolvexStatus nolvexChooseFolder(void* owner, const char* title, const char* initial, char** path)
{
    return askForPath(
        path, [&] { return Wx::dirSelectDlg(WindowHandle{owner}, C::textOf(title), C::pathOf(initial)); });
}

NolvexStatus nolvexChooseFilesToOpen(void* owner, const char* title, const NolvexFileFilter* filters,
                                     size_t filterCount, const char* initial, NolvexPaths** paths)
{
    return C::guarded([&] {
        if (!LibWx::isStarted())
            return C::failed("The library has not been started.");
        auto chosen = std::make_unique<NolvexPaths>();
        for (const Io::Path& path : Wx::multiFilenameOpenDlg(
                 WindowHandle{owner}, C::textOf(title), filtersOf(filters, filterCount), C::pathOf(initial)))
            chosen->paths.push_back(C::bytesOf(path));
        if (chosen->paths.empty())
            return NOLVEX_CANCELLED;
        *paths = chosen.release();
        return NOLVEX_OK;
    });
}

size_t nolvexPathCount(const NolvexPaths* paths)
{
    return paths->paths.size();
}

const char* nolvexPathAt(const NolvexPaths* paths, size_t index)
{
    return index < paths->paths.size() ? paths->paths[index].c_str() : nullptr;
}

void nolvexFreePaths(NolvexPaths* paths)
{
    delete paths;
}
