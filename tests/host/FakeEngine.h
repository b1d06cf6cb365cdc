// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A host's real-time engine for tests: keeps what it is told, and calls a worker with what that says.

#pragma once

#include "host/HostInterface.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <vector>

/** Is the remote object manager from its construction to its end. One at a time. */
class FakeEngine
{
public:
    struct Message
    {
        void* object;
        std::vector<std::uintptr_t> words;
        std::map<void*, std::int32_t> known; // what was registered when it came
    };

    FakeEngine();
    ~FakeEngine();

    bool isThere = true;
    bool givesDataBlocks = true;
    std::function<void()> onCall; // before a message is taken; may throw
    int numTimesAsked = 0;
    std::map<void*, std::int32_t> kinds; // of the objects that were registered
    std::vector<Message> messages;

    /** The first words of all messages so far, each with its object's kind. */
    std::vector<std::pair<std::int32_t, std::uintptr_t>> outline() const;

    /** The objects of a kind, in the order of their descriptions. */
    std::vector<void*> described (std::int32_t kind) const;

    /** The words of an object's latest description. */
    const std::vector<std::uintptr_t>& description (void* object) const;

    /** This engine's copy of the data block that was described last. */
    void* dataBlock() const { return blocks.empty() ? nullptr : blocks.back().get(); }

private:
    static std::int32_t giveManager (std::int32_t code, const SFicRemoteObjectManager** manager);
    static std::int32_t registerObject (void* object, std::int32_t kind);
    static std::int32_t call (void* object, const std::uintptr_t* words, std::int32_t numWords);

    std::vector<std::unique_ptr<std::uint64_t[]>> blocks; // of all workers, which go on with theirs
};

/** What one call of a worker gets. The ports hold no samples until they are given some. */
class FakeInstance
{
public:
    FakeInstance (void* customData, std::size_t numPorts);

    SPlugInRTInstance* get() noexcept { return reinterpret_cast<SPlugInRTInstance*> (record.get()); }
    void setPort (std::size_t port, float* samples) { words[port] = samples; }
    float* getPort (std::size_t port) const { return words[port]; }

    /** Takes a port's word away altogether. */
    void removePort (std::size_t port);

    SPlugInRTGlobals globals {};

private:
    std::vector<float*> words;
    std::unique_ptr<std::uint64_t[]> record;
};
