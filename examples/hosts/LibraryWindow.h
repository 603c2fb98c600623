// SPDX-License-Identifier: MIT
#pragma once

/// Opens the window of the library that the hosts show, or raises the window if it is open.
void openLibraryWindow();

/// Closes the window, before the library stops.
void closeLibraryWindow();
