// SPDX-License-Identifier: MIT
// The dialogs of the system, operated by keys.
#include "NolvexLibWx/FileDialogs.h"

#include "support/ClosedFolder.h"
#include "support/FileDialogFixture.h"

#include <wx/platinfo.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <type_traits>

using namespace Nolvex;
using Wx::dirSelectDlg;
using Wx::filenameOpenDlg;
using Wx::filenameSaveDlg;
using Wx::FileSelect;
using Wx::multiFilenameOpenDlg;

namespace {

using Tests::DialogRobot;

struct FileDialogsTest : Tests::FileDialogFixture
{
    static bool isGtk() { return wxPlatformInfo::Get().GetPortId() == wxPORT_GTK; }

    static Step cancelWhenShown(const Io::Path& folder)
    {
        return {
            "the dialog shows the expected folder",
            [folder] { return hasFileDialog() && Tests::shownFolder(Tests::activeFileDialog()) == folder; },
            [] { pressKey(WXK_ESCAPE); }};
    }

    Io::Path missing = folder.path() / L"none" / L"deeper";
};

} // namespace

TEST_F(FileDialogsTest, open_returnsTheTypedFile)
{
    const Io::Path a = folder.file(L"a.png", "a");
    const Io::Path b = folder.file(L"b.png", "b");
    DialogRobot robot({enter(b)});
    EXPECT_EQ(filenameOpenDlg(owner, L"Open", filters, a), b);
    EXPECT_TRUE(isFrameUsable());
}

TEST_F(FileDialogsTest, open_proposesTheInitialFile)
{
    folder.file(L"a.png", "a");
    const Io::Path b = folder.file(L"b.png", "b");
    DialogRobot robot({pressWhenListed({L"a.png", L"b.png"}, WXK_RETURN)});
    EXPECT_EQ(filenameOpenDlg(owner, L"Open", filters, b), b);
}

TEST_F(FileDialogsTest, open_cancelled_isEmpty)
{
    const Io::Path a = folder.file(L"a.png", "a");
    DialogRobot robot({press(WXK_ESCAPE)});
    EXPECT_TRUE(filenameOpenDlg(owner, L"Open", filters, a).isEmpty());
    EXPECT_TRUE(isFrameUsable());
}

TEST_F(FileDialogsTest, open_closedByTheWindowManager_isEmpty)
{
    const Io::Path a = folder.file(L"a.png", "a");
    DialogRobot robot({press(WXK_F4, wxMOD_ALT)});
    EXPECT_TRUE(filenameOpenDlg(owner, L"Open", filters, a).isEmpty());
    EXPECT_TRUE(isFrameUsable());
}

TEST_F(FileDialogsTest, open_ofANameWithoutFile_doesNotReturnIt)
{
    DialogRobot robot({enter(folder.file(L"none.png")), inMessageBox([] { pressKey(WXK_ESCAPE); }),
                       press(WXK_F4, wxMOD_ALT)});
    EXPECT_TRUE(filenameOpenDlg(owner, L"Open", filters, folder.path() / L"").isEmpty());
    EXPECT_TRUE(isFrameUsable());
}

TEST_F(FileDialogsTest, open_inAFolderThatDoesNotExist_letsTheUserChooseElsewhere)
{
    const Io::Path a = folder.file(L"a.png", "a");
    DialogRobot robot({enter(a)});
    EXPECT_EQ(filenameOpenDlg(owner, L"Open", filters, folder.path() / L"none" / L"a.png"), a);
}

TEST_F(FileDialogsTest, openAndSave_inAFolderThatDoesNotExist_startInTheNearestFolderOnGtk)
{
    if (!isGtk())
        GTEST_SKIP() << "Windows opens its usual folder.";
    for (const Io::Path& initial : {missing / L"", missing / L"a.png"}) {
        DialogRobot robot({cancelWhenShown(folder.path())});
        EXPECT_TRUE(filenameOpenDlg(owner, L"Open", filters, initial).isEmpty());
    }
    for (const Io::Path& initial : {missing / L"", missing / L"a.png"}) {
        DialogRobot robot({cancelWhenShown(folder.path())});
        EXPECT_TRUE(filenameSaveDlg(owner, L"Save", filters, {}, initial).isEmpty());
    }
    DialogRobot robot({cancelWhenShown(folder.path())});
    EXPECT_TRUE(multiFilenameOpenDlg(owner, L"Open", filters, missing).empty());
}

