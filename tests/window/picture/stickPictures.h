#pragma once

#include <string>

/// Draws the windows of the sticks into PNG files of the folder, with the shipped catalogues and
/// boards that stand still. False when a file cannot be written.
bool drawStickWindows(const std::string& folder);
