// SPDX-License-Identifier: MIT
#include "NolvexLib/WinApi/ModuleHandle.h"

#include "NolvexLib/Exception.h"

#include <gtest/gtest.h>

#include <memory>

namespace Nolvex::WinApi {
namespace {

int function()
{
    return 1;
}

const int CONSTANT = 2;

TEST(ModuleHandleTest, getModuleHandle_ofCodeAndDataOfThisProgram_isTheSame)
{
    void* const handle = getModuleHandle(reinterpret_cast<const void*>(&function));
    EXPECT_NE(handle, nullptr);
    EXPECT_EQ(getModuleHandle(&CONSTANT), handle);
}

TEST(ModuleHandleTest, getModuleHandle_ofTheLibrary_isAnother)
{
    // The vtable of an exported class lies in its library.
    const Exception exception("");
    const void* const vtable = *reinterpret_cast<const void* const*>(&exception);
    void* const handle = getModuleHandle(vtable);
    EXPECT_NE(handle, nullptr);
    EXPECT_NE(handle, getModuleHandle(&CONSTANT));
}

TEST(ModuleHandleTest, getModuleHandle_ofMemoryOfNoModule_isNull)
{
    const auto onHeap = std::make_unique<int>();
    EXPECT_EQ(getModuleHandle(onHeap.get()), nullptr);
    EXPECT_EQ(getModuleHandle(nullptr), nullptr);
}

} // namespace
} // namespace Nolvex::WinApi
