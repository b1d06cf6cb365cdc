// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The chunks of an effect's process, and the one that holds its controls.

#include "CEffectProcess.h"
#include "CPluginControl_Continuous.h"
#include "CPluginControl_Discrete.h"
#include "PascalText.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstddef>
#include <limits>

namespace
{
using ChunkList = std::vector<std::pair<std::uint32_t, std::string>>;

ChunkList::const_iterator findChunk (const ChunkList& chunks, std::uint32_t chunkID)
{
    return std::find_if (
        chunks.begin(), chunks.end(), [chunkID] (const auto& chunk) { return chunk.first == chunkID; });
}

/** What a control is called in the controls chunk: its ID, spelt out. */
std::string chunkName (const CPluginControl& control)
{
    const auto id = control.GetID();
    std::string name;

    for (int shift = std::numeric_limits<std::uint32_t>::digits - CHAR_BIT; shift >= 0; shift -= CHAR_BIT)
        name += static_cast<char> (static_cast<unsigned char> (id >> shift));

    return name;
}

/** Finds the stored value of a control of a known kind, on the control scale. A number that is none counts as
    not stored. */
bool findStoredValue (ChunkDataParser& parser, const CPluginControl& control, std::int32_t& value)
{
    const auto name = chunkName (control);

    if (const auto* const continuous = dynamic_cast<const CPluginControl_Continuous*> (&control);
        continuous != nullptr)
    {
        double stored = 0.0;

        if (! parser.FindDouble (name.c_str(), &stored) || ! std::isfinite (stored))
            return false;

        value = continuous->ConvertContinuousToControl (stored);
        return true;
    }

    if (const auto* const discrete = dynamic_cast<const CPluginControl_Discrete*> (&control);
        discrete != nullptr)
    {
        std::int32_t stored = 0;

        if (! parser.FindInt32 (name.c_str(), &stored))
            return false;

        value = discrete->ConvertDiscreteToControl (stored);
        return true;
    }

    return false;
}

bool isOfKnownKind (const CPluginControl& control)
{
    return dynamic_cast<const CPluginControl_Continuous*> (&control) != nullptr
           || dynamic_cast<const CPluginControl_Discrete*> (&control) != nullptr;
}
} // namespace

void CEffectProcess::AddChunk (std::uint32_t chunkID, const char* description, std::int32_t size)
{
    chunks.emplace_back (chunkID, description == nullptr ? "" : description);
    chunkSizes.push_back (size);

    if (chunkID != FIC_CHUNK_CONTROLS && chunkID != FIC_CHUNK_MIDI)
        hasCustomChunks = true;
}

std::int32_t CEffectProcess::GetNumChunks (std::int32_t* numChunks)
{
    if (numChunks != nullptr)
        *numChunks = static_cast<std::int32_t> (chunks.size()) - (HasControlsChunk() ? 0 : 1);

    return ficSuccess;
}

std::int32_t CEffectProcess::GetIndexedChunkID (std::int32_t index, std::uint32_t* chunkID)
{
    const auto place = std::int64_t { index } - (HasControlsChunk() ? 1 : 0);

    if (index < 1 || place >= static_cast<std::int64_t> (chunks.size()))
        return CProcess::GetIndexedChunkID (index, chunkID);

    if (chunkID != nullptr)
        *chunkID = chunks[static_cast<std::size_t> (place)].first;

    return ficSuccess;
}

std::int32_t CEffectProcess::DescribeChunk (std::uint32_t chunkID, unsigned char* description)
{
    const auto chunk = findChunk (chunks, chunkID);

    if (chunk == chunks.end())
        return CProcess::DescribeChunk (chunkID, description);

    copyPascalText (description, chunk->second);
    return ficSuccess;
}

