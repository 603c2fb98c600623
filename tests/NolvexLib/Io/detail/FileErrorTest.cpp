// SPDX-License-Identifier: MIT
#include "NolvexLib/Exception.h"
#include "NolvexLib/Io/FileInputStream.h"
#include "NolvexLib/Io/FileOutputStream.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace Nolvex::Io {
namespace {

// An internal function of the library makes the messages, which the test sees through the streams.
std::string messageOf(const std::function<void()>& act)
{
    try {
        act();
    } catch (const Exception& exception) {
        return exception.what();
    }
    return "nothing was thrown";
}

TEST(FileErrorTest, message_namesTheFileInUtf8AndTheReason)
{
    const Tests::TemporaryFolder folder;
    const Path missing = folder.path() / String::fromUtf8("\xC3\xA4\xE2\x82\xAC.txt");
    EXPECT_EQ(messageOf([&] { FileInputStream{missing}; }),
              "The file \"" + missing.nativeStr().toUtf8() +
                  "\" cannot be opened: No such file or directory.");
}

TEST(FileErrorTest, message_ofAFailedCreation_saysThatItWasForWriting)
{
    const Tests::TemporaryFolder folder;
    const Path inMissingFolder = folder.path() / Path(L"missing") / Path(L"file");
    const std::string message = messageOf([&] { FileOutputStream(inMissingFolder, Open::TRUNCATE); });
    EXPECT_NE(message.find("\" cannot be opened for writing: "), std::string::npos) << message;
    EXPECT_TRUE(message.ends_with(".")) << message;
}

TEST(FileErrorTest, nameWithAZero_isRefusedInsteadOfOpeningAnotherFile)
{
    const Tests::TemporaryFolder folder;
    const Path shorter = folder.path() / Path(L"file");
    FileOutputStream(shorter, {}).close();
    const Path withZero = folder.path() / Path(StringView(std::wstring_view(L"file\0tail", 9)));
    EXPECT_NE(messageOf([&] { FileInputStream{withZero}; }).find("cannot be opened"), std::string::npos);
    EXPECT_NE(messageOf([&] { FileOutputStream(withZero, Open::TRUNCATE); }).find("cannot be opened"),
              std::string::npos);
}

TEST(FileErrorTest, folder_isRefusedForReadingAndWriting)
{
    const Tests::TemporaryFolder folder;
    const Path path = folder.path();
    EXPECT_NE(messageOf([&] { FileInputStream{path}; }).find("cannot be opened"), std::string::npos);
    EXPECT_NE(messageOf([&] { FileOutputStream(path, Open::APPEND); }).find("cannot be opened for writing"),
              std::string::npos);
}

} // namespace
} // namespace Nolvex::Io
