// SPDX-License-Identifier: MIT
#include "NolvexLib/XmlString.h"
#include "NolvexLibImage/Image.h"

int main()
{
    Nolvex::XmlString message;
    message.addChild(L"Greeting", Nolvex::String(L"hello"));
    const auto image = Nolvex::Image::create(4, 3, Nolvex::PixelFormat::UINT8_RGB, 1.0f);
    return message.getChild(L"Greeting").has_value() && image.hasValue() ? 0 : 1;
}
