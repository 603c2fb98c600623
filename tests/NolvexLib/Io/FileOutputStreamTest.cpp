// SPDX-License-Identifier: MIT
#include "NolvexLib/Io/FileOutputStream.h"

#include "Bytes.h"
#include "NolvexLib/Exception.h"
#include "NolvexLib/Io/FileInputStream.h"
#include "NolvexLib/StopException.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace Nolvex::Io {
namespace {

class FileOutputStreamTest : public testing::Test
{
protected:
    static std::string contentOf(const Path& path)
    {
        FileInputStream stream(path);
        return Tests::readAll(stream);
    }

    static void writeFile(const Path& path, Flags<Open> flags, std::string_view text)
    {
        FileOutputStream stream(path, flags);
        Tests::writeText(stream, text);
        stream.close();
    }

    Tests::TemporaryFolder m_folder;
};

TEST_F(FileOutputStreamTest, write_keepsTheBytesUnchanged)
{
    const std::string content("a\r\nb\n\0c\x1A"
                              "d\xFF",
                              10);
    const Path path = m_folder.file(L"\u00e4\u4e2d");
    writeFile(path, Open::TRUNCATE, content);
    EXPECT_EQ(contentOf(path), content);
}

TEST_F(FileOutputStreamTest, constructor_truncating_emptiesTheFile)
{
    const Path path = m_folder.file(L"file", "long old content");
    writeFile(path, Open::TRUNCATE, "new");
    EXPECT_EQ(contentOf(path), "new");
}

TEST_F(FileOutputStreamTest, constructor_appending_keepsTheContent)
{
    const Path path = m_folder.file(L"file", "old,");
    writeFile(path, Open::APPEND, "new");
    EXPECT_EQ(contentOf(path), "old,new");
}

TEST_F(FileOutputStreamTest, constructor_appendingToMissingFile_createsIt)
{
    const Path path = m_folder.file(L"file");
    writeFile(path, Open::APPEND, "new");
    EXPECT_EQ(contentOf(path), "new");
}

TEST_F(FileOutputStreamTest, constructor_truncatingAndAppending_emptiesAndWritesToTheEnd)
{
    const Path path = m_folder.file(L"file", "old");
    FileOutputStream stream(path, {Open::APPEND, Open::TRUNCATE});
    stream.write("a", 1);
    stream.flush();
    writeFile(path, Open::APPEND, "between");
    stream.write("b", 1);
    stream.close();
    EXPECT_EQ(contentOf(path), "abetweenb");
}

TEST_F(FileOutputStreamTest, constructor_withoutFlags_createsButNeverTouchesWhatIsThere)
{
    const Path path = m_folder.file(L"file");
    writeFile(path, {}, "first");
    EXPECT_THROW(FileOutputStream(path, {}), Exception);
    EXPECT_EQ(contentOf(path), "first");
}

TEST_F(FileOutputStreamTest, constructor_ofFolder_raises)
{
    EXPECT_THROW(FileOutputStream(m_folder.path(), Open::TRUNCATE), Exception);
    EXPECT_THROW(FileOutputStream(m_folder.path(), Open::APPEND), Exception);
}

TEST_F(FileOutputStreamTest, constructor_inMissingFolder_raisesWithPathAndReason)
{
    const Path path = m_folder.file(L"missing") / L"file";
    try {
        const FileOutputStream stream(path, Open::TRUNCATE);
        FAIL() << "opened";
    } catch (const Exception& exception) {
        EXPECT_EQ(exception.what(), "The file \"" + path.nativeStr().toUtf8() +
                                        "\" cannot be opened for writing: No such file or directory.");
    }
}

TEST_F(FileOutputStreamTest, constructor_ofReadOnlyFile_raises)
{
    const Path path = m_folder.file(L"file", "content");
    const auto writable = std::filesystem::status(path.native()).permissions();
    std::filesystem::permissions(path.native(), std::filesystem::perms::owner_read);
    if (std::ofstream(path.native(), std::ios::app).is_open())
        GTEST_SKIP() << "this user may write to everything";
    EXPECT_THROW(FileOutputStream(path, Open::APPEND), Exception);
    std::filesystem::permissions(path.native(), writable);
}

TEST_F(FileOutputStreamTest, flush_makesTheBytesVisible)
{
    const Path path = m_folder.file(L"file");
    FileOutputStream stream(path, Open::TRUNCATE);
    stream.write("abc", 3);
    stream.flush();
    EXPECT_EQ(contentOf(path), "abc");
}

TEST_F(FileOutputStreamTest, destructor_writesWhatWasHeldBack)
{
    const Path path = m_folder.file(L"file");
    {
        FileOutputStream stream(path, Open::TRUNCATE);
        stream.write("abc", 3);
    }
    EXPECT_EQ(contentOf(path), "abc");
}

TEST_F(FileOutputStreamTest, close_again_doesNothing)
{
    FileOutputStream stream(m_folder.file(L"file"), Open::TRUNCATE);
    stream.close();
    EXPECT_NO_THROW(stream.close());
}

TEST_F(FileOutputStreamTest, write_afterClose_isAProgrammingError)
{
    FileOutputStream stream(m_folder.file(L"file"), Open::TRUNCATE);
    stream.close();
    EXPECT_THROW(stream.write("a", 1), StopException);
    EXPECT_THROW(stream.flush(), StopException);
}

// Writes to the device that is always full.
class FullDiskTest : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!std::filesystem::exists(m_device.native()))
            GTEST_SKIP() << "there is no full device here";
    }

    Path m_device{L"/dev/full"};
};

TEST_F(FullDiskTest, write_largerThanTheBuffer_raises)
{
    FileOutputStream stream(m_device, Open::APPEND);
    const std::string text(1 << 20, 'x');
    EXPECT_THROW(Tests::writeText(stream, text), Exception);
}

TEST_F(FullDiskTest, flush_raisesWithPathAndReason)
{
    FileOutputStream stream(m_device, Open::APPEND);
    stream.write("x", 1);
    try {
        stream.flush();
        FAIL() << "flushed";
    } catch (const Exception& exception) {
        EXPECT_STREQ(exception.what(), "The file \"/dev/full\" cannot be written: No space left on device.");
    }
}

TEST_F(FullDiskTest, close_raisesAndClosesNevertheless)
{
    FileOutputStream stream(m_device, Open::APPEND);
    stream.write("x", 1);
    EXPECT_THROW(stream.close(), Exception);
    EXPECT_NO_THROW(stream.close());
}

TEST_F(FullDiskTest, close_afterWriteThatRaised_raises)
{
    FileOutputStream stream(m_device, Open::APPEND);
    const std::string text(1 << 20, 'x');
    EXPECT_THROW(Tests::writeText(stream, text), Exception);
    EXPECT_THROW(stream.close(), Exception);
}

TEST_F(FullDiskTest, destructor_withoutClose_isSilent)
{
    EXPECT_NO_THROW({
        FileOutputStream stream(m_device, Open::APPEND);
        stream.write("x", 1);
    });
}

} // namespace
} // namespace Nolvex::Io
