// SPDX-License-Identifier: MIT
#include "apps/viewer/Settings.h"

#include "NolvexLib/ImageFormat.h"
#include "NolvexLibWx/StringConversions.h"
#include "support/FrameFixture.h"
#include "support/TemporaryFolder.h"

#include <wx/display.h>
#include <wx/fileconf.h>
#include <wx/log.h>
#include <wx/sstream.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

using namespace Nolvex;
using Viewer::Preferences;
using Viewer::Settings;

namespace {

std::shared_ptr<wxConfigBase> emptyConfig()
{
    wxStringInputStream nothing{wxString()};
    return std::make_shared<wxFileConfig>(nothing);
}

// Paths that need not exist, with the name of the disk that absolute paths have on Windows.
Io::Path absolutePath(const wchar_t* name)
{
    return std::filesystem::absolute((Io::Path(L"/pictures") / Io::Path(name)).native());
}

// The messages of wxWidgets, which may open boxes in a host that has not switched them off.
class LoggedMessages
{
public:
    LoggedMessages() : m_wasEnabled(wxLog::EnableLogging()), m_previous(wxLog::SetActiveTarget(&m_messages))
    {}

    ~LoggedMessages()
    {
        wxLog::SetActiveTarget(m_previous);
        wxLog::EnableLogging(m_wasEnabled);
    }

    LoggedMessages(const LoggedMessages&) = delete;
    LoggedMessages& operator=(const LoggedMessages&) = delete;

    const wxString& text() const { return m_messages.GetBuffer(); }

private:
    wxLogBuffer m_messages;
    bool m_wasEnabled;
    wxLog* m_previous;
};

struct SettingsTest : Tests::FrameFixture
{
    std::shared_ptr<wxConfigBase> config = emptyConfig();
    Settings settings{config};

    void writePlace(const wxRect& place) const
    {
        config->Write(L"/window/x", place.x);
        config->Write(L"/window/y", place.y);
        config->Write(L"/window/width", place.width);
        config->Write(L"/window/height", place.height);
    }

    // Returns whether the window was put there. A window that was not must be where it was before.
    bool isRestored(const wxRect& place) const
    {
        const wxRect before = frame->GetRect();
        writePlace(place);
        const bool restored = settings.restore(*frame);
        EXPECT_EQ(frame->GetRect(), restored ? place : before);
        return restored;
    }

    Array<wxString> recentNames() const
    {
        Array<wxString> names;
        for (const Io::Path& file : settings.recentFiles())
            names.push_back(Wx::toWxString(file.fileName()));
        return names;
    }
};

} // namespace

TEST_F(SettingsTest, place_isRestored)
{
    EXPECT_TRUE(isRestored({60, 70, 320, 240}));
}

TEST_F(SettingsTest, placeOfAShownWindow_isRestored)
{
    showFrame();
    frame->SetSize(130, 140, 350, 260);
    ASSERT_TRUE(Tests::pumpUntilStable([this] { return frame->GetSize() == wxSize(350, 260); }, 50));
    const wxRect place = frame->GetRect();
    settings.remember(*frame);
    frame->SetSize(20, 30, 200, 150);
    Tests::pumpUntilStable([this] { return frame->GetSize() == wxSize(200, 150); }, 50);
    EXPECT_TRUE(settings.restore(*frame));
    EXPECT_TRUE(Tests::pumpUntil([&] { return frame->GetRect() == place; }));
}

TEST_F(SettingsTest, nothingRemembered_restoresNothing)
{
    const wxRect before = frame->GetRect();
    EXPECT_FALSE(settings.restore(*frame));
    EXPECT_EQ(frame->GetRect(), before);
}

TEST_F(SettingsTest, placeBesideAllDisplays_isNotRestored)
{
    wxRect seen;
    for (unsigned i = 0; i < wxDisplay::GetCount(); ++i)
        seen.Union(wxDisplay(i).GetGeometry());
    EXPECT_FALSE(isRestored({seen.GetRight() + 1, 100, 320, 240}));
    EXPECT_FALSE(isRestored({100, seen.GetBottom() + 1, 320, 240}));
    EXPECT_FALSE(isRestored({seen.x - 320, 100, 320, 240}));
    EXPECT_FALSE(isRestored({seen.GetRight() - 20, 100, 320, 240})) << "a strip is too narrow to be found";
}

TEST_F(SettingsTest, placeWithTheTitleBarAboveTheDisplay_isNotRestored)
{
    EXPECT_FALSE(isRestored({100, wxDisplay(0U).GetClientArea().y - 30, 320, 240}));
}

TEST_F(SettingsTest, placeWithoutSize_isNotRestored)
{
    EXPECT_FALSE(isRestored({100, 100, 0, 240}));
    EXPECT_FALSE(isRestored({100, 100, 320, -1}));
}

