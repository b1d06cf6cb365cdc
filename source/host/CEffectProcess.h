// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// One instance of an effect, however it is rendered: master bypass, chunks, meters.

#pragma once

#include "CAOSManager.h"
#include "CMeterManager.h"
#include "CProcess.h"
#include "ChunkDataParser.h"

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace EffectLayerDef
{
inline constexpr char CONTROLS_CHUNK_DESCRIPTION[] = "Complete Controls State";

/** What AddChunk() gets as the size of a chunk whose size is asked of the process each time. */
inline constexpr std::int32_t chunkAnsweredByProcess = -152; // bytes
} // namespace EffectLayerDef

/** Keeps the settings of its controls in the chunk FIC_CHUNK_CONTROLS. All operations are [host-main] and
    return a FicResult except where they say otherwise. */
class CEffectProcess : public virtual CProcess
{
public:
    CEffectProcess();
    ~CEffectProcess() override;

    void Initialize() override;

    std::int32_t DoKeyCommand (EventRecord* event, unsigned char* handled) override;
    std::int32_t GetPlugInString (std::int32_t selector, unsigned char* text) override;
    std::int32_t GetSDSBaseName (char* name) override;
    std::int32_t GetNumAudioInputs (std::int16_t* numInputs) override;
    std::int32_t GetNumAudioOutputs (std::int16_t* numOutputs) override;
    std::int32_t GetNumAuxOutputStems (std::int32_t* numStems) override;
    std::int32_t GetAuxOutputStemInfo (std::int32_t stem,
                                       std::int32_t* stemFormat,
                                       std::int32_t* firstPort) override;

    std::int32_t GetMasterBypassControl (std::int32_t* control) override;
    /** On for a control value of 0 and above; the port does not matter. */
    std::int32_t GetBypass (std::int32_t port, unsigned char* on) override;
    std::int32_t SetBypass (std::int32_t port, unsigned char on) override;

    std::int32_t GetNumChunks (std::int32_t* numChunks) override;
    std::int32_t GetIndexedChunkID (std::int32_t index, std::uint32_t* chunkID) override;
    std::int32_t DescribeChunk (std::uint32_t chunkID, unsigned char* description) override;
    std::int32_t GetChunkSize (std::uint32_t chunkID, std::int32_t* size) override;
    std::int32_t GetChunk (std::uint32_t chunkID, SFicPlugInChunk* chunk) override;
    std::int32_t SetChunk (std::uint32_t chunkID, const SFicPlugInChunk* chunk) override;
    std::int32_t CompareActiveChunk (const SFicPlugInChunk* chunk, unsigned char* same) override;

    std::int32_t GetNumMeters (std::int32_t* numMetersFound) override;
    std::int32_t GetMeterVal (std::int32_t meter, std::int32_t* value) override;
    std::int32_t GetMeterOrientation (std::int32_t meter, std::int32_t* orientation) override;
    std::int32_t GetNumMetersOfType (std::int32_t meterType, std::int32_t* numMetersFound) override;
    std::int32_t GetMeterIndexByType (std::int32_t meterType,
                                      std::int32_t number,
                                      std::int32_t* meter) override;
    std::int32_t GetClipState (unsigned char* hasClipped) override;
    std::int32_t ClearClipState() override;

    virtual void ConnectSidechain();
    virtual void DisconnectSidechain();
    /** The side chain's port number, 0 if there is none. */
    std::int32_t GetSidechainPort() const noexcept { return sidechainPort; }

protected:
    /** Called once by Initialize(), before the controls are registered: adds them. */
    virtual void EffectInit();

    /** Whether the process made use of a key that the view left alone. */
    virtual bool HandleKeystroke (EventRecord* event);

    std::unique_ptr<CPlugInView> CreateCPlugInView() override;

    /** `size` in bytes, without the header; it counts for chunks only whose size nobody else answers. */
    void AddChunk (std::uint32_t chunkID, const char* description, std::int32_t size);

    /** Called after the control was added. Returns true if the control is one that from now on is left out of
        the controls chunk. */
    bool DefineMasterBypassControlIndex (std::int32_t control);

    /** Reads a controls chunk; SetOrUpdateControlFromChunk() then has its values. */
    void LoadChunk (const SFicPlugInChunk* chunk);
    /** Sets one control, as SetControlValue() does or as UpdateControlValue() does, if the chunk has it. */
    virtual std::int32_t SetOrUpdateControlFromChunk (std::int32_t control, bool update);

    CMeterManager meterManager;
    std::int32_t numMeters = 0;           // to be set by EffectInit()
    std::int32_t masterBypassControl = 0; // 0 for none
    std::int32_t sidechainPort = 0;
    bool sidechainConnected = false;
    SFicPlugInStemFormats stemFormats {};
    std::int16_t viewResourceID = -1;
    std::vector<std::pair<std::int32_t, std::string>> plugInStrings; // by selector

private:
    void ReadType();
    void AccessAllMeters (bool clear);
    void BuildChunkData();
    bool HasControlsChunk() const noexcept { return numChunkControls > 0; }
    bool DiffersFromChunk (std::int32_t control);

    ChunkDataParser chunkParser;
    std::int32_t plugInType = 0;
    std::unique_ptr<std::int32_t[]> meterValues; // null if there are no meters, else one entry for each
    std::unique_ptr<bool[]> meterClips;
    std::unique_ptr<CAOSManager> auxOutputStems;
    std::vector<std::pair<std::uint32_t, std::string>> chunks; // ID and description
    std::vector<std::int32_t> chunkSizes; // one for each of them, in bytes without the header
    bool hasCustomChunks = false;
    std::int32_t controlsChunkSize = 0;         // bytes; 0 until known
    std::set<std::uint32_t> controlsNotInChunk; // control IDs
    std::int32_t numChunkControls = 0;
};
