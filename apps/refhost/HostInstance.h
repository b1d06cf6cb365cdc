// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// One instance of a plug-in, as the host keeps it.

#pragma once

#include "HostBundle.h"

#include <cstddef>

namespace refhost
{
/** [host-main] except where it says otherwise. The bundle outlives it. */
class HostInstance
{
public:
    using Bytes = std::vector<std::byte>;

    /** Makes an instance of a type. Null, and the plug-in's result, when that fails. */
    static std::unique_ptr<HostInstance> make (const HostBundle& bundle,
                                               HostServices& services,
                                               std::uint32_t type,
                                               std::int32_t& result);

    ~HostInstance();
    HostInstance (const HostInstance&) = delete;
    HostInstance& operator= (const HostInstance&) = delete;

    /** How the plug-in's routines name it. */
    std::uint32_t getType() const noexcept { return type; }
    std::int32_t getIndex() const noexcept { return index; }

    int getNumControls() const;
    std::int32_t getValue (std::int32_t control) const;

    /** Sets a value as automation does. */
    std::int32_t setValue (std::int32_t control, std::int32_t value) const;

    /** Answers what the plug-in wishes to set, and lets it do what it does when the host is idle. */
    void idle() const;

    /** The body of a chunk. */
    std::int32_t getChunk (std::uint32_t chunkID, Bytes& body) const;

    /** Hands a body over in a chunk of this plug-in. */
    std::int32_t setChunk (std::uint32_t chunkID, const Bytes& body) const;

    /** What the real-time engine renders; null when the plug-in was never described. */
    const RemoteEngine::PlugIn& getPlugIn() const noexcept { return plugIn; }

    /** [real-time] One block of 2 channels in and out. The channels have to hold `quantum` samples. */
    bool render (float* const* inputs, float* const* outputs, std::int32_t quantum) const
    {
        return plugIn != nullptr && services.engine.render (*plugIn, inputs, outputs, quantum);
    }

private:
    HostInstance (const HostBundle& bundleToUse,
                  HostServices& servicesToUse,
                  std::uint32_t typeToUse,
                  std::int32_t indexToUse);

    const HostBundle& bundle;
    HostServices& services;
    std::uint32_t type;
    std::int32_t index;
    std::map<std::int32_t, std::int32_t> controlsByName; // controls by name ID
    RemoteEngine::PlugIn plugIn;
};

/** A chunk with its header, and room for `bodySize` bytes behind it. */
class ChunkRecord
{
public:
    explicit ChunkRecord (std::size_t bodySize)
        : words ((ficChunkHeaderSize + bodySize + wordSize - 1) / wordSize)
    {
        get()->chunkSize = static_cast<std::int32_t> (ficChunkHeaderSize + bodySize);
    }

    SFicPlugInChunk* get() noexcept { return reinterpret_cast<SFicPlugInChunk*> (words.data()); }
    std::byte* body() noexcept { return reinterpret_cast<std::byte*> (words.data()) + ficChunkHeaderSize; }

private:
    static constexpr std::size_t wordSize = sizeof (std::uint64_t);

    std::vector<std::uint64_t> words; // aligned for what the header holds
};
} // namespace refhost
