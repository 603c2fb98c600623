// SPDX-License-Identifier: MIT
#include "apps/gallery/Screenshots.h"

#include "apps/gallery/GalleryFrame.h"
#include "apps/gallery/Hand.h"
#include "apps/gallery/Skins.h"
#include "apps/program/WindowPicture.h"

#include <wx/panel.h>

#include <memory>
#include <utility>

namespace Nolvex::Gallery {

namespace {

// The numbers of turns in which the window system delivers input and paints, at least.
constexpr int STEP_TURNS = 2;
constexpr int PAINTING_TURNS = 2;

constexpr int MAX_TURNS = 300;      // for a state
constexpr int MAX_PAINT_TURNS = 25; // for a window, which may be covered
constexpr int MAX_ATTEMPTS = 10;    // at a state that lasts only for a moment

} // namespace

Screenshots::Screenshots(GalleryFrame& frame, const Io::Path& folder) : m_frame(frame), m_folder(folder)
{
    for (int skin = 0; skin < SKIN_COUNT; ++skin) {
        m_jobs.emplace_back([this, skin] {
            m_frame.chooseSkin(skin);
            return String();
        });
        for (std::size_t page = 0; page < frame.pages().size(); ++page)
            addPage(page, skin);
    }
}

Optional<String> Screenshots::takeTurn()
{
    if (m_turnsToWait > 0) {
        --m_turnsToWait;
        return {};
    }
    if (m_isReached) {
        if (!m_isReached()) {
            if (++m_turnsWaited < MAX_TURNS)
                return {};
            return L"The state \"" + m_awaited + L"\" was not reached.";
        }
        m_isReached = {};
    }
    if (m_done == m_jobs.size())
        return String();
    String error = m_jobs[m_done++]();
    return error.isEmpty() ? Optional<String>() : error;
}

void Screenshots::addPage(std::size_t page, int skin)
{
    const Page& shown = m_frame.pages()[page];
    m_jobs.emplace_back([this, page] {
        showPage(page);
        return String();
    });
    addPicture(shown.title, skin, [this] { return &m_frame; });
    for (const Window& window : shown.windows)
        addWindow(window, skin);
    if (!shown.scenes.empty())
        addPicture(L"State " + shown.title + L" at rest", skin, [this] { return m_frame.page(); });
    for (const Scene& scene : shown.scenes)
        addScene(page, scene, skin);
}

void Screenshots::addWindow(const Window& window, int skin)
{
    m_jobs.emplace_back([this, window] {
        m_window = window.make(&m_frame);
        awaitPaintOf(*m_window);
        m_window->Show();
        return String();
    });
    addPicture(window.title, skin, [this] { return m_window.get(); });
    m_jobs.emplace_back([this] {
        m_window->Close();
        m_turnsToWait = PAINTING_TURNS;
        return String();
    });
}

void Screenshots::addScene(std::size_t page, const Scene& scene, int skin)
{
    const String title = m_frame.pages()[page].title + L" " + scene.title;
    const std::size_t firstJob = m_jobs.size();
    for (const Scene::Step& step : scene.steps)
        addStep(step, title);
    addPicture(L"State " + title, skin, [this] { return m_frame.page(); });
    addCheck(page, scene, firstJob);
    addRest(page);
}

void Screenshots::addStep(const Scene::Step& step, const String& scene)
{
    m_jobs.emplace_back([this, step, scene] {
        m_turnsToWait = STEP_TURNS;
        if (step.isReached)
            await(scene, [this, isReached = step.isReached] { return isReached(*m_frame.page()); });
        step.act(*m_frame.page());
        return String();
    });
}

// Waits until the screen shows the same in two turns.
void Screenshots::addSettling(const Source& source, const String& title)
{
    m_jobs.emplace_back([this, source, title] {
        m_seen = {};
        await(title, [this, source] {
            const wxWindow* const window = source();
            if (window == nullptr)
                return true;
            BitmapImpl<Rgb> seen = Program::captureWindow(*window);
            const bool hasSettled = seen.isEmpty() || seen == m_seen;
            m_seen = std::move(seen);
            return hasSettled;
        });
        return String();
    });
}

void Screenshots::addPicture(const String& title, int skin, const Source& source)
{
    addSettling(source, title);
    String name = title + L"-" + GalleryFrame::skinName(skin) + L".png";
    name.replaceAll(L" ", L"-");
    m_jobs.emplace_back([file = m_folder / Io::Path(name), source] {
        const wxWindow* const window = source();
        return window != nullptr ? Program::writeWindowPicture(*window, file)
                                 : String(L"A window was closed before its picture was taken.");
    });
}

// A state that lasts only for a moment may have ended before its picture was taken. The scene then begins
// anew.
void Screenshots::addCheck(std::size_t page, const Scene& scene, std::size_t firstJob)
{
    const Function<bool(wxWindow&)> isReached = scene.steps.back().isReached;
    if (!isReached)
        return;
    const String title = m_frame.pages()[page].title + L" " + scene.title;
    m_jobs.emplace_back([this, isReached, page, title, firstJob] {
        if (isReached(*m_frame.page())) {
            m_attempts = 0;
            return String();
        }
        if (++m_attempts == MAX_ATTEMPTS)
            return L"The state \"" + title + L"\" ended before its picture was taken.";
        m_done = firstJob;
        Hand::rest();
        showPage(page);
        return String();
    });
}

void Screenshots::addRest(std::size_t page)
{
    m_jobs.emplace_back([this, page] {
        Hand::rest();
        showPage(page);
        return String();
    });
}

void Screenshots::showPage(std::size_t page)
{
    m_frame.focusLog();
    m_frame.showPage(page);
    awaitPaintOf(*m_frame.page());
}

// A window that cannot be seen is never painted, which is no error here.
void Screenshots::awaitPaintOf(wxWindow& window)
{
    const auto isPainted = std::make_shared<bool>(false);
    window.Bind(wxEVT_PAINT, [isPainted](wxPaintEvent& event) {
        *isPainted = true;
        event.Skip();
    });
    await({}, [this, isPainted] { return *isPainted || m_turnsWaited >= MAX_PAINT_TURNS; });
    m_turnsToWait = PAINTING_TURNS;
}

void Screenshots::await(const String& what, Function<bool()> isReached)
{
    m_awaited = what;
    m_turnsWaited = 0;
    m_isReached = std::move(isReached);
}

} // namespace Nolvex::Gallery
