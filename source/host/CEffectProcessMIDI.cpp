// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Logs an instance in and out, and keeps its number in a chunk.

#include "CEffectProcessMIDI.h"

#include "CEffectGroupMIDI.h"
#include "CEffectType.h"
#include "CallNoThrow.h"

namespace
{
// Keys in chunks: never rename one. The second is what older sessions have.
constexpr auto instanceIDKey = "Instance ID";
constexpr auto olderInstanceIDKey = "Node ID";
} // namespace

CEffectProcessMIDI::CEffectProcessMIDI()
{
    AddChunk (FIC_CHUNK_MIDI, "MIDI Connection Data", EffectLayerDef::chunkAnsweredByProcess);
}

CEffectProcessMIDI::~CEffectProcessMIDI() = default;

CEffectGroupMIDI* CEffectProcessMIDI::findGroup()
{
    auto* const type = dynamic_cast<CEffectType*> (GetProcessType());
    return type == nullptr ? nullptr : dynamic_cast<CEffectGroupMIDI*> (type->GetProcessGroup());
}

void CEffectProcessMIDI::claimInstanceID()
{
    if (auto* const group = findGroup())
        group->GetUniqueNodeInfo (&instanceID);
}

void CEffectProcessMIDI::giveBackInstanceID()
{
    if (auto* const group = findGroup(); group != nullptr && instanceID != 0)
        group->DeleteUniqueNodeInfo (instanceID);

    instanceID = 0;
}

std::int32_t CEffectProcessMIDI::MIDILogIn()
{
    claimInstanceID();
    const auto result = midiWorld.RegisterMIDI (highestInterfaceVersion, instanceID, *this);
    loggedIn = result == ficSuccess;
    midiChunkSize = 0;

    // A number that was not registered must not keep others from having it.
    if (! loggedIn)
        giveBackInstanceID();

    return result;
}

std::int32_t CEffectProcessMIDI::MIDILogOut()
{
    const auto result = CallAndTranslateExceptionsToReturnValues (
        [this] { return DirectMidi_FreeClient (midiWorld.transportInterface); });

    if (result == ficSuccess)
    {
        loggedIn = false;
        midiWorld.ClearWorld();
    }

    giveBackInstanceID();
    return result;
}

std::int32_t CEffectProcessMIDI::ReleaseMIDI()
{
    return loggedIn ? MIDILogOut() : ficSuccess;
}

std::int32_t CEffectProcessMIDI::BuildMidiChunkData()
{
    midiChunkParser.Clear();

    if (loggedIn)
        midiChunkParser.AddInt32 (instanceIDKey, instanceID);

    return midiChunkParser.GetChunkSize();
}

std::int32_t CEffectProcessMIDI::GetChunkSize (std::uint32_t chunkID, std::int32_t* size)
{
    if (chunkID != FIC_CHUNK_MIDI)
        return CEffectProcess::GetChunkSize (chunkID, size);

    if (midiChunkSize == 0)
        midiChunkSize = BuildMidiChunkData();

    if (size != nullptr)
        *size = midiChunkSize;

    return ficSuccess;
}

std::int32_t CEffectProcessMIDI::GetChunk (std::uint32_t chunkID, SFicPlugInChunk* chunk)
{
    if (chunkID != FIC_CHUNK_MIDI)
        return CEffectProcess::GetChunk (chunkID, chunk);

    BuildMidiChunkData();
    return chunk != nullptr ? midiChunkParser.GetChunkData (chunk) : ficSuccess;
}

std::int32_t CEffectProcessMIDI::SetChunk (std::uint32_t chunkID, const SFicPlugInChunk* chunk)
{
    if (chunkID != FIC_CHUNK_MIDI)
        return CEffectProcess::SetChunk (chunkID, chunk);

    std::int32_t storedID = 0;

    // Refused before anything changes: a bad chunk must not cost the instance its number.
    if (chunk == nullptr || ! loggedIn)
        return ficMidiChunkRefused;

    midiChunkParser.LoadChunk (chunk);

    if (! midiChunkParser.FindInt32 (instanceIDKey, &storedID)
        && ! midiChunkParser.FindInt32 (olderInstanceIDKey, &storedID))
        return ficMidiChunkRefused;

    giveBackInstanceID();
    instanceID = storedID;
    claimInstanceID();
    midiWorld.RefreshMIDINodesFromChunk (instanceID);
    return ficSuccess;
}
