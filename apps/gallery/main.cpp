// SPDX-License-Identifier: MIT
// The gallery: every control in every state. With --screenshots DIR it writes a picture of each page in each
// skin there and ends.
#include "NolvexLib/Exception.h"
#include "NolvexLibWx/NolvexLibWx.h"
#include "apps/gallery/GalleryFrame.h"
#include "apps/program/WindowPicture.h"
#include "apps/program/platform/ErrorReport.h"
#include "apps/program/platform/ProcessArguments.h"

#include <wx/timer.h>

#include <cstdio>
#include <filesystem>

namespace {

using namespace Nolvex;

int fail(const String& message)
{
    Program::reportError("nolvex-gallery", message.toUtf8());
    return 1;
}

// Goes through the pages and skins, a picture a turn, leaving the window system time to paint.
class ScreenshotTimer : public wxTimer
{
public:
    ScreenshotTimer(Gallery::GalleryFrame& frame, const Io::Path& folder) : m_frame(frame), m_folder(folder)
    {
        Start(PERIOD_MS);
    }

    void Notify() override
    {
        // The first turn shows the first page; each later one takes what the turn before has shown.
        if (m_turn > 0)
            m_error = Program::writeWindowPicture(m_frame, m_folder / Io::Path(fileName(m_turn - 1)));
        if (!m_error.isEmpty() || m_turn == turns()) {
            Stop();
            m_frame.Close();
            return;
        }
        if (m_turn % pages() == 0)
            m_frame.chooseSkin(static_cast<int>(m_turn / pages()));
        m_frame.showPage(m_turn % pages());
        ++m_turn;
    }

    const String& error() const { return m_error; }

private:
    static constexpr int PERIOD_MS = 400;

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
    String m_error;
};

int show(const Io::Path& screenshots)
{
    auto* frame = new Gallery::GalleryFrame;
    frame->Show();
    if (screenshots.isEmpty())
        return LibWx::runEventLoop();
    const ScreenshotTimer timer(*frame, screenshots);
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
    const int result = show(folder);
    LibWx::shutdown();
    return result;
}
