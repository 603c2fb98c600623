// SPDX-License-Identifier: MIT
// The gallery shows every control in every state. With --screenshots FOLDER it writes a picture of each page
// and each dialog in each skin to the folder and ends.
#include "NolvexLib/Exception.h"
#include "NolvexLibWx/NolvexLibWx.h"
#include "apps/gallery/GalleryFrame.h"
#include "apps/program/DialogIcon.h"
#include "apps/program/ScreenshotTimer.h"
#include "apps/program/WindowPicture.h"
#include "apps/program/platform/ErrorReport.h"
#include "apps/program/platform/ProcessArguments.h"

#include <wx/toplevel.h>
#include <wx/weakref.h>

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

/// Goes through all pages and their windows in all skins, and takes a picture in each turn.
class Screenshots
{
public:
    Screenshots(Gallery::GalleryFrame& frame, const Io::Path& folder) : m_frame(frame), m_folder(folder)
    {
        for (int skin = 0; skin < Gallery::GalleryFrame::SKIN_COUNT; ++skin)
            addPictures(skin);
    }

    // A turn takes the picture that the turn before it has prepared, and prepares the next picture.
    Optional<String> takeTurn()
    {
        if (m_turn > 0) {
            const wxWindow& shown = m_window ? static_cast<wxWindow&>(*m_window) : m_frame;
            String error =
                Program::writeWindowPicture(shown, m_folder / Io::Path(m_pictures[m_turn - 1].fileName));
            if (m_window)
                m_window->Close();
            if (!error.isEmpty() || m_turn == m_pictures.size())
                return error;
        }
        m_window = m_pictures[m_turn++].prepare();
        if (m_window)
            m_window->Show();
        return {};
    }

private:
    struct Picture
    {
        String fileName;
        // Returns null if the picture is that of the frame.
        Function<wxTopLevelWindow*()> prepare;
    };

    void addPictures(int skin)
    {
        const Array<Gallery::Page>& pages = m_frame.pages();
        for (std::size_t page = 0; page < pages.size(); ++page) {
            m_pictures.push_back({fileName(pages[page].title, skin), [this, skin, page] {
                                      if (page == 0)
                                          m_frame.chooseSkin(skin);
                                      m_frame.showPage(page);
                                      return static_cast<wxTopLevelWindow*>(nullptr);
                                  }});
            for (const Gallery::Window& window : pages[page].windows) {
                m_pictures.push_back(
                    {fileName(window.title, skin), [this, window] { return window.make(&m_frame); }});
            }
        }
    }

    static String fileName(const String& title, int skin)
    {
        String name = title + L"-" + Gallery::GalleryFrame::skinName(skin) + L".png";
        return name.replaceAll(L" ", L"-");
    }

    Gallery::GalleryFrame& m_frame;
    Io::Path m_folder;
    Array<Picture> m_pictures;
    wxWeakRef<wxTopLevelWindow> m_window; // whose picture is taken next
    std::size_t m_turn = 0;
};

int show(const Io::Path& screenshots)
{
    auto* frame = new Gallery::GalleryFrame;
    Program::useIconInDialogs(*frame);
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
