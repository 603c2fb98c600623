// SPDX-License-Identifier: MIT
// What the dialogs of wxWidgets are made with, and how their results are taken. No dialog is shown.
#include "NolvexLib/Io/FileFilter.h"
#include "NolvexLibWx/FileDialogs.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/StringConversions.h"
#include "support/FrameFixture.h"
#include "support/NativeDialog.h"
#include "support/TemporaryFolder.h"

#include <wx/dirdlg.h>
#include <wx/filedlg.h>
#include <wx/modalhook.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <stdexcept>

using namespace Nolvex;
using Wx::dirSelectDlg;
using Wx::filenameOpenDlg;
using Wx::filenameSaveDlg;
using Wx::FileSelect;
using Wx::multiFilenameOpenDlg;

namespace {

const String NO_TITLE;

// Answers for every dialog instead of the user, and notes how the dialog was made.
class AnsweringHook : public wxModalDialogHook
{
public:
    AnsweringHook() { Register(); }

    int answer = wxID_CANCEL;
    std::function<void()> whileShown = [] {};

    int count = 0;
    wxString message;
    wxString directory;
    wxString file;
    wxString wildcard;
    long style = 0;
    wxString name;
    wxPoint position;
    wxSize size;
    bool hasWrapper = false;
    wxFileDialog* fileDialog = nullptr;     // null if the dialog is for a folder
    const wxDirDialog* dirDialog = nullptr; // null if the dialog is for files

    // wxWidgets keeps the path on Windows. GTK takes the path over when GTK has found the folder.
    bool startsIn(const Io::Path& folder) const
    {
        const Io::Path shown = Tests::shownFolder({dirDialog->GetHandle()});
        return (shown.isEmpty() ? Io::Path(Wx::toString(dirDialog->GetPath())) : shown) == folder;
    }

protected:
    int Enter(wxDialog* dialog) override
    {
        ++count;
        fileDialog = dynamic_cast<wxFileDialog*>(dialog);
        if (fileDialog != nullptr)
            noteFileDialog(*fileDialog);
        else if (const auto* folders = dynamic_cast<wxDirDialog*>(dialog))
            noteDirDialog(*folders);
        hasWrapper = dialog->GetParent() != nullptr && dialog->GetParent()->IsTopLevel() &&
                     wxTopLevelWindows.Find(dialog->GetParent()) == nullptr;
        name = dialog->GetName();
        position = dialog->GetPosition();
        size = dialog->GetSize();
        whileShown();
        return answer;
    }

private:
    void noteFileDialog(const wxFileDialog& dialog)
    {
        message = dialog.GetMessage();
        directory = dialog.GetDirectory();
        file = (dialog.GetWindowStyle() & wxFD_MULTIPLE) != 0 ? wxString() : dialog.GetFilename();
        wildcard = dialog.GetWildcard();
        style = dialog.GetWindowStyle();
    }

    void noteDirDialog(const wxDirDialog& dialog)
    {
        dirDialog = &dialog;
        message = dialog.GetMessage();
        style = dialog.GetWindowStyle();
    }
};

struct FileDialogParametersTest : Tests::FrameFixture
{
    FileDialogParametersTest() { frame->Show(); }

    bool hasWindow() const { return wxDirDialog(frame).GetHandle() != nullptr; }

    void expectNamePositionAndSizeOf(const wxDialog& plain) const
    {
        EXPECT_FALSE(hook.name.empty());
        EXPECT_EQ(hook.name, plain.GetName());
        EXPECT_EQ(hook.position, plain.GetPosition());
        EXPECT_EQ(hook.size, plain.GetSize());
    }

    AnsweringHook hook;
    WindowHandle owner = Wx::getWindowNativeHandle(frame);
    Io::Path folder = std::filesystem::temp_directory_path();
    Io::Path initial = folder / L"none.png";
    Array<Io::FileFilter> filters{{L"PNG pictures", {L"*.png"}}, {L"JPEG", {L"*.jpg", L"*.jpeg"}}};
    wxString wildcard = "PNG pictures (*.png)|*.png|JPEG (*.jpg;*.jpeg)|*.jpg;*.jpeg";
};

} // namespace

