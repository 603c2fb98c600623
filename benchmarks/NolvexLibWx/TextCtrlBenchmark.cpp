// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/TextCtrl.h"

#include "NolvexLib/Noncopyable.h"
#include "NolvexLibWx/NolvexLibWx.h"
#include "support/PairedRatio.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/frame.h>
#include <wx/panel.h>

#include <memory>
#include <utility>

namespace Nolvex::Benchmarks {

namespace {

// The log has 100,000 lines, of which the first 10,000 are compared with the last 10,000.
constexpr int MANY_LINES = 90'000;
constexpr int LINES_PER_TURN = 1'000;
constexpr int TURNS = 10;
constexpr int LINES_PER_PAINTING = 100;

// Starts the library and an event loop, which the painting of windows needs.
class RunningToolkit : private Noncopyable
{
public:
    RunningToolkit()
    {
        LibWx::startup(LibWx::ApplicationType::APPLICATION);
        m_loop = std::make_unique<wxEventLoop>();
        m_active = std::make_unique<wxEventLoopActivator>(m_loop.get());
    }

    ~RunningToolkit()
    {
        m_active.reset();
        m_loop.reset();
        LibWx::shutdown();
    }

private:
    std::unique_ptr<wxEventLoop> m_loop;
    std::unique_ptr<wxEventLoopActivator> m_active;
};

wxString numbered(int first, int count)
{
    wxString text;
    for (int i = first; i < first + count; ++i)
        text += wxString::Format(L"%d: something happened\n", i);
    return text;
}

void processEvents()
{
    wxYield();
    wxTheApp->ProcessIdle();
}

// A log on the screen that shows its end while it grows by 10,000 lines. It then drops these lines and grows
// again.
class FollowedLog : private Noncopyable
{
public:
    explicit FollowedLog(int lines)
    {
        m_text->AppendText(numbered(0, lines));
        m_start = m_text->GetLastPosition();
        m_frame->Show();
        processEvents();
    }

    ~FollowedLog()
    {
        m_frame->Destroy();
        processEvents();
    }

    void append()
    {
        if (m_turn == TURNS) {
            m_text->Remove(m_start, m_text->GetLastPosition());
            m_turn = 0;
        }
        for (int i = 0; i < LINES_PER_TURN; ++i) {
            m_text->AppendText(numbered(i, 1));
            if (i % LINES_PER_PAINTING == 0)
                processEvents();
        }
        processEvents();
        ++m_turn;
    }

private:
    wxFrame* m_frame = new wxFrame(nullptr, wxID_ANY, L"log", wxDefaultPosition, wxSize(420, 340));
    wxPanel* m_panel = new wxPanel(m_frame);
    Wx::TextCtrl* m_text = new Wx::TextCtrl(m_panel, wxID_ANY, {}, wxPoint(0, 0), wxSize(400, 300),
                                            wxTE_MULTILINE | wxTE_READONLY);
    long m_start = 0;
    int m_turn = 0;
};

// The figure is the time of a line among the first 10,000 divided by the time of a line among the last
// 10,000.
Contest appending()
{
    const auto toolkit = std::make_shared<RunningToolkit>();
    const auto young = std::make_shared<FollowedLog>(0);
    const auto old = std::make_shared<FollowedLog>(MANY_LINES);
    return {[toolkit, young] { young->append(); }, [toolkit, old] { old->append(); }};
}

const Figure APPENDING("text_append_to_90000_lines", 0.5, appending);

constexpr int SINGLE_APPENDS = 2'000;

// Fills a log on the screen line by line, paints it at the end, and empties it.
template<class Text>
Work filling(const std::shared_ptr<RunningToolkit>& toolkit)
{
    auto* const frame = new wxFrame(nullptr, wxID_ANY, L"log", wxDefaultPosition, wxSize(420, 340));
    auto* const text = new Text(new wxPanel(frame), wxID_ANY, wxString(), wxPoint(0, 0), wxSize(400, 300),
                                wxTE_MULTILINE | wxTE_READONLY);
    frame->Show();
    processEvents();
    const std::shared_ptr<wxFrame> owner(frame, [toolkit](wxFrame* shown) {
        shown->Destroy();
        processEvents();
    });
    return [owner, text] {
        for (int i = 0; i < SINGLE_APPENDS; ++i)
            text->AppendText(numbered(i, 1));
        processEvents();
        text->Clear();
    };
}

// The figure is the time of the wxWidgets control divided by the time of the library's control.
Contest appendingSingly()
{
    const auto toolkit = std::make_shared<RunningToolkit>();
    Work native = filling<wxTextCtrl>(toolkit);
    Work own = filling<Wx::TextCtrl>(toolkit);
    return {std::move(native), std::move(own)};
}

const Figure APPENDING_SINGLY("text_append_2000_to_native", 0.5, appendingSingly);

} // namespace

} // namespace Nolvex::Benchmarks
