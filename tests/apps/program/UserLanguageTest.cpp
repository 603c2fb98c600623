// SPDX-License-Identifier: MIT
#include "apps/program/platform/UserLanguage.h"

#include <wx/platinfo.h>
#include <wx/utils.h>

#include <gtest/gtest.h>

#include <clocale>
#include <string>

using namespace Nolvex;

namespace {

struct UserLanguageTest : testing::Test
{
    ~UserLanguageTest() override { std::setlocale(LC_ALL, m_before.c_str()); }

    void SetUp() override
    {
        if (wxPlatformInfo::Get().GetPortId() != wxPORT_GTK)
            GTEST_SKIP() << "Windows shows its dialogs in the user's language to every program.";
        wxGetEnv("LC_ALL", &m_language);
        std::setlocale(LC_ALL, "C");
    }

    void TearDown() override { wxSetEnv("LC_ALL", m_language); }

    static std::string localeOf(int category) { return std::setlocale(category, nullptr); }

private:
    const std::string m_before = localeOf(LC_ALL);
    wxString m_language;
};

} // namespace

TEST_F(UserLanguageTest, ofTheEnvironment_isThatOfTextsButNotOfNumbers)
{
    wxSetEnv("LC_ALL", "C.UTF-8");
    Program::useLanguageOfUser();
#ifdef LC_MESSAGES // Windows has no such category.
    EXPECT_EQ(localeOf(LC_MESSAGES), "C.UTF-8");
#endif
    EXPECT_EQ(localeOf(LC_CTYPE), "C.UTF-8");
    EXPECT_EQ(localeOf(LC_NUMERIC), "C");
    EXPECT_EQ(localeOf(LC_TIME), "C");
}

TEST_F(UserLanguageTest, thatIsNotInstalled_changesNothing)
{
    wxSetEnv("LC_ALL", "xx_XX.UTF-8");
    Program::useLanguageOfUser();
    EXPECT_EQ(localeOf(LC_ALL), "C");
}
