// SPDX-License-Identifier: MIT
#include "support/DecimalComma.h"

#include "NolvexLib/DecimalPoint.h"

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace Nolvex::Tests {

namespace {

constexpr const char* LOCALE = "de_DE.UTF-8";

bool useLocale()
{
    return std::setlocale(LC_NUMERIC, LOCALE) != nullptr;
}

// Few systems have compiled locales of other countries, but many have their sources.
void compileLocale()
{
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "nolvex-test-locales";
    std::filesystem::create_directories(folder);
    const std::string target = (folder / LOCALE).string();
    const std::string command = "localedef -i de_DE -f UTF-8 '" + target + "' >/dev/null 2>&1";
    if (std::filesystem::exists(target) || std::system(command.c_str()) == 0)
        ::setenv("LOCPATH", folder.c_str(), 1);
}

} // namespace

DecimalComma::DecimalComma()
{
    const std::string former = std::setlocale(LC_NUMERIC, nullptr);
    m_former.assign(former.begin(), former.end());
    if (useLocale())
        return;
    compileLocale();
    useLocale();
}

DecimalComma::~DecimalComma()
{
    std::setlocale(LC_NUMERIC, std::string(m_former.begin(), m_former.end()).c_str());
}

bool DecimalComma::isInEffect() const
{
    return decimalPointCharacter() == L',';
}

} // namespace Nolvex::Tests
