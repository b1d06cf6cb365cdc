// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The operations that CPlugIn has only because the host's framework lays them out: one row each, in its
// order.

#pragma once

#include "HostInterface.h"

/*  Rows: name, answer, parameters, their names. Results are zeroed. The host reaches an instance through its
   routines, never through these, so they know nothing and say so. */
// clang-format off
#define CPLUGIN_NEUTRAL_OPERATIONS(X)                                                                                  \
    X (GetNumMeters, 0, (std::int32_t* numMeters), (numMeters))                                                        \
    X (GetMeterVal, 0, (std::int32_t meter, std::int32_t* value), (meter, value))                                      \
    X (GetMeterName, 0, (std::int32_t meter, unsigned char* name), (meter, name))                                      \
    X (GetMeterOrientation, 0, (std::int32_t meter, std::int32_t* orientation), (meter, orientation))                  \
    X (GetNumMetersOfType, 0, (std::int32_t meterType, std::int32_t* numMeters), (meterType, numMeters))               \
    X (GetMeterIndexByType, 0, (std::int32_t meterType, std::int32_t number, std::int32_t* meter),                     \
       (meterType, number, meter))                                                                                     \
    X (GetClipState, 0, (unsigned char* clipped), (clipped))                                                           \
    X (ClearClipState, 0, (), ())                                                                                      \
    X (DrawDragAndDropHilight, 0, (unsigned char on), (on))                                                            \
    X (BeginDragData, 0, (EventRecord* event), (event))                                                                \
    X (RegisterDragData, 0, (const void* drag), (drag))                                                                \
    X (CompleteDragData, 0, (const void* drag), (drag))                                                                \
    X (DropData, 0, (const void* drag), (drag))                                                                        \
    X (GetMasterBypassControl, 0, (std::int32_t* control), (control))                                                  \
    X (SetBypass, 0, (std::int32_t port, unsigned char on), (port, on))                                                \
    X (GetBypass, 0, (std::int32_t port, unsigned char* on), (port, on))                                               \
    X (SetMute, 0, (std::int32_t port, unsigned char on), (port, on))                                                  \
    X (GetMute, 0, (std::int32_t port, unsigned char* on), (port, on))                                                 \
    X (InitOutputBounds, 0, (std::int32_t start, std::int32_t end), (start, end))                                      \
    X (SetOutputBounds, 0, (std::int32_t port, std::int32_t start, std::int32_t end), (port, start, end))              \
    X (TranslateOutputSampleNum, 0, (std::int32_t port, std::int32_t sample, std::int32_t* translated),                \
       (port, sample, translated))                                                                                     \
    X (AnalyzeData, 0, (std::int32_t start, std::int32_t end), (start, end))                                           \
    X (ProcessData, 0, (std::int32_t start, std::int32_t end), (start, end))                                           \
    X (SetPreviewState, 0, (std::int16_t state), (state))                                                              \
    X (GetString, 0, (std::int32_t selector, unsigned char* text), (selector, text))                                   \
    X (GetNumChanges, 0, (std::int32_t* numChanges), (numChanges))                                                     \
    X (GetNameID, 0, (std::int32_t* nameID), (nameID))                                                                 \
    X (GetDelaySamples, 0, (std::int16_t* numSamples), (numSamples))                                                   \
    X (GetDelaySamplesLong, 0, (std::int32_t* numSamples), (numSamples))                                               \
    X (DoIdle, 0, (), ())                                                                                              \
    X (GetNumChunks, 0, (std::int32_t* numChunks), (numChunks))                                                        \
    X (GetIndexedChunkID, ficChunkNotHandled, (std::int32_t index, std::uint32_t* chunkID), (index, chunkID))          \
    X (DescribeChunk, ficChunkNotHandled, (std::uint32_t chunkID, unsigned char* description), (chunkID, description)) \
    X (GetChunkSize, ficChunkNotHandled, (std::uint32_t chunkID, std::int32_t* size), (chunkID, size))                 \
    X (GetChunk, ficChunkNotHandled, (std::uint32_t chunkID, SFicPlugInChunk* chunk), (chunkID, chunk))                \
    X (SetChunk, 0, (std::uint32_t chunkID, const SFicPlugInChunk* chunk), (chunkID, chunk))                           \
    X (CompareActiveChunk, 0, (const SFicPlugInChunk* chunk, unsigned char* same), (chunk, same))                      \
    X (SetSampleRate, 0, (std::int32_t sampleRate), (sampleRate))                                                      \
    X (SetDitherBits, 0, (std::int32_t numBits), (numBits))                                                            \
    X (SetTimeCodeInfo, 0, (const SFicTimeCodeInfo* info), (info))                                                     \
    X (SetLocationTempo, 0, (std::int32_t location, std::int32_t tempo), (location, tempo))                            \
    X (BoundAutoSegment, 0, (std::int32_t start, std::int32_t end), (start, end))                                      \
    X (DisableAutomation, 0, (unsigned char disabled), (disabled))                                                     \
    X (Prime, 0, (unsigned char on), (on))

/** Those behind DescribeToDAE and ProtectFromScheduling. */
#define CPLUGIN_NEUTRAL_NESTING_OPERATIONS(X)                                                                          \
    X (GetInputPortForChildPort, 0, (std::int32_t childPort, std::int32_t* port), (childPort, port))                   \
    X (GetOutputPortForChildPort, 0, (std::int32_t childPort, std::int32_t* port), (childPort, port))                  \
    X (SetParentPlugInSpec, 0, (const SFicPlugInSpec* spec), (spec))                                                   \
    X (GetParentPlugInSpec, 0, (SFicPlugInSpec* spec), (spec))
// clang-format on