TEST_F(FileDialogParametersTest, open_splitsTheInitialPath)
{
    EXPECT_TRUE(filenameOpenDlg(owner, L"\u00d6ffnen", filters, initial).isEmpty());
    EXPECT_EQ(hook.count, 1);
    EXPECT_EQ(hook.message, wxString(L"\u00d6ffnen"));
    EXPECT_EQ(hook.directory, Wx::toWxString(initial.parentDirectory().nativeStr()));
    EXPECT_EQ(hook.file, "none.png");
    EXPECT_EQ(hook.wildcard, wildcard);
    EXPECT_EQ(hook.style & 0xffff, 17);
    EXPECT_TRUE(hook.hasWrapper);
}

TEST_F(FileDialogParametersTest, save_splitsTheInitialPath)
{
    EXPECT_TRUE(filenameSaveDlg(owner, L"Save", filters, {}, initial).isEmpty());
    EXPECT_EQ(hook.message, "Save");
    EXPECT_EQ(hook.directory, Wx::toWxString(initial.parentDirectory().nativeStr()));
    EXPECT_EQ(hook.file, "none.png");
    EXPECT_EQ(hook.wildcard, wildcard);
    EXPECT_EQ(hook.style & 0xffff, 2);
    EXPECT_TRUE(hook.hasWrapper);
}

TEST_F(FileDialogParametersTest, save_withPrompt_asksWxWidgetsForThePrompt)
{
    EXPECT_TRUE(filenameSaveDlg(owner, L"Save", filters, FileSelect::OverwritePrompt, initial).isEmpty());
    EXPECT_EQ(hook.style & 0xffff, 6);
    EXPECT_EQ(static_cast<int>(FileSelect::OverwritePrompt), 1);
}

TEST_F(FileDialogParametersTest, multiOpen_takesTheWholePathAsFolder)
{
    EXPECT_TRUE(multiFilenameOpenDlg(owner, L"Open", filters, initial).empty());
    EXPECT_EQ(hook.message, "Open");
    EXPECT_EQ(hook.directory, Wx::toWxString(initial.nativeStr()));
    EXPECT_EQ(hook.file, "");
    EXPECT_EQ(hook.wildcard, wildcard);
    EXPECT_EQ(hook.style & 0xffff, 529);
    EXPECT_TRUE(hook.hasWrapper);
}

TEST_F(FileDialogParametersTest, dirSelect_hasTheDefaultStyle)
{
    EXPECT_TRUE(dirSelectDlg(owner, L"Folder", folder).isEmpty());
    EXPECT_EQ(hook.message, "Folder");
    EXPECT_EQ(hook.style, 536877120);
    EXPECT_TRUE(hook.hasWrapper);
}

TEST_F(FileDialogParametersTest, fileDialogs_haveTheDefaultNamePositionAndSizeOnGtk)
{
    if (!hasWindow())
        GTEST_SKIP() << "These dialogs have no window of wxWidgets on Windows.";
    const wxFileDialog plain(frame, "", "", "", "", wxFD_OPEN, wxDefaultPosition, wxDefaultSize,
                             wxFileDialogNameStr);
    for (const auto& ask :
         {std::function<void()>([&] { (void)filenameOpenDlg(owner, NO_TITLE, {}, {}); }),
          std::function<void()>([&] { (void)filenameSaveDlg(owner, NO_TITLE, {}, {}, {}); }),
          std::function<void()>([&] { (void)multiFilenameOpenDlg(owner, NO_TITLE, {}, {}); })}) {
        hook.name.clear();
        ask();
        expectNamePositionAndSizeOf(plain);
    }
}

TEST_F(FileDialogParametersTest, dirSelect_startsInTheInitialFolder)
{
    const Tests::TemporaryFolder start;
    hook.whileShown = [&] { EXPECT_TRUE(Tests::pumpUntil([&] { return hook.startsIn(start.path()); })); };
    EXPECT_TRUE(dirSelectDlg(owner, L"Folder", start.path()).isEmpty());
    EXPECT_EQ(hook.count, 1);
}

