// SPDX-License-Identifier: MIT
// The functions of stb_image, which are in its header.
#define STB_IMAGE_IMPLEMENTATION
#include "apps/viewer/reading/StbImage.h"
