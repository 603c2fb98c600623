// SPDX-License-Identifier: MIT
#include "apps/gallery/SkinFile.h"

#include "apps/gallery/SkinFields.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace Nolvex;
using Gallery::skinFromXml;

namespace {

namespace fs = std::filesystem;

Wx::GuiSkin sampleSkin()
{
    Wx::GuiSkin skin;
    std::uint8_t byte = 0;
    for (const Gallery::SkinField& field : Gallery::SKIN_FIELDS) {
        skin.*field.color = {byte, static_cast<std::uint8_t>(255 - byte), 0x0A};
        byte = static_cast<std::uint8_t>(byte + 17);
    }
    return skin;
}

const char* const XML = "<root><GuiSkin><text>00FF0A</text><disabledText>11EE0A</disabledText>"
                        "<background>22DD0A</background><darkBackground>33CC0A</darkBackground>"
                        "<accentText>44BB0A</accentText><accent>55AA0A</accent>"
                        "<pressedBackground>66990A</pressedBackground><link>77880A</link>"
                        "<highlight>88770A</highlight></GuiSkin></root>";

/// Returns the sample with one part replaced.
std::string changed(std::string_view what, std::string_view with)
{
    std::string xml = XML;
    const std::size_t place = xml.find(what);
    EXPECT_NE(place, std::string::npos) << what;
    return xml.replace(place, what.size(), with);
}

/// Returns the error, or an empty text for a skin.
std::string errorOf(std::string_view xml)
{
    const Expected<Wx::GuiSkin, String> skin = skinFromXml(xml);
    return skin ? std::string() : skin.error().toUtf8();
}

} // namespace

TEST(SkinFileTest, skin_isWrittenAsATreeOfItsFields)
{
    EXPECT_EQ(Gallery::skinToXml(sampleSkin()), XML);
}

TEST(SkinFileTest, writtenSkin_comesBack)
{
    const Expected<Wx::GuiSkin, String> skin = skinFromXml(XML);
    ASSERT_TRUE(skin) << skin.error().toUtf8();
    EXPECT_EQ(*skin, sampleSkin());
}

TEST(SkinFileTest, coloursInAnyOrderAsNumbersOrSmallLetters_areRead)
{
    for (const std::string& xml :
         {changed("55AA0A", "55aa0a"), changed("55AA0A", "85, 170, 10"), changed("55AA0A", " 85 170\n10 "),
          changed("<text>00FF0A</text><disabledText>11EE0A</disabledText>",
                  "\n  <disabledText>11EE0A</disabledText>\n  <text>000,255,010</text>\n")}) {
        const Expected<Wx::GuiSkin, String> skin = skinFromXml(xml);
        ASSERT_TRUE(skin) << xml << skin.error().toUtf8();
        EXPECT_EQ(*skin, sampleSkin());
    }
}

TEST(SkinFileTest, colourThatIsNone_isNamed)
{
    for (const char* text : {"", "55AA0", "55AA0A0", "#55AA0A", "55AA0G", "85 170", "85 170 10 0", "256 0 0",
                             "-1 0 0", "85;170;10", "1e2 0 0", "0x1 0 0", "85.0 170 10", "red", "   ", ","})
        EXPECT_EQ(errorOf(changed("55AA0A", text)),
                  "The colour \"accent\" is neither six hexadecimal digits nor three numbers from 0 to 255.")
            << text;
    EXPECT_NE(errorOf(changed("55AA0A", "<r>1</r>")), "");
}

TEST(SkinFileTest, missingOrRepeatedColour_isNamed)
{
    EXPECT_EQ(errorOf(changed("<link>77880A</link>", "")), "The skin has no colour \"link\".");
    EXPECT_EQ(errorOf(changed("<link>77880A</link>", "<link>77880A</link><link>77880A</link>")),
              "The skin has the colour \"link\" more than once.");
    EXPECT_EQ(errorOf(changed("<link>", "<extra>1</extra><link>")),
              "The skin has more than its nine colours.");
    EXPECT_EQ(errorOf(changed("<link>77880A</link>", "<Link>77880A</Link>")),
              "The skin has no colour \"link\".");
}

TEST(SkinFileTest, anythingElse_isNoSkin)
{
    EXPECT_EQ(errorOf("<root></root>"), "This is XML, but not that of one skin.");
    EXPECT_EQ(errorOf("<root><GuiSkin></GuiSkin><Other></Other></root>"),
              "This is XML, but not that of one skin.");
    EXPECT_EQ(errorOf("<root><GuiSkin>text</GuiSkin></root>"), "This is XML, but not that of one skin.");
    const std::string twice = std::string(XML).substr(6, std::string(XML).size() - 13);
    EXPECT_EQ(errorOf("<root>" + twice + twice + "</root>"), "This is XML, but not that of one skin.");
    for (const char* text : {"", "nonsense", "\xFF\xFE", "<root><GuiSkin>"})
        EXPECT_TRUE(errorOf(text).starts_with("This is no XML of a skin. ")) << errorOf(text);
}

TEST(SkinFileTest, savedSkin_isLoaded)
{
    const Tests::TemporaryFolder folder;
    const Io::Path file = folder.file(L"sk\u00EFn.xml");
    EXPECT_EQ(Gallery::saveSkin(sampleSkin(), file), L"");
    const Expected<Wx::GuiSkin, String> loaded = Gallery::loadSkin(file);
    ASSERT_TRUE(loaded);
    EXPECT_EQ(*loaded, sampleSkin());
}

TEST(SkinFileTest, fileThatIsTooLargeOrNotThere_isRefused)
{
    const Tests::TemporaryFolder folder;
    std::string content = XML;
    content.resize(Gallery::MAX_SKIN_FILE_SIZE, ' ');
    EXPECT_TRUE(Gallery::loadSkin(folder.file(L"fits.xml", content)));
    EXPECT_FALSE(Gallery::loadSkin(folder.file(L"large.xml", content + ' ')));
    EXPECT_FALSE(Gallery::loadSkin(folder.file(L"missing.xml")));
    EXPECT_FALSE(Gallery::loadSkin(folder.path()));
}

TEST(SkinFileTest, fileThatCannotBeWritten_isReported)
{
    const Tests::TemporaryFolder folder;
    const Io::Path file = folder.path() / L"missing" / L"skin.xml";
    EXPECT_NE(Gallery::saveSkin(sampleSkin(), file), L"");
    EXPECT_FALSE(fs::exists(file.native()));
}
