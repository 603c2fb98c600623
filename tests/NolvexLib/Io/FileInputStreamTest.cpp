// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/FileInputStream.h"

#include "Bytes.h"
#include "NolvexLib/Exception.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace Nolvex::Io {
namespace {

class FileInputStreamTest : public testing::Test
{
protected:
    // Returns the message of the exception that opening the file raises, or an empty text if the file opens.
    static std::string openFailure(const Path& path)
    {
        try {
            const FileInputStream stream(path);
        } catch (const Exception& exception) {
            return exception.what();
        }
        return {};
    }

    Tests::TemporaryFolder m_folder;
};

TEST_F(FileInputStreamTest, read_givesTheBytesUnchanged)
{
    const std::string content("a\r\nb\n\0c\x1A"
                              "d\xFF",
                              10);
    FileInputStream stream(m_folder.file(L"file", content));
    EXPECT_EQ(Tests::readAll(stream), content);
    EXPECT_TRUE(stream.eof());
}

TEST_F(FileInputStreamTest, read_inSmallPieces_givesAll)
{
    const std::string content = Tests::incompressibleText(20000);
    FileInputStream stream(m_folder.file(L"file", content));
    EXPECT_EQ(Tests::readAll(stream, 7), content);
}

TEST_F(FileInputStreamTest, eof_beforeTheLastByteIsRead_isFalse)
{
    FileInputStream stream(m_folder.file(L"file", "\xFF"
                                                  "b"));
    char byte = 0;
    EXPECT_FALSE(stream.eof());
    EXPECT_EQ(stream.read(&byte, 1), 1);
    EXPECT_EQ(byte, '\xFF');
    EXPECT_FALSE(stream.eof());
    EXPECT_EQ(stream.read(&byte, 1), 1);
    EXPECT_TRUE(stream.eof());
}

TEST_F(FileInputStreamTest, eof_ofEmptyFile_isTrueAtOnce)
{
    FileInputStream stream(m_folder.file(L"file", ""));
    EXPECT_TRUE(stream.eof());
    EXPECT_EQ(Tests::readAll(stream), "");
}

TEST_F(FileInputStreamTest, constructor_withNameBeyondAscii_opensIt)
{
    FileInputStream stream(m_folder.file(L"\u00e4\u4e2d\u0416", "content"));
    EXPECT_EQ(Tests::readAll(stream), "content");
}

TEST_F(FileInputStreamTest, constructor_ofMissingFile_raisesWithPathAndReason)
{
    const Path path = m_folder.file(L"\u00e4.txt");
    EXPECT_EQ(openFailure(path),
              "The file \"" + path.nativeStr().toUtf8() + "\" cannot be opened: No such file or directory.");
}

TEST_F(FileInputStreamTest, constructor_ofFolder_raises)
{
    EXPECT_NE(openFailure(m_folder.path()), "");
}

TEST_F(FileInputStreamTest, constructor_ofEmptyPath_raises)
{
    EXPECT_NE(openFailure(Path()), "");
}

TEST_F(FileInputStreamTest, constructor_ofNameWithZero_doesNotOpenTheNameBeforeIt)
{
    m_folder.file(L"file", "content");
    EXPECT_NE(openFailure(m_folder.file(std::wstring(L"file\0.txt", 9))), "");
}

} // namespace
} // namespace Nolvex::Io