TEST_F(FileDialogsTest, open_inAFolderWithoutRights_letsTheUserChooseElsewhere)
{
    const Io::Path a = folder.file(L"a.png", "a");
    const Io::Path closed = folder.path() / L"closed";
    const Tests::ClosedFolder guard(closed);
    if (!guard.isClosed())
        GTEST_SKIP() << "The rights of folders do not bind this user.";
    // GTK tells at once that the folder cannot be read.
    DialogRobot robot({inMessageBox([] { pressKey(WXK_ESCAPE); }), enter(a)});
    EXPECT_EQ(filenameOpenDlg(owner, L"Open", filters, closed / L"b.png"), a);
    EXPECT_TRUE(isFrameUsable());
}

TEST_F(FileDialogsTest, open_withoutInitialPath_letsTheUserChoose)
{
    const Io::Path a = folder.file(L"a.png", "a");
    DialogRobot robot({enter(a)});
    EXPECT_EQ(filenameOpenDlg(owner, L"Open", filters, {}), a);
}

TEST_F(FileDialogsTest, open_returnsNamesBeyondAscii)
{
    const Io::Path file = folder.file(L"\u00fcber \u65e5\u672c\u8a9e \u05e9\u05dc\u05d5\u05dd.png", "a");
    DialogRobot robot({enter(file)});
    EXPECT_EQ(filenameOpenDlg(owner, L"Open", filters, folder.path() / L""), file);
}

TEST_F(FileDialogsTest, open_returnsNamesThatAreNoUtf8)
{
    const std::filesystem::path name("caf\xe9.png");
    if (std::is_same_v<std::filesystem::path::value_type, wchar_t>)
        GTEST_SKIP() << "Names are UTF-16 on this system.";
    const Io::Path file = folder.path() / Io::Path(name);
    std::ofstream(file.native()) << "a";
    // GTK says behind the name, in the language of the user, that the encoding is wrong.
    const auto isListed = [] {
        const Array<String> names =
            hasFileDialog() ? Tests::listedFiles(Tests::activeFileDialog()) : Array<String>();
        return names.size() == 1 && names.front().wstr().starts_with(L"caf\ufffd.png");
    };
    DialogRobot robot(
        {{"the dialog lists the file", isListed, [] { pressKey(WXK_HOME); }}, press(WXK_RETURN)});
    EXPECT_EQ(filenameOpenDlg(owner, L"Open", {}, folder.path() / L""), file);
}

TEST_F(FileDialogsTest, open_proposesNamesBeyondAscii)
{
    const String name = L"\u00fcber \u65e5\u672c\u8a9e.png";
    const Io::Path file = folder.file(name, "a");
    DialogRobot robot({pressWhenListed({name}, WXK_RETURN)});
    EXPECT_EQ(filenameOpenDlg(owner, L"Open", filters, file), file);
}

TEST_F(FileDialogsTest, open_listsFilesWhateverTheCaseOfTheirExtension)
{
    for (const wchar_t* name : {L"a.png", L"B.PNG", L"c.Png", L"d.txt"})
        folder.file(name, "x");
    DialogRobot robot({pressWhenListed({L"a.png", L"B.PNG", L"c.Png"}, WXK_ESCAPE)});
    EXPECT_TRUE(filenameOpenDlg(owner, L"Open", filters, folder.path() / L"").isEmpty());
}

TEST_F(FileDialogsTest, open_ofAFilterWithSeveralPatterns_listsTheFilesOfAll)
{
    for (const wchar_t* name : {L"a.jpg", L"b.JPEG", L"c.png", L"d"})
        folder.file(name, "x");
    const Array<Io::FileFilter> jpeg{{L"JPEG", {L"*.jpg", L"*.jpeg"}}};
    DialogRobot robot({pressWhenListed({L"a.jpg", L"b.JPEG"}, WXK_ESCAPE)});
    EXPECT_TRUE(filenameOpenDlg(owner, L"Open", jpeg, folder.path() / L"").isEmpty());
}

