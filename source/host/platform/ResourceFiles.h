// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Resource files by number: which are open, and which one is the current one.

#pragma once

#include <cstdint>

namespace platform
{
/** The file of the program itself, which is current until another one is chosen. */
inline constexpr std::int16_t programResourceFile = 0;

/** [host-main] Opens the bundle's resources and makes them the current file. Returns their number, above 0.
 */
std::int16_t openBundleResources();

/** [host-main] Closes a file. If it was the current one, the program's becomes current. */
void closeResourceFile (std::int16_t file) noexcept;

/** [host-main] */
std::int16_t currentResourceFile() noexcept;

/** [host-main] Makes an open file the current one; another number changes nothing. */
void useResourceFile (std::int16_t file) noexcept;

/** [host-main] Files open beside the program's own. */
int numOpenResourceFiles() noexcept;
} // namespace platform
