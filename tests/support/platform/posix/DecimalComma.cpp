// SPDX-License-Identifier: MIT
#include "support/DecimalComma.h"

#include "NolvexLib/DecimalPoint.h"

#include <unistd.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>

namespace Nolvex::Tests {

namespace {

constexpr const char* LOCALE = "de_DE.UTF-8";

bool useLocale()
{
    return std::setlocale(LC_NUMERIC, LOCALE) != nullptr;
}

// Few systems have compiled locales of other countries, but many have their sources.
void compileAndUseLocale()
{
    namespace fs = std::filesystem;
    const fs::path folder = fs::temp_directory_path() / ("nolvex-test-locale-" + std::to_string(::getpid()));
    fs::create_directories(folder);
    const std::string command =
        "localedef -i de_DE -f UTF-8 '" + (folder / LOCALE).string() + "' >/dev/null 2>&1";
    if (std::system(command.c_str()) == 0) {
        ::setenv("LOCPATH", folder.c_str(), 1);
        useLocale();
        ::unsetenv("LOCPATH");
    }
    // A locale in use no longer needs its files.
    fs::remove_all(folder);
}

} // namespace

DecimalComma::DecimalComma()
{
    const std::string former = std::setlocale(LC_NUMERIC, nullptr);
    m_former.assign(former.begin(), former.end());
    if (!useLocale())
        compileAndUseLocale();
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