TEST_F(FileDialogsTest, open_ofAllFiles_listsFilesWithoutExtension)
{
    for (const wchar_t* name : {L"a.jpg", L"d"})
        folder.file(name, "x");
    for (const Array<Io::FileFilter>& all :
         {Array<Io::FileFilter>(), {{L"All", {}}}, {{L"All", {L"*"}}}, {{L"All", {L"*.*"}}}}) {
        DialogRobot robot({pressWhenListed({L"a.jpg", L"d"}, WXK_ESCAPE)});
        EXPECT_TRUE(filenameOpenDlg(owner, L"Open", all, folder.path() / L"").isEmpty());
    }
}

TEST_F(FileDialogsTest, open_showsTitleAndFileTypes)
{
    String title;
    Array<String> types;
    DialogRobot robot({inDialog([&] {
        title = Tests::titleOf(Tests::activeFileDialog());
        types = Tests::fileTypesOf(Tests::activeFileDialog());
        pressKey(WXK_ESCAPE);
    })});
    EXPECT_TRUE(filenameOpenDlg(owner, L"\u00d6ffnen", filters, {}).isEmpty());
    EXPECT_EQ(title, L"\u00d6ffnen");
    EXPECT_EQ(types, (Array<String>{L"PNG pictures (*.png)", L"All files (*)"}));
}

TEST_F(FileDialogsTest, save_proposesTheInitialName)
{
    const Io::Path file = folder.file(L"new.png");
    DialogRobot robot({press(WXK_RETURN)});
    EXPECT_EQ(filenameSaveDlg(owner, L"Save", filters, {}, file), file);
    EXPECT_TRUE(isFrameUsable());
}

TEST_F(FileDialogsTest, save_returnsTheTypedName)
{
    const Io::Path file = folder.file(L"\u00e4nderung.png");
    DialogRobot robot({enter(file)});
    EXPECT_EQ(filenameSaveDlg(owner, L"Save", filters, FileSelect::OverwritePrompt, folder.file(L"new.png")),
              file);
}

TEST_F(FileDialogsTest, save_inAFolderWithoutRights_letsTheUserChooseElsewhere)
{
    const Io::Path closed = folder.path() / L"closed";
    const Tests::ClosedFolder guard(closed);
    if (!guard.isClosed())
        GTEST_SKIP() << "The rights of folders do not bind this user.";
    // GTK tells at once that the folder cannot be read.
    DialogRobot robot({inMessageBox([] { pressKey(WXK_ESCAPE); }), enter(folder.file(L"b.png"))});
    EXPECT_EQ(filenameSaveDlg(owner, L"Save", filters, FileSelect::OverwritePrompt, closed / L"a.png"),
              folder.file(L"b.png"));
    EXPECT_TRUE(isFrameUsable());
}

TEST_F(FileDialogsTest, save_cancelled_isEmpty)
{
    DialogRobot robot({press(WXK_ESCAPE)});
    EXPECT_TRUE(filenameSaveDlg(owner, L"Save", filters, {}, folder.file(L"new.png")).isEmpty());
}

TEST_F(FileDialogsTest, save_withoutPrompt_returnsAnExistingFileWithoutAsking)
{
    const Io::Path file = folder.file(L"a.png", "a");
    DialogRobot robot({press(WXK_RETURN)});
    EXPECT_EQ(filenameSaveDlg(owner, L"Save", filters, {}, file), file);
}

TEST_F(FileDialogsTest, save_promptAnsweredYes_returnsTheExistingFile)
{
    const Io::Path file = folder.file(L"a.png", "a");
    DialogRobot robot({press(WXK_RETURN), inMessageBox([] { Tests::answerQuestion(true); })});
    EXPECT_EQ(filenameSaveDlg(owner, L"Save", filters, FileSelect::OverwritePrompt, file), file);
    EXPECT_TRUE(isFrameUsable());
}

TEST_F(FileDialogsTest, save_promptAnsweredNo_staysInTheDialog)
{
    const Io::Path file = folder.file(L"a.png", "a");
    DialogRobot robot({press(WXK_RETURN), inMessageBox([] { Tests::answerQuestion(false); }),
                       enter(folder.file(L"b.png"))});
    EXPECT_EQ(filenameSaveDlg(owner, L"Save", filters, FileSelect::OverwritePrompt, file),
              folder.file(L"b.png"));
}

