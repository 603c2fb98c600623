// SPDX-License-Identifier: MIT
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/FileDialogs.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/AutoSizedButton.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/Page.h"

#include <wx/sizer.h>
#include <wx/utils.h>
#include <wx/weakref.h>

namespace Nolvex::Gallery {

namespace {

constexpr int GAP = 8; // design units
constexpr int MIN_WIDTH = 160;

// Asks for one or several paths, starting where the last answer was.
using Question = Function<Stack<Io::Path>(WindowHandle owner, const Io::Path& initial)>;

Array<Io::FileFilter> filters()
{
    return {{L"Pictures", {L"*.png", L"*.jpg", L"*.jpeg"}}, {L"All files", {}}};
}

Stack<Io::Path> listOf(const Io::Path& path)
{
    return path.isEmpty() ? Stack<Io::Path>() : Stack<Io::Path>{path};
}

String describe(const Stack<Io::Path>& paths)
{
    String text;
    for (const Io::Path& path : paths)
        text += (text.isEmpty() ? L"" : L"\n") + path.nativeStr();
    return text.isEmpty() ? String(L"(cancelled)") : text;
}

void addQuestion(wxWindow* parent, wxSizer* rows, const String& label, const Question& question,
                 const Log& log)
{
    const wxWeakRef<Wx::StaticText> answer = new Wx::StaticText(parent, wxID_ANY, L"-");
    const auto ask = [=] {
        const WindowHandle owner = Wx::getWindowNativeHandle(wxGetTopLevelParent(parent));
        const String text =
            describe(question(owner, Io::Path(Wx::toString(wxGetHomeDir())) / L"picture.png"));
        if (!answer)
            return; // the gallery was closed meanwhile
        answer->SetLabel(Wx::toWxString(text));
        answer->GetParent()->Layout();
        log(label + L": " + text);
    };
    auto* button = new Wx::AutoSizedButton(parent, Wx::toWxString(label + L"..."), MIN_WIDTH, 0);
    button->setClickCallback(ask);
    rows->Add(button, 0, wxTOP, Wx::scaleByDpi(2 * GAP));
    rows->Add(answer, 0, wxTOP, Wx::scaleByDpi(GAP));
}

void build(wxWindow* parent, const Log& log)
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(new Wx::StaticText(parent, wxID_ANY, L"The dialogs of the system, owned by this window"));
    const auto open = [](WindowHandle owner, const Io::Path& initial) {
        return listOf(Wx::filenameOpenDlg(owner, L"Open a picture", filters(), initial));
    };
    const auto openSeveral = [](WindowHandle owner, const Io::Path& initial) {
        return Wx::multiFilenameOpenDlg(owner, L"Open pictures", filters(), initial.parentDirectory());
    };
    const auto save = [](WindowHandle owner, const Io::Path& initial) {
        return listOf(Wx::filenameSaveDlg(owner, L"Save the picture", filters(),
                                          Wx::FileSelect::OverwritePrompt, initial));
    };
    const auto chooseFolder = [](WindowHandle owner, const Io::Path& initial) {
        return listOf(Wx::dirSelectDlg(owner, L"Choose a folder", initial.parentDirectory()));
    };
    addQuestion(parent, rows, L"Open a file", open, log);
    addQuestion(parent, rows, L"Open several files", openSeveral, log);
    addQuestion(parent, rows, L"Save a file", save, log);
    addQuestion(parent, rows, L"Choose a folder", chooseFolder, log);
    parent->SetSizer(rows);
}

const Page PAGE(L"File dialogs", build, {}, {}, Family::DIALOGS);

} // namespace

} // namespace Nolvex::Gallery
