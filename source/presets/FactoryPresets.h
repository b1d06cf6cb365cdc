// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The presets that are built in.

#pragma once

#include <array>
#include <bit>
#include <cstdint>

/** What a factory preset sets; every other parameter has its default. Values are normalised. */
struct FactoryPresetRow
{
    const char* name;
    float stereoWidth, safeBass, safeBassFreq;
};

/** Parameter values that the factory presets use, normalised. */
namespace factoryValue
{
inline constexpr float off = 0.0f, on = 1.0f;
inline constexpr float width100 = 0.5f, width105 = 0.525f, width110 = 0.55f, width115 = 0.575f;
inline constexpr float width125 = 0.625f, width150 = 0.75f, width200 = 1.0f;
inline constexpr float freq80 = 0.142f, freq100 = 0.183f, freq150 = 0.286f, freq250 = 0.4898f;

static_assert (std::bit_cast<std::uint32_t> (width105) == 0x3F066666u);
static_assert (std::bit_cast<std::uint32_t> (width110) == 0x3F0CCCCDu);
static_assert (std::bit_cast<std::uint32_t> (width115) == 0x3F133333u);
static_assert (std::bit_cast<std::uint32_t> (freq80) == 0x3E116873u);
static_assert (std::bit_cast<std::uint32_t> (freq100) == 0x3E3B645Au);
static_assert (std::bit_cast<std::uint32_t> (freq150) == 0x3E926E98u);
static_assert (std::bit_cast<std::uint32_t> (freq250) == 0x3EFAC711u);
} // namespace factoryValue

// A preset's ID is its position; sessions find presets by name. Never rename or reorder a row.
// clang-format off
inline constexpr auto factoryPresetTable = std::to_array<FactoryPresetRow> ({
    { "Init",                         factoryValue::width100, factoryValue::off, factoryValue::freq150 },
    { "TRACK Stereo 125%",            factoryValue::width125, factoryValue::off, factoryValue::freq150 },
    { "TRACK Stereo 150%",            factoryValue::width150, factoryValue::off, factoryValue::freq150 },
    { "TRACK Stereo 200%",            factoryValue::width200, factoryValue::off, factoryValue::freq150 },
    { "GROUP Stereo 125% + SafeBass", factoryValue::width125, factoryValue::on,  factoryValue::freq250 },
    { "GROUP Stereo 150% + SafeBass", factoryValue::width150, factoryValue::on,  factoryValue::freq250 },
    { "GROUP Stereo 200% + SafeBass", factoryValue::width200, factoryValue::on,  factoryValue::freq250 },
    { "MASTER Stereo 105% + SafeBass", factoryValue::width105, factoryValue::on, factoryValue::freq150 },
    { "MASTER Stereo 110% + SafeBass", factoryValue::width110, factoryValue::on, factoryValue::freq150 },
    { "MASTER Stereo 115% + SafeBass", factoryValue::width115, factoryValue::on, factoryValue::freq150 },
    { "MASTER SafeBass 80 Hz",        factoryValue::width100, factoryValue::on,  factoryValue::freq80  },
    { "MASTER SafeBass 100 Hz",       factoryValue::width100, factoryValue::on,  factoryValue::freq100 },
    { "MASTER SafeBass 150 Hz",       factoryValue::width100, factoryValue::on,  factoryValue::freq150 },
    { "MASTER SafeBass 250 Hz",       factoryValue::width100, factoryValue::on,  factoryValue::freq250 },
});
// clang-format on

static_assert (factoryPresetTable.size() == 14);
