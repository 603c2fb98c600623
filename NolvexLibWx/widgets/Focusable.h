// SPDX-License-Identifier: MIT
#pragma once

/// Controls find their marker beside the other widgets. The class itself lies a folder higher, where
/// moveFocus, which knows no control, can include it.
#include "NolvexLibWx/Focusable.h"
