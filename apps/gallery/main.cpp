// SPDX-License-Identifier: MIT
// The gallery shows every control in every state. With --screenshots FOLDER it writes a picture of each page
// in each skin to the folder and ends.
#include "NolvexLib/Exception.h"
#include "NolvexLibWx/NolvexLibWx.h"
#include "apps/gallery/GalleryFrame.h"
#include "apps/program/ScreenshotTimer.h"
#include "apps/program/WindowPicture.h"
#include "apps/program/platform/ErrorReport.h"
#include "apps/program/platform/ProcessArguments.h"

#include <cstdio>
#include <filesystem>
#include <new>

namespace {

using namespace Nolvex;

int fail(const String& message)
{
    Program::reportError("nolvex-gallery", message.toUtf8());
    return 1;
}

/// Goes through all pages in all skins and takes a picture in each turn.
class Screenshots
{
public:
    Screenshots(Gallery::GalleryFrame& frame, const Io::Path& folder) : m_frame(frame), m_folder(folder) {}

    Optional<String> takeTurn()
    {
        // A turn takes the picture of the page that the turn before it has shown, and shows the next page.
        String error;
        if (m_turn > 0)
            error = Program::writeWindowPicture(m_frame, m_folder / Io::Path(fileName(m_turn - 1)));
        if (!error.isEmpty() || m_turn == turns())
            return error;
        if (m_turn % pages() == 0)
            m_frame.chooseSkin(static_cast<int>(m_turn / pages()));
        m_frame.showPage(m_turn % pages());
        ++m_turn;
        return {};
    }

private:
    std::size_t pages() const { return m_frame.pages().size(); }

    std::size_t turns() const { return pages() * Gallery::GalleryFrame::SKIN_COUNT; }

    String fileName(std::size_t turn) const
    {
        String name = m_frame.pages()[turn % pages()].title + L"-" +
                      Gallery::GalleryFrame::skinName(static_cast<int>(turn / pages())) + L".png";
        return name.replaceAll(L" ", L"-");
    }

    Gallery::GalleryFrame& m_frame;
    Io::Path m_folder;
    std::size_t m_turn = 0;
};

int show(const Io::Path& screenshots)
{
    auto* frame = new Gallery::GalleryFrame;
    frame->Show();
    if (screenshots.isEmpty())
        return LibWx::runEventLoop();
    constexpr int PERIOD_MS = 400;
    Screenshots pictures(*frame, screenshots);
    const Program::ScreenshotTimer timer(*frame, PERIOD_MS, [&] { return pictures.takeTurn(); });
    LibWx::runEventLoop();
    return timer.error().isEmpty() ? 0 : fail(timer.error());
}

} // namespace

int main(int argc, char** argv)
{
    const Array<Io::Path> arguments = Program::processArguments(argc, argv);
    const bool takesPictures = arguments.size() == 2 && arguments[0] == Io::Path(L"--screenshots");
    if (!arguments.empty() && !takesPictures)
        return fail(L"usage: nolvex-gallery [--screenshots FOLDER]");
    const Io::Path folder = takesPictures ? arguments[1] : Io::Path();
    if (takesPictures && !std::filesystem::is_directory(folder.native()))
        return fail(L"There is no folder \"" + folder.nativeStr() + L"\".");
    try {
        LibWx::startup(LibWx::ApplicationType::APPLICATION);
    } catch (const Exception& failure) {
        return fail(String::fromUtf8(failure.what()));
    }
    int result = 1;
    try {
        result = show(folder);
    } catch (const std::bad_alloc&) {
        fail(L"There is not enough memory for the gallery.");
    }
    LibWx::shutdown();
    return result;
}
