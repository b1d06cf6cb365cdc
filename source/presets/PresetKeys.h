// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The type and property names of preset trees and session blocks. They stand in files: never rename one.

#pragma once

namespace presetKey
{
inline constexpr auto root = "Q7AudioPreset";
inline constexpr auto pluginName = "Q7PluginName";
inline constexpr auto presetName = "PresetName";
inline constexpr auto presetID = "PresetID";
inline constexpr auto presetType = "PresetType";

inline constexpr auto parameter = "Parameter";
inline constexpr auto parameterName = "ParameterName";
inline constexpr auto value = "Value";
} // namespace presetKey

namespace presetType
{
inline constexpr auto factory = "Factory";
inline constexpr auto user = "User";
} // namespace presetType

/** The name of a preset that has none yet. It is also that of the first factory preset. */
inline constexpr auto initialPresetName = "Init";