TEST_F(FileDialogsTest, multiOpen_returnsAllSelectedFiles)
{
    const Io::Path a = folder.file(L"a.png", "a");
    const Io::Path b = folder.file(L"b.png", "b");
    folder.file(L"c.txt", "c");
    DialogRobot robot(
        {{"the files are listed",
          [] { return hasFileDialog() && Tests::listedFiles(Tests::activeFileDialog()).size() == 2; },
          [] {
              Tests::selectFiles({L"a.png", L"b.png"});
              pressKey(WXK_RETURN);
          }}});
    Stack<Io::Path> files = multiFilenameOpenDlg(owner, L"Open", filters, folder.path());
    EXPECT_EQ(files, (Stack<Io::Path>{a, b}));
    EXPECT_TRUE(isFrameUsable());
}

TEST_F(FileDialogsTest, multiOpen_returnsOneTypedFile)
{
    const Io::Path a = folder.file(L"a.png", "a");
    DialogRobot robot({enter(a)});
    EXPECT_EQ(multiFilenameOpenDlg(owner, L"Open", filters, folder.path()), Stack<Io::Path>{a});
}

TEST_F(FileDialogsTest, multiOpen_ofAFileAsFolder_canBeCancelled)
{
    DialogRobot robot({press(WXK_ESCAPE)});
    EXPECT_TRUE(multiFilenameOpenDlg(owner, L"Open", filters, folder.file(L"a.png", "a")).empty());
    EXPECT_TRUE(isFrameUsable());
}

TEST_F(FileDialogsTest, multiOpen_ofAFileAsFolder_opensInItsFolderOnGtk)
{
    if (!isGtk())
        GTEST_SKIP() << "The dialog of Windows takes the path as it is.";
    const Io::Path a = folder.file(L"a.png", "a");
    const Io::Path b = folder.file(L"b.png", "b");
    DialogRobot robot(
        {{"the files are listed",
          [] { return hasFileDialog() && Tests::listedFiles(Tests::activeFileDialog()).size() == 2; },
          [] {
              Tests::selectFiles({L"a.png", L"b.png"});
              pressKey(WXK_RETURN);
          }}});
    EXPECT_EQ(multiFilenameOpenDlg(owner, L"Open", filters, a), (Stack<Io::Path>{a, b}));
}

TEST_F(FileDialogsTest, multiOpen_cancelled_isEmpty)
{
    folder.file(L"a.png", "a");
    DialogRobot robot({press(WXK_ESCAPE)});
    EXPECT_TRUE(multiFilenameOpenDlg(owner, L"Open", filters, folder.path()).empty());
    EXPECT_TRUE(isFrameUsable());
}

TEST_F(FileDialogsTest, dirSelect_returnsTheTypedFolder)
{
    const Io::Path inner = folder.path() / L"\u00fcber uns";
    std::filesystem::create_directory(inner.native());
    DialogRobot robot({enter(inner)});
    EXPECT_EQ(dirSelectDlg(owner, L"Folder", folder.path()), inner);
    EXPECT_TRUE(isFrameUsable());
}

TEST_F(FileDialogsTest, dirSelect_ofAFolderThatDoesNotExist_letsTheUserChoose)
{
    DialogRobot robot({enter(folder.path())});
    EXPECT_EQ(dirSelectDlg(owner, L"Folder", folder.path() / L"none"), folder.path());
}

TEST_F(FileDialogsTest, dirSelect_ofAFolderThatDoesNotExist_startsInTheNearestFolderOnGtk)
{
    if (!isGtk())
        GTEST_SKIP() << "Windows opens its usual folder.";
    DialogRobot robot({cancelWhenShown(folder.path())});
    EXPECT_TRUE(dirSelectDlg(owner, L"Folder", missing).isEmpty());
}

TEST_F(FileDialogsTest, dirSelect_cancelled_isEmpty)
{
    DialogRobot robot({press(WXK_ESCAPE)});
    EXPECT_TRUE(dirSelectDlg(owner, L"Folder", folder.path()).isEmpty());
    EXPECT_TRUE(isFrameUsable());
}