TEST_F(FileDialogParametersTest, dirSelect_hasTheDefaultNamePositionAndSizeOnGtk)
{
    if (!hasWindow())
        GTEST_SKIP() << "This dialog has no window of wxWidgets on Windows.";
    const wxDirDialog plain(frame, "", "", wxDD_DEFAULT_STYLE, wxDefaultPosition, wxDefaultSize,
                            wxDirDialogNameStr);
    (void)dirSelectDlg(owner, NO_TITLE, folder);
    expectNamePositionAndSizeOf(plain);
}

TEST_F(FileDialogParametersTest, noFilters_giveWxWidgetsAnEmptyWildcard)
{
    const wxFileDialog plain(frame, "", "", "", "");
    EXPECT_TRUE(filenameOpenDlg(owner, NO_TITLE, {}, {}).isEmpty());
    EXPECT_EQ(hook.wildcard, plain.GetWildcard());
}

TEST_F(FileDialogParametersTest, emptyTexts_stayEmpty)
{
    EXPECT_TRUE(filenameOpenDlg(owner, NO_TITLE, filters, {}).isEmpty());
    EXPECT_EQ(hook.message, "");
    EXPECT_EQ(hook.directory, "");
    EXPECT_EQ(hook.file, "");
    EXPECT_TRUE(multiFilenameOpenDlg(owner, NO_TITLE, filters, {}).empty());
    EXPECT_EQ(hook.directory, "");
}

TEST_F(FileDialogParametersTest, initialNameWithoutFolder_leavesTheFolderToTheSystem)
{
    EXPECT_TRUE(filenameSaveDlg(owner, L"Save", filters, {}, Io::Path(L"new.png")).isEmpty());
    EXPECT_EQ(hook.directory, "");
    EXPECT_EQ(hook.file, "new.png");
}

TEST_F(FileDialogParametersTest, initialFolderWithSeparatorAtItsEnd_proposesNoName)
{
    EXPECT_TRUE(filenameSaveDlg(owner, L"Save", filters, {}, folder / L"").isEmpty());
    EXPECT_EQ(hook.file, "");
}

TEST_F(FileDialogParametersTest, answersOtherThanOk_giveNothing)
{
    hook.whileShown = [&] {
        hook.fileDialog->SetPath(Wx::toWxString(initial.nativeStr()));
        EXPECT_TRUE(Tests::pumpUntil([&] { return !hook.fileDialog->GetPath().empty(); }));
    };
    hook.answer = wxID_OK;
    ASSERT_EQ(filenameSaveDlg(owner, NO_TITLE, filters, {}, initial), initial);
    for (const int answer : std::initializer_list<int>{wxID_CANCEL, wxID_CLOSE, wxID_YES, wxID_ABORT, -5}) {
        hook.answer = answer;
        EXPECT_TRUE(filenameSaveDlg(owner, NO_TITLE, filters, {}, initial).isEmpty()) << answer;
    }
}

TEST_F(FileDialogParametersTest, windowsAreDisabledWhileTheDialogIsUp)
{
    bool enabled = true;
    hook.whileShown = [&] { enabled = frame->IsEnabled(); };
    for (const auto& ask :
         {std::function<void()>([&] { (void)filenameOpenDlg(owner, NO_TITLE, {}, {}); }),
          std::function<void()>([&] { (void)filenameSaveDlg(owner, NO_TITLE, {}, {}, {}); }),
          std::function<void()>([&] { (void)multiFilenameOpenDlg(owner, NO_TITLE, {}, {}); }),
          std::function<void()>([&] { (void)dirSelectDlg(owner, NO_TITLE, {}); })}) {
        enabled = true;
        ask();
        EXPECT_FALSE(enabled);
        EXPECT_TRUE(frame->IsEnabled());
    }
}

TEST_F(FileDialogParametersTest, exceptionWhileTheDialogIsUp_leavesNothingDisabled)
{
    hook.whileShown = [] { throw std::runtime_error("test"); };
    EXPECT_THROW((void)filenameOpenDlg(owner, NO_TITLE, {}, {}), std::runtime_error);
    EXPECT_TRUE(frame->IsEnabled());
}
