// SPDX-License-Identifier: MIT
#include "apps/viewer/PictureCommands.h"

#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/FileDialogs.h"
#include "NolvexLibWx/NativeWindows.h"
#include "apps/viewer/ClipboardPicture.h"
#include "apps/viewer/Command.h"
#include "apps/viewer/ImageFile.h"
#include "apps/viewer/PastedPicture.h"
#include "apps/viewer/Settings.h"
#include "apps/viewer/view/ImageView.h"

#include <wx/frame.h>
#include <wx/weakref.h>

#include <algorithm>
#include <utility>

namespace Nolvex::Viewer {

PictureCommands::PictureCommands(wxFrame& window, Workspace& workspace, ImageView& view, Settings& settings,
                                 Messages messages, AskForScreen ask)
    : m_window(window),
      m_workspace(workspace),
      m_view(view),
      m_settings(settings),
      m_messages(std::move(messages)),
      m_opening(workspace, m_messages),
      m_saving(window, settings,
               [this](const SaveTask& task, const Optional<String>& failure) { onSaved(task, failure); }),
      m_capture(std::move(ask), [this](const auto& captured) { onCaptured(captured); })
{
    m_workspace.observe([this](Flags<Workspace::Change>) { followWorkspace(); });
    bind();
}

void PictureCommands::bind()
{
    bindCommand(m_window, OPEN, [this] { onOpen(); });
    bindCommand(m_window, SAVE_AS, [this] { m_saving.saveAs(); });
    bindCommand(m_window, SAVE_VIEW, [this] { m_saving.saveView(m_view.wholeScene()); });
    bindCommand(m_window, PASTE, [this] { onPaste(); });
    bindCommand(m_window, CAPTURE_SCREEN, [this] { onCapture(false); });
    bindCommand(m_window, CAPTURE_REGION, [this] { onCapture(true); });
    bindCommand(m_window, NEXT_PICTURE, [this] { m_opening.step(1); });
    bindCommand(m_window, PREVIOUS_PICTURE, [this] { m_opening.step(-1); });
    bindCommand(m_window, RELOAD, [this] { onReload(); });
    bindCommand(m_window, CLOSE_PICTURE, [this] {
        if (const OpenPicture* const shown = m_workspace.current())
            close(shown->id);
    });
}

void PictureCommands::followWorkspace()
{
    m_saving.setPicture(m_workspace.current());
}

void PictureCommands::save(const Io::Path& file, ImageFormat format, const Wx::ImageSaveSettings& settings)
{
    m_saving.save({m_workspace.currentPicture(), file, format, settings});
}

void PictureCommands::onSaved(const SaveTask& task, const Optional<String>& failure)
{
    if (failure) {
        m_messages.complain(*failure);
        return;
    }
    const auto isSaved = [&task](const OpenPicture& open) {
        return !task.view && open.picture && &open.picture->image() == &task.picture->image();
    };
    const auto saved = std::ranges::find_if(m_workspace.pictures(), isSaved);
    if (saved != m_workspace.pictures().end())
        m_workspace.setFile(saved->id, task.file);
    m_messages.report(savedMessage(task));
}

bool PictureCommands::copy()
{
    const SharedPicture picture = m_view.picture();
    if (!picture) {
        m_messages.complain(L"There is no picture to copy.");
        return false;
    }
    const wxWeakRef<wxFrame> alive(&m_window);
    const Optional<String> failure =
        copyToClipboard(*picture, m_view.display(), Wx::toRgbBytes(m_view.GetBackgroundColour()));
    // Events run while a clipboard manager fetches the picture, and one of them may have closed the window.
    if (!alive)
        return !failure;
    if (failure)
        m_messages.complain(*failure);
    else
        m_messages.report(L"Copied the picture, " + picture->sizeText() + L" pixels.");
    return !failure;
}

void PictureCommands::onPaste()
{
    const wxWeakRef<wxFrame> alive(&m_window);
    const Expected<PastedContent, String> pasted = pasteFromClipboard();
    if (!alive)
        return;
    if (!pasted)
        m_messages.complain(pasted.error());
    else if (pasted->picture)
        m_opening.showUnsaved(pasted->picture);
    else
        m_opening.open(withFoldersOpened(pasted->files));
}

void PictureCommands::onOpen()
{
    const wxWeakRef<wxFrame> alive(&m_window);
    const OpenPicture* const shown = m_workspace.current();
    const bool hasFolder = shown != nullptr && !shown->file.isEmpty();
    const Io::Path folder = hasFolder ? shown->file.parentDirectory() : m_settings.lastFolder();
    const Stack<Io::Path> files = Wx::multiFilenameOpenDlg(Wx::getWindowNativeHandle(&m_window),
                                                           L"Open pictures", readableFilters(), folder);
    if (!alive || files.empty())
        return;
    const Array<Io::Path> chosen(files.begin(), files.end());
    m_settings.setLastFolder(chosen.front().parentDirectory());
    m_opening.open(chosen);
}

void PictureCommands::onReload()
{
    const OpenPicture* const shown = m_workspace.current();
    if (shown == nullptr)
        return;
    if (shown->canBeReadAgain())
        m_opening.reload(shown->id);
    else
        m_messages.complain(L"There is no file from which \"" + shown->name +
                            L"\" can be read again as it is. Open a saved file to see what it holds.");
}

void PictureCommands::capture()
{
    m_captureOfRegion = false;
    m_capture.start();
}

void PictureCommands::onCapture(bool ofRegion)
{
    if (m_capture.isRunning()) {
        m_messages.complain(L"The desktop is still being asked for a picture of the screen.");
        return;
    }
    m_captureOfRegion = ofRegion;
    m_region.reset();
    m_capture.startSoon();
}

void PictureCommands::onCaptured(const ScreenCaptureCommand::Result& captured)
{
    if (captured && m_captureOfRegion) {
        m_region = std::make_unique<ScreenRegionChoice>(
            m_window, *captured, [this](const Optional<wxRect>& region) { onRegion(region); });
    } else if (captured) {
        showCaptured(*captured);
    } else {
        m_messages.complain(captured.error());
    }
    m_window.Show();
}

void PictureCommands::onRegion(const Optional<wxRect>& region)
{
    const std::unique_ptr<ScreenRegionChoice> choice = std::move(m_region);
    if (!region)
        return;
    const Expected<SharedPicture, String> picture = partOf(choice->screen(), *region);
    if (picture)
        showCaptured(*picture);
    else
        m_messages.complain(picture.error());
}

void PictureCommands::showCaptured(const SharedPicture& picture)
{
    m_opening.showUnsaved(picture);
    m_messages.report(L"Captured the screen, " + picture->sizeText() + L" pixels.");
}

void PictureCommands::close(PictureId id)
{
    const wxWeakRef<wxFrame> alive(&m_window);
    const OpenPicture* const closed = m_workspace.find(id);
    // The user sees the picture that the question is about.
    if (closed != nullptr && closed->isUnsaved())
        m_workspace.setCurrent(id);
    const bool isShown = m_workspace.current() != nullptr && m_workspace.current()->id == id;
    if (isShown && !(m_saving.letGo() && alive))
        return;
    m_workspace.close(id);
    if (m_workspace.current() == nullptr && !m_workspace.pictures().empty())
        m_opening.show(m_workspace.pictures().front().id);
}

bool PictureCommands::letGoOfAll()
{
    const wxWeakRef<wxFrame> alive(&m_window);
    Array<PictureId> asked;
    if (const OpenPicture* const shown = m_workspace.current())
        asked.push_back(shown->id);
    if (!m_saving.letGo())
        return false;
    // Another picture may arrive while a question is open, and is asked about, too.
    while (alive) {
        const OpenPicture* const unsaved = firstUnsaved(asked);
        if (unsaved == nullptr)
            return true;
        asked.push_back(unsaved->id);
        m_workspace.setCurrent(unsaved->id);
        if (!m_saving.letGo())
            return false;
    }
    return false;
}

const OpenPicture* PictureCommands::firstUnsaved(const Array<PictureId>& asked) const
{
    const auto isLeft = [&asked](const OpenPicture& picture) {
        return picture.isUnsaved() && std::ranges::find(asked, picture.id) == asked.end();
    };
    const auto found = std::ranges::find_if(m_workspace.pictures(), isLeft);
    return found == m_workspace.pictures().end() ? nullptr : &*found;
}

void PictureCommands::stop()
{
    m_opening.cancel();
    m_capture.cancel();
    m_region.reset();
}

} // namespace Nolvex::Viewer
