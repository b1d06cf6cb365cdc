// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The wrapper type that stands for the native host's plug-in format, which JUCE does not know.

#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

/** What AudioProcessor::wrapperType holds when the native host's adapter made the processor. JUCE's own
   entries end at 8, and 15 is the largest value that the enumeration can hold. */
inline constexpr auto nativeHostWrapperType = static_cast<juce::AudioProcessor::WrapperType> (9);

static_assert (nativeHostWrapperType > juce::AudioProcessor::wrapperType_LV2 && nativeHostWrapperType <= 15);