TEST_F(SettingsTest, maximisedWindow_keepsThePlaceOfBefore)
{
    showFrame();
    const wxRect place(60, 70, 320, 240);
    writePlace(place);
    frame->Maximize();
    if (!Tests::pumpUntil([this] { return frame->IsMaximized(); }, 1000))
        GTEST_SKIP() << "no window manager maximises windows";
    settings.remember(*frame);
    EXPECT_TRUE(config->ReadBool(L"/window/maximised", false));
    EXPECT_EQ(config->ReadLong(L"/window/width", 0), place.width);
    frame->Maximize(false);
    ASSERT_TRUE(Tests::pumpUntil([this] { return !frame->IsMaximized(); }));
    EXPECT_TRUE(settings.restore(*frame));
    EXPECT_TRUE(Tests::pumpUntil([this] { return frame->IsMaximized(); }));
}

TEST_F(SettingsTest, recentFiles_areListedWithTheLatestFirst)
{
    EXPECT_TRUE(settings.recentFiles().empty());
    for (const wchar_t* name : {L"a.png", L"b.png", L"c.png"})
        settings.addRecentFile(absolutePath(name));
    const Array<Io::Path> expected{absolutePath(L"c.png"), absolutePath(L"b.png"), absolutePath(L"a.png")};
    EXPECT_EQ(settings.recentFiles(), expected);
}

TEST_F(SettingsTest, fileOpenedAgain_movesToTheTop)
{
    for (const wchar_t* name : {L"a.png", L"b.png", L"c.png", L"a.png"})
        settings.addRecentFile(absolutePath(name));
    EXPECT_EQ(recentNames(), (Array<wxString>{L"a.png", L"c.png", L"b.png"}));
}

TEST_F(SettingsTest, tenthFile_pushesTheOldestOut)
{
    for (int i = 0; i < 10; ++i)
        settings.addRecentFile(absolutePath((std::to_wstring(i) + L".png").c_str()));
    const Array<wxString> names = recentNames();
    ASSERT_EQ(names.size(), 9U);
    EXPECT_EQ(names.front(), L"9.png");
    EXPECT_EQ(names.back(), L"1.png");
}

TEST_F(SettingsTest, relativeFile_isFoundFromEveryFolder)
{
    settings.addRecentFile(Io::Path(L"a.png"));
    EXPECT_EQ(settings.recentFiles(), Array<Io::Path>{Io::Path(std::filesystem::absolute("a.png"))});
}

TEST_F(SettingsTest, pictureWithoutFile_isNoRecentFile)
{
    settings.addRecentFile({});
    EXPECT_TRUE(settings.recentFiles().empty());
}

TEST_F(SettingsTest, unusualNames_stayAsTheyAre)
{
    for (const wchar_t* name : {L"$HOME.png", L"%PATH%.png", L"${HOME} \u00fc.png", L" a=b [c].png"}) {
        settings.addRecentFile(absolutePath(name));
        EXPECT_EQ(settings.recentFiles().front(), absolutePath(name));
    }
}

TEST_F(SettingsTest, nextRun_findsWhatTheLastOneRemembered)
{
    const Tests::TemporaryFolder folder;
    const Io::Path file = folder.file(L"settings.ini");
    {
        Settings last(Settings::inFile(file));
        frame->SetSize(60, 70, 320, 240);
        last.remember(*frame);
        for (const wchar_t* name : {L"a.png", L" $HOME \u00fc.png", L"a\"b.png"})
            last.addRecentFile(absolutePath(name));
    }
    frame->SetSize(10, 20, 200, 150);
    const Settings next(Settings::inFile(file));
    EXPECT_TRUE(next.restore(*frame));
    EXPECT_EQ(frame->GetRect(), wxRect(60, 70, 320, 240));
    EXPECT_EQ(next.recentFiles(),
              (Array<Io::Path>{absolutePath(L"a\"b.png"), absolutePath(L" $HOME \u00fc.png"),
                               absolutePath(L"a.png")}));
}

TEST_F(SettingsTest, preferences_areThoseOfTheLastRun)
{
    EXPECT_EQ(settings.preferences(), Preferences());
    Preferences preferences;
    preferences.picturesPanel = false;
    preferences.informationPanel = true;
    preferences.tooltips = false;
    preferences.lightSurround = true;
    preferences.surround = RgbBytes{1, 0xab, 255};
    preferences.encoding = Viewer::Encoding::LINEAR;
    preferences.checkerboard = true;
    settings.setPreferences(preferences);
    EXPECT_EQ(settings.preferences(), preferences);
    settings.setPreferences({});
    EXPECT_EQ(settings.preferences(), Preferences());
}

