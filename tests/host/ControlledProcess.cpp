// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A process for tests, to which controls are added from outside, and controls of each kind.

#include "host/ControlledProcess.h"

#include <host/CDAEError.h>
#include <host/GetStringOfLength.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <utility>

namespace
{
constexpr double continuousTop = 10.0;
constexpr double scaleExtent = 4294967295.0;

} // namespace

PlainTestControl::PlainTestControl (std::string newName, std::uint32_t newId)
    : name (std::move (newName)),
      id (newId)
{
}

std::int32_t PlainTestControl::ConvertStringToValue (const char* text)
{
    if (std::string (text) != knownText)
        throw CDAEError (unknownTextCode);

    return 7;
}

void PlainTestControl::GetNameOfLength (char* text, std::int32_t maxLength, std::uint32_t controllerType)
{
    askedLength = maxLength;
    askedController = controllerType;
    copyHostText (text, name, maxLength);
}

void PlainTestControl::GetValueString (char* text, std::int32_t maxLength, std::int32_t shownValue)
{
    std::fill_n (text, maxLength, 'x');
    text[maxLength] = 0;

    if (maxLength > 0)
        text[maxLength - 1] = static_cast<char> ('0' + shownValue % 10);
}

std::int32_t ContinuousTestControl::ConvertContinuousToControl (double continuous) const
{
    const auto limited = std::clamp (continuous, 0.0, continuousTop);
    return static_cast<std::int32_t> (std::floor (limited / continuousTop * scaleExtent + longControlBottom));
}

double ContinuousTestControl::ConvertControlToContinuous (std::int32_t control) const
{
    return (static_cast<double> (control) - longControlBottom) / scaleExtent * continuousTop;
}

void ContinuousTestControl::GetValueString (char* text, std::int32_t maxLength, std::int32_t shownValue)
{
    std::snprintf (
        text, static_cast<std::size_t> (maxLength) + 1, "%.1f", ConvertControlToContinuous (shownValue));
}

void TestView::Setup()
{
    calls.push_back ("view set up");

    if (failsToSetUp)
        throw CDAEError (PlainTestControl::unknownTextCode);
}

std::int32_t ControlledProcess::HandleToken (const SFicSDSToken&)
{
    calls.push_back ("token");

    if (onToken)
        onToken();

    return 0;
}

std::int32_t ControlledProcess::UpdateHighlight (std::int32_t control, const TokenHighlight& newHighlight)
{
    calls.push_back ("highlight " + std::to_string (control));
    highlight = newHighlight;
    return 0;
}

void ControlledProcess::GetMetersFromDSPorRTAS (std::int32_t* values, bool* newClips)
{
    std::copy (levels.begin(), levels.end(), values);
    std::copy (clips.begin(), clips.end(), newClips);
}
