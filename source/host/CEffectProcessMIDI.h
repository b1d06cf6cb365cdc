// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// An instance that is a client of the host's MIDI service, of which it only uses the transport.

#pragma once

#include "CEffectMIDIWorld.h"
#include "CEffectProcess.h"
#include "ChunkDataParser.h"

#include <cstdint>

class CEffectGroupMIDI;

/** Its chunk keeps the instance's number. What returns a code returns a FicResult. All operations:
 * [host-main]. */
class CEffectProcessMIDI : public virtual CEffectProcess
{
public:
    CEffectProcessMIDI();
    ~CEffectProcessMIDI() override;

    std::int32_t GetChunkSize (std::uint32_t chunkID, std::int32_t* size) override;
    std::int32_t GetChunk (std::uint32_t chunkID, SFicPlugInChunk* chunk) override;
    std::int32_t SetChunk (std::uint32_t chunkID, const SFicPlugInChunk* chunk) override;

    /** Takes a number from the group and registers with the host. */
    virtual std::int32_t MIDILogIn();

    /** Undoes MIDILogIn(). If the host refuses, the instance stays logged in. */
    virtual std::int32_t MIDILogOut();

    /** Logs out if logged in. */
    std::int32_t ReleaseMIDI() override;

protected:
    /** Puts the chunk's content together and returns its size, the header included. */
    virtual std::int32_t BuildMidiChunkData();

    bool IsLoggedIn() const noexcept { return loggedIn; }
    CEffectMIDIWorld& GetMIDIWorld() noexcept { return midiWorld; }

private:
    CEffectGroupMIDI* findGroup();
    void claimInstanceID();
    void giveBackInstanceID();

    static constexpr std::int32_t newestInterfaceVersion = 7;

    ChunkDataParser midiChunkParser;
    std::int32_t midiChunkSize = 0; // 0 until it is known
    std::int32_t highestInterfaceVersion = newestInterfaceVersion;
    bool loggedIn = false;
    std::int32_t instanceID = 0; // 0 without one of the group's numbers
    CEffectMIDIWorld midiWorld;
};