TEST_F(SettingsTest, saveChoice_isThatOfTheFormat)
{
    EXPECT_FALSE(settings.saveChoice(ImageFormat::PNG));
    settings.setSaveChoice(ImageFormat::PNG, {ColorFormat::UINT16_RGB, true});
    settings.setSaveChoice(ImageFormat::TIFF, {ColorFormat::FLT16_LINEAR_RGB, false});
    ASSERT_TRUE(settings.saveChoice(ImageFormat::PNG));
    EXPECT_EQ(settings.saveChoice(ImageFormat::PNG)->colorFormat, ColorFormat::UINT16_RGB);
    EXPECT_TRUE(settings.saveChoice(ImageFormat::PNG)->includeAlpha);
    EXPECT_EQ(settings.saveChoice(ImageFormat::TIFF)->colorFormat, ColorFormat::FLT16_LINEAR_RGB);
    EXPECT_FALSE(settings.saveChoice(ImageFormat::TIFF)->includeAlpha);
    EXPECT_FALSE(settings.saveChoice(ImageFormat::EXR));
}

TEST_F(SettingsTest, saveChoiceThatTheFormatDoesNotAllow_isNone)
{
    config->Write(L"/save/png/colors", L"FLT32_LINEAR_RGB");
    EXPECT_FALSE(settings.saveChoice(ImageFormat::PNG));
    config->Write(L"/save/png/colors", L"garbage");
    EXPECT_FALSE(settings.saveChoice(ImageFormat::PNG));
    config->Write(L"/save/png/colors", L"UINT16_RGB");
    config->Write(L"/save/png/alpha", L"garbage");
    ASSERT_TRUE(settings.saveChoice(ImageFormat::PNG));
    EXPECT_FALSE(settings.saveChoice(ImageFormat::PNG)->includeAlpha);
}

TEST_F(SettingsTest, lastFolder_isRemembered)
{
    EXPECT_TRUE(settings.lastFolder().isEmpty());
    settings.setLastFolder(absolutePath(L"$HOME \u00fc"));
    settings.setLastFolder({});
    EXPECT_EQ(settings.lastFolder(), absolutePath(L"$HOME \u00fc"));
}

TEST_F(SettingsTest, damagedValues_countAsNone)
{
    const LoggedMessages messages;
    for (const wchar_t* value :
         {L"garbage", L"", L"7", L"-1", L"99999999999999999999", L"1e9", L"0x1", L"\u2603"}) {
        for (const wchar_t* key :
             {L"/panels/pictures", L"/panels/information", L"/look/tooltips", L"/look/light-surround",
              L"/look/checkerboard", L"/look/surround", L"/look/encoding", L"/window/maximised"})
            config->Write(key, value);
        EXPECT_EQ(settings.preferences(), Preferences()) << value;
        EXPECT_FALSE(settings.restore(*frame));
        EXPECT_FALSE(frame->IsMaximized());
    }
    for (const wchar_t* value : {L"garbage", L"2147483647", L"-2147483648", L"99999999999999999999"}) {
        for (const wchar_t* key : {L"/window/x", L"/window/y", L"/window/width", L"/window/height"})
            config->Write(key, value);
        const wxRect place = frame->GetRect();
        EXPECT_FALSE(settings.restore(*frame)) << value;
        EXPECT_EQ(frame->GetRect(), place);
    }
    EXPECT_EQ(messages.text(), L"");
}

TEST_F(SettingsTest, file_thatIsNone_isReplaced)
{
    const Tests::TemporaryFolder folder;
    for (const std::string& content : {std::string(1000, '\xff'), std::string("\0\0[", 3),
                                       std::string("[a\n=b\n]]]\nx"), std::string(70000, '[')}) {
        const Io::Path file = folder.file(L"settings.ini", content);
        const LoggedMessages messages;
        {
            Settings next(Settings::inFile(file));
            EXPECT_EQ(next.preferences(), Preferences());
            next.addRecentFile(absolutePath(L"a.png"));
        }
        EXPECT_EQ(Settings(Settings::inFile(file)).recentFiles(), Array<Io::Path>{absolutePath(L"a.png")});
        EXPECT_EQ(messages.text(), L"") << content.substr(0, 10);
    }
}

TEST_F(SettingsTest, fileThatCannotBeWritten_isNoReasonForAMessage)
{
    const Tests::TemporaryFolder folder;
    const LoggedMessages messages;
    {
        Settings next(Settings::inFile(folder.file(L"no folder", "x") / L"settings.ini"));
        next.addRecentFile(absolutePath(L"a.png"));
        next.setPreferences({});
        next.remember(*frame);
    }
    EXPECT_EQ(messages.text(), L"");
}

TEST_F(SettingsTest, withoutAConfig_nothingIsRemembered)
{
    Settings none;
    none.remember(*frame);
    none.addRecentFile(absolutePath(L"a.png"));
    EXPECT_TRUE(none.recentFiles().empty());
    EXPECT_FALSE(none.restore(*frame));
    EXPECT_FALSE(Settings(nullptr).restore(*frame));
    none.setLastFolder(absolutePath(L"a"));
    EXPECT_TRUE(none.lastFolder().isEmpty());
    none.setSaveChoice(ImageFormat::PNG, {ColorFormat::UINT16_RGB, true});
    EXPECT_FALSE(none.saveChoice(ImageFormat::PNG));
    Preferences other;
    other.tooltips = false;
    none.setPreferences(other);
    EXPECT_EQ(none.preferences(), Preferences());
}
