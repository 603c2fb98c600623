// SPDX-License-Identifier: MIT
#include "apps/program/platform/UserLanguage.h"

// Windows shows its dialogs in the user's language to every program.
void Nolvex::Program::useLanguageOfUser() {}
