// SPDX-License-Identifier: MIT
#pragma once

/// Lets controls include their marker from the folder of the widgets. The class itself is in the parent
/// folder, because moveFocus includes it and must not depend on controls.
#include "NolvexLibWx/Focusable.h"
