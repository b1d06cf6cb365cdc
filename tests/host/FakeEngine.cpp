// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A host's real-time engine for tests: keeps what it is told, and calls a worker with what that says.

#include "host/FakeEngine.h"

#include "host/DAERemoteObject.h"
#include "host/HostGlobals.h"

#include <cstring>
#include <stdexcept>

namespace
{
FakeEngine* engine = nullptr;
} // namespace

FakeEngine::FakeEngine()
{
    engine = this;
    gXCMDProcPtr = giveManager;
    DAERemoteObjectForgetManager();
}

FakeEngine::~FakeEngine()
{
    gXCMDProcPtr = nullptr;
    DAERemoteObjectForgetManager();
    engine = nullptr;
}

std::int32_t FakeEngine::giveManager (std::int32_t code, const SFicRemoteObjectManager** manager)
{
    static constexpr SFicRemoteObjectManager theManager { registerObject, call };
    ++engine->numTimesAsked;

    if (! engine->isThere || code != ficRemoteObjectManagerCode)
        return ficFunctionMissing;

    *manager = &theManager;
    return ficSuccess;
}

std::int32_t FakeEngine::registerObject (void* object, std::int32_t kind)
{
    engine->kinds[object] = kind;
    return ficSuccess;
}

std::int32_t FakeEngine::call (void* object, const std::uintptr_t* words, std::int32_t numWords)
{
    constexpr std::size_t sizeWord = 2;
    constexpr std::size_t addressWord = 3;

    if (engine->onCall)
        engine->onCall();

    engine->messages.push_back ({ object, { words, words + numWords }, engine->kinds });

    if (engine->givesDataBlocks && engine->kinds[object] == ficRemoteData)
    {
        engine->blocks.push_back (
            std::make_unique<std::uint64_t[]> (words[sizeWord] / sizeof (std::uint64_t) + 1));
        *reinterpret_cast<std::uintptr_t*> (words[addressWord]) =
            reinterpret_cast<std::uintptr_t> (engine->dataBlock());
    }

    return ficSuccess;
}

std::vector<std::pair<std::int32_t, std::uintptr_t>> FakeEngine::outline() const
{
    std::vector<std::pair<std::int32_t, std::uintptr_t>> result;

    for (const auto& message : messages)
        result.emplace_back (kinds.at (message.object), message.words.at (0));

    return result;
}

std::vector<void*> FakeEngine::described (std::int32_t kind) const
{
    std::vector<void*> result;

    for (const auto& message : messages)
        if (kinds.at (message.object) == kind && message.words.size() > 1)
            result.push_back (message.object);

    return result;
}

const std::vector<std::uintptr_t>& FakeEngine::description (void* object) const
{
    for (auto message = messages.rbegin(); message != messages.rend(); ++message)
        if (message->object == object && message->words.size() > 1)
            return message->words;

    throw std::out_of_range ("no description of that object");
}

FakeInstance::FakeInstance (void* customData, std::size_t numPorts)
    : words (numPorts)
{
    constexpr auto wordSize = sizeof (std::uint64_t);
    record = std::make_unique<std::uint64_t[]> (sizeof (SPlugInRTInstance) / wordSize + numPorts);
    get()->customData = customData;

    for (std::size_t port = 0; port < numPorts; ++port)
        get()->ports[port] = &words[port];
}

void FakeInstance::removePort (std::size_t port)
{
    get()->ports[port] = nullptr;
}
