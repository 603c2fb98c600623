// SPDX-License-Identifier: MIT
#include "apps/program/platform/UserLanguage.h"

#include <langinfo.h>

#include <clocale>
#include <cstring>

// The texts of GTK's dialogs are in the language of LC_MESSAGES, and GTK chooses the input method by
// LC_CTYPE. The direction of the program's own windows stays that of their English texts, because wxWidgets
// asks its own locale.
void Nolvex::Program::useLanguageOfUser()
{
    std::setlocale(LC_MESSAGES, "");
    // The names of files are UTF-8, however the user's terminal is set up.
    if (std::setlocale(LC_CTYPE, "") != nullptr && std::strcmp(::nl_langinfo(CODESET), "UTF-8") != 0)
        std::setlocale(LC_CTYPE, "C");
}