std::int32_t CEffectProcess::GetChunkSize (std::uint32_t chunkID, std::int32_t* size)
{
    if (chunkID == FIC_CHUNK_CONTROLS)
    {
        if (controlsChunkSize == 0)
        {
            BuildChunkData();
            controlsChunkSize = chunkParser.GetChunkDataSize() + ficChunkHeaderSize;
        }

        if (size != nullptr)
            *size = controlsChunkSize;

        return ficSuccess;
    }

    const auto chunk = findChunk (chunks, chunkID);

    if (! hasCustomChunks || chunk == chunks.end())
        return CProcess::GetChunkSize (chunkID, size);

    if (size != nullptr)
        *size = chunkSizes[static_cast<std::size_t> (chunk - chunks.begin())] + ficChunkHeaderSize;

    return ficSuccess;
}

std::int32_t CEffectProcess::GetChunk (std::uint32_t chunkID, SFicPlugInChunk* chunk)
{
    if (chunkID != FIC_CHUNK_CONTROLS)
        return CProcess::GetChunk (chunkID, chunk);

    BuildChunkData();

    if (chunkParser.GetChunkDataSize() < 1)
        return ficChunkEmpty;

    return chunk == nullptr ? std::int32_t { ficSuccess } : chunkParser.GetChunkData (chunk);
}

void CEffectProcess::BuildChunkData()
{
    chunkParser.Clear();

    for (std::int32_t index = 1; IsValidControlIndex (index); ++index)
    {
        const auto* const control = controls.GetControl (index);

        if (controlsNotInChunk.count (control->GetID()) > 0)
            continue;

        if (const auto* const continuous = dynamic_cast<const CPluginControl_Continuous*> (control);
            continuous != nullptr)
            chunkParser.AddDouble (chunkName (*control).c_str(), continuous->GetContinuous());
        else if (const auto* const discrete = dynamic_cast<const CPluginControl_Discrete*> (control);
                 discrete != nullptr)
            chunkParser.AddInt32 (chunkName (*control).c_str(), discrete->GetDiscrete());
    }
}

void CEffectProcess::LoadChunk (const SFicPlugInChunk* chunk)
{
    chunkParser.LoadChunk (chunk);
}

std::int32_t CEffectProcess::SetChunk (std::uint32_t chunkID, const SFicPlugInChunk* chunk)
{
    if (chunkID != FIC_CHUNK_CONTROLS || chunk == nullptr)
        return ficSuccess;

    LoadChunk (chunk);

    // Whether an instance is bypassed is the session's business, not that of its settings.
    for (std::int32_t control = 1; IsValidControlIndex (control); ++control)
        if (control != masterBypassControl)
            SetOrUpdateControlFromChunk (control, false);

    return ficSuccess;
}

std::int32_t CEffectProcess::SetOrUpdateControlFromChunk (std::int32_t control, bool update)
{
    if (! IsValidControlIndex (control) || ! isOfKnownKind (*controls.GetControl (control)))
        return ficUnknownException;

    std::int32_t value = 0;

    if (! findStoredValue (chunkParser, *controls.GetControl (control), value))
        return ficSuccess;

    return update ? UpdateControlValue (control, value) : SetControlValue (control, value);
}

bool CEffectProcess::DiffersFromChunk (std::int32_t control)
{
    const auto& compared = *controls.GetControl (control);
    std::int32_t stored = 0;

    if (! findStoredValue (chunkParser, compared, stored))
        return false;

    if (dynamic_cast<const CPluginControl_Discrete*> (&compared) != nullptr)
        return stored != compared.GetValue();

    return ValueText (control, stored, maxPascalLength)
           != ValueText (control, compared.GetValue(), maxPascalLength);
}

std::int32_t CEffectProcess::CompareActiveChunk (const SFicPlugInChunk* chunk, unsigned char* same)
{
    bool isSame = true;

    if (chunk != nullptr && chunk->chunkID == FIC_CHUNK_CONTROLS)
    {
        LoadChunk (chunk);

        for (std::int32_t control = 1; isSame && IsValidControlIndex (control); ++control)
            isSame = control == masterBypassControl || ! DiffersFromChunk (control);
    }

    if (same != nullptr)
        *same = isSame;

    return ficSuccess;
}
