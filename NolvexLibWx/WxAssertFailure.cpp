// SPDX-License-Identifier: MIT
#include "NolvexLibWx/WxAssertFailure.h"

#include "NolvexLibWx/StringConversions.h"

namespace Nolvex {

Optional<String> Wx::formatWxAssertFailure(const wxString& file, int line, const wxString& func,
                                           const wxString& cond, const wxString& msg)
{
    if (func == L"wxLocale::GetInfo" && cond == L"strcmp(setlocale(0, 0), \"C\") == 0")
        return {};
    if (func == L"wxWindowBase::CaptureMouse")
        return {};

    String text =
        L"An internal error occurred: wxWidgets assertion failure. Please, report this problem to us.\n";
    text += L"File: " + toString(file) + L"(" + std::to_wstring(line) + L")\n";
    text += L"Function: " + toString(func) + L"\n";
    text += L"Condition: " + toString(cond) + L"\n";
    text += L"Message: " + toString(msg);
    return text;
}

} // namespace Nolvex
