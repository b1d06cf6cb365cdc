// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The host's stem formats and how many channels each one means.

#include "StemFormats.h"

#include "CDAEError.h"
#include "HostInterface.h"

#include <array>

namespace
{
struct StemFormatRow
{
    std::int32_t stemFormat, numChannels;
    bool isAnnounced; // of several formats with as many channels, the one that types here take
};

constexpr auto stemFormats = std::to_array<StemFormatRow> ({
    { stemFormatMono, 1, true },
    { stemFormatStereo, 2, true },
    { 2, 3, true },
    { 3, 4, true },
    { 4, 4, false },
    { 5, 5, true },
    { 6, 6, true },
    { 7, 6, false },
    { 8, 7, false },
    { 9, 7, true },
    { 10, 8, true },
});
} // namespace

std::int32_t SurroundFormatToNumChannels (std::int32_t stemFormat)
{
    for (const auto& row : stemFormats)
        if (row.stemFormat == stemFormat)
            return row.numChannels;

    throw CDAEError (ficUnknownException);
}

std::int32_t stemFormatOf (std::int32_t numChannels) noexcept
{
    for (const auto& row : stemFormats)
        if (row.numChannels == numChannels && row.isAnnounced)
            return row.stemFormat;

    return stemFormatNone;
}
