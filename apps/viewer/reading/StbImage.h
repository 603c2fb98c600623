// SPDX-License-Identifier: MIT
#pragma once

// stb_image with the decoder that the viewer uses alone.
#define STBI_NO_STDIO
#define STBI_ONLY_HDR
#include <stb_image.h>
