// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The one table of the effect's parameters.

#pragma once

#include "CrzParameterValueMapper.h"

#include <array>
#include <bit>
#include <cstdint>

/** The parameters in the order in which hosts and sessions count them. The value is the index. */
enum class ParameterId : int
{
    bypass,
    stereoWidth,
    pan,
    inputGain,
    outputGain,
    swapLR,
    phaseFlip,
    mono,
    muteAll,
    muteMid,
    muteSide,
    panCurve,
    panLaw,
    msMode,
    panMode,
    phaseAlignSide,
    safeBassFreq,
    safeBass
};

/** What a parameter's normalised value, 0..1, can mean. */
enum class ParameterShape
{
    continuous,  ///< any value
    onOff,       ///< on above 0.5
    twoChoices,  ///< exactly choice::first or choice::second
    threeChoices ///< exactly one of the three
};

/** The exact floats that stand for the choices of a choice parameter. */
namespace choice
{
inline constexpr float first = 0.0f;
inline constexpr float second = 0.1f;
inline constexpr float third = 0.2f;
inline constexpr std::array<float, 3> all { first, second, third };

static_assert (std::bit_cast<std::uint32_t> (second) == 0x3DCCCCCDu);
static_assert (std::bit_cast<std::uint32_t> (third) == 0x3E4CCCCDu);
} // namespace choice

struct ParameterRow
{
    ParameterId id;
    const char* name;
    float defaultValue; ///< normalised
    CrzParameterValueMapper::CrzMappingENUM mapping;
    ParameterShape shape;
};

// Names and indices are stored in sessions, presets and automation: never rename or reorder a row.
// clang-format off
inline constexpr auto parameterTable = std::to_array<ParameterRow> ({
    { ParameterId::bypass,         "Bypass",         0.0f,           CrzParameterValueMapper::mappingBypass,       ParameterShape::onOff },
    { ParameterId::stereoWidth,    "StereoWidth",    0.5f,           CrzParameterValueMapper::mappingWidthPercent, ParameterShape::continuous },
    { ParameterId::pan,            "Pan",            0.5f,           CrzParameterValueMapper::mappingPan100,       ParameterShape::continuous },
    { ParameterId::inputGain,      "InputGain",      0.5f,           CrzParameterValueMapper::mappingGain12Db,     ParameterShape::continuous },
    { ParameterId::outputGain,     "OutputGain",     0.5f,           CrzParameterValueMapper::mappingGain12Db,     ParameterShape::continuous },
    { ParameterId::swapLR,         "SwapLR",         0.0f,           CrzParameterValueMapper::mappingSwap,         ParameterShape::onOff },
    { ParameterId::phaseFlip,      "PhaseFlip",      0.0f,           CrzParameterValueMapper::mappingPhaseFlip,    ParameterShape::onOff },
    { ParameterId::mono,           "Mono",           0.0f,           CrzParameterValueMapper::mappingMono,         ParameterShape::onOff },
    { ParameterId::muteAll,        "MuteAll",        0.0f,           CrzParameterValueMapper::mappingMuteAll,      ParameterShape::onOff },
    { ParameterId::muteMid,        "MuteMid",        0.0f,           CrzParameterValueMapper::mappingMuteMid,      ParameterShape::onOff },
    { ParameterId::muteSide,       "MuteSide",       0.0f,           CrzParameterValueMapper::mappingMuteSide,     ParameterShape::onOff },
    { ParameterId::panCurve,       "PanCurve",       choice::second, CrzParameterValueMapper::mappingPanCurve,     ParameterShape::threeChoices },
    { ParameterId::panLaw,         "PanLaw",         choice::first,  CrzParameterValueMapper::mappingPanLaw,       ParameterShape::threeChoices },
    { ParameterId::msMode,         "MsMode",         choice::first,  CrzParameterValueMapper::mappingMsMode,       ParameterShape::twoChoices },
    { ParameterId::panMode,        "PanMode",        choice::second, CrzParameterValueMapper::mappingPanMode,      ParameterShape::twoChoices },
    { ParameterId::phaseAlignSide, "PhaseAlignSide", 0.0f,           CrzParameterValueMapper::mappingPhaseAlign,   ParameterShape::onOff },
    { ParameterId::safeBassFreq,   "SafeBassFreq",   0.286f,         CrzParameterValueMapper::mappingSafeBassFreq, ParameterShape::continuous },
    { ParameterId::safeBass,       "SafeBass",       0.0f,           CrzParameterValueMapper::mappingSafeBass,     ParameterShape::onOff },
});
// clang-format on

inline constexpr int numParameters = static_cast<int> (parameterTable.size());

/** Hosts are told of this many, so that there is room to grow; those past the table answer as "reserved". */
inline constexpr int numParameterSlots = 50;

/** The index of a parameter in the table, in the parameter manager and at the host. */
constexpr int indexOf (ParameterId id) noexcept
{
    return static_cast<int> (id);
}

constexpr const ParameterRow& rowOf (ParameterId id) noexcept
{
    return parameterTable[static_cast<std::size_t> (id)];
}

namespace parameter_table_checks
{
consteval bool isInIdOrderWithLegalDefaults()
{
    for (std::size_t i = 0; i < parameterTable.size(); ++i)
    {
        const auto& row = parameterTable[i];

        if (row.id != static_cast<ParameterId> (i) || row.defaultValue < 0.0f || row.defaultValue > 1.0f)
            return false;
    }

    return true;
}

static_assert (isInIdOrderWithLegalDefaults());
static_assert (numParameters == 18);
static_assert (std::bit_cast<std::uint32_t> (rowOf (ParameterId::safeBassFreq).defaultValue) == 0x3E926E98u);
} // namespace parameter_table_checks
