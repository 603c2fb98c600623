// SPDX-License-Identifier: MIT
// The same program as SmallProgram.cpp, made of wxWidgets alone.
#include "programs/SmallWindow.h"

namespace {

class SmallApp : public wxApp
{
public:
    bool OnInit() override
    {
        Nolvex::Benchmarks::showSmallWindow();
        return true;
    }
};

} // namespace

wxIMPLEMENT_APP(SmallApp);
