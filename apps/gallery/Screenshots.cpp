// SPDX-License-Identifier: MIT
#include "apps/gallery/Screenshots.h"

#include "apps/gallery/GalleryFrame.h"
#include "apps/gallery/Hand.h"
#include "apps/program/WindowPicture.h"

#include <wx/panel.h>

#include <utility>

namespace Nolvex::Gallery {

namespace {

// The number of turns in which the window system paints.
constexpr int PAINTING_TURNS = 3;
constexpr int STEP_TURNS = 2;
constexpr int MAX_STEP_TURNS = 100;

} // namespace

Screenshots::Screenshots(GalleryFrame& frame, const Io::Path& folder) : m_frame(frame), m_folder(folder)
{
    for (int skin = 0; skin < GalleryFrame::SKIN_COUNT; ++skin) {
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
            if (++m_turnsWaited < MAX_STEP_TURNS)
                return {};
            return L"The state \"" + m_awaited + L"\" was not reached.";
        }
        m_isReached = {};
        m_turnsToWait = STEP_TURNS;
        return {};
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
        m_window->Show();
        m_turnsToWait = PAINTING_TURNS;
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
    for (const Scene::Step& step : scene.steps)
        addStep(step, title);
    addPicture(L"State " + title, skin, [this] { return m_frame.page(); });
    m_jobs.emplace_back([this, page] {
        Hand::rest();
        showPage(page);
        return String();
    });
}

void Screenshots::addStep(const Scene::Step& step, const String& scene)
{
    m_jobs.emplace_back([this, step, scene] {
        m_turnsToWait = STEP_TURNS;
        m_turnsWaited = 0;
        m_awaited = scene;
        if (step.isReached)
            m_isReached = [this, isReached = step.isReached] { return isReached(*m_frame.page()); };
        step.act(*m_frame.page());
        return String();
    });
}

void Screenshots::addPicture(const String& title, int skin, Function<const wxWindow*()> source)
{
    String name = title + L"-" + GalleryFrame::skinName(skin) + L".png";
    name.replaceAll(L" ", L"-");
    m_jobs.emplace_back([file = m_folder / Io::Path(name), source = std::move(source)] {
        const wxWindow* const window = source();
        return window != nullptr ? Program::writeWindowPicture(*window, file)
                                 : String(L"A window was closed before its picture was taken.");
    });
}

void Screenshots::showPage(std::size_t page)
{
    m_frame.focusLog();
    m_frame.showPage(page);
    m_turnsToWait = PAINTING_TURNS;
}

} // namespace Nolvex::Gallery
