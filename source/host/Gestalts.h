// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The numbers with which a host asks what a plug-in has, and the kind of plug-in that this one is.

#pragma once

#include <cstdint>

/** The plug-in type of what runs natively, on the host's real-time thread. */
inline constexpr std::int32_t nativePlugInType = 3;

namespace Gestalts
{
inline constexpr std::int32_t sideChainPort = 5; // answers the number of the port
inline constexpr std::int32_t effect = 7;
inline constexpr std::int32_t category = 21;  // answers the category
inline constexpr std::int32_t chunkKind = 28; // is given a chunk's ID
inline constexpr std::int32_t stemFormats = 29;
inline constexpr std::int32_t withAuxOutputStems = 30;
inline constexpr std::int32_t sampleRateSupport = 32; // answers which rates
inline constexpr std::int32_t scatterGatherWorker = 38;
inline constexpr std::int32_t auxOutputStems = 41;
inline constexpr std::int32_t variableQuanta = 48;
} // namespace Gestalts
