// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reads ports, workers and data blocks from the words of messages, and lays out what a worker is called with.

#include "RemoteObjects.h"

namespace refhost
{
namespace
{
constexpr std::uintptr_t wordOfPort = 1, wordOfData = 1, wordOfWorker = 6, numWorkerSets = 4;
constexpr std::uintptr_t mostDataBytes = 65536;
} // namespace

void RemotePlugIn::layOut (void* customData)
{
    const auto numPorts = inputPorts.size() + outputPorts.size();
    constexpr auto headerWords = offsetof (SPlugInRTInstance, ports) / sizeof (std::uintptr_t);
    instanceRecord.assign (headerWords + numPorts + 1, 0);
    portWords.assign (numPorts, nullptr);

    auto* const instance = getInstance();
    instance->customData = customData;

    for (std::size_t i = 0; i < numPorts; ++i)
        instance->ports[i] = &portWords[i];
}

std::optional<std::uintptr_t> RemoteMessage::next()
{
    if (position >= numWords)
        return {};

    return words[position++];
}

bool RemoteMessage::readReferences (std::vector<void*>& references)
{
    const auto count = next();

    if (! count || *count > static_cast<std::uintptr_t> (numWords - position))
        return false;

    references.clear();

    for (std::uintptr_t i = 0; i < *count; ++i)
        references.push_back (reinterpret_cast<void*> (*next()));

    return true;
}

bool RemotePort::read (RemoteMessage& message)
{
    const auto first = message.next(), owner = message.next(), portNumber = message.next();

    if (first != wordOfPort || ! portNumber)
        return false;

    plugIn = reinterpret_cast<void*> (*owner);
    number = static_cast<std::int32_t> (*portNumber);
    return message.isAtEnd();
}

bool RemoteWorker::read (RemoteMessage& message)
{
    const auto first = message.next(), address = message.next(), numSets = message.next();

    if (first != wordOfWorker || address == std::uintptr_t {} || numSets != numWorkerSets
        || ! message.readReferences (data))
        return false;

    for (std::uintptr_t set = 1; set < numWorkerSets; ++set)
        if (std::vector<void*> others; ! message.readReferences (others) || ! others.empty())
            return false;

    const auto text = message.next(), last = message.next();

    if (last != std::uintptr_t {} || *text == 0)
        return false;

    function = reinterpret_cast<FicWorkerProc> (*address);
    name = reinterpret_cast<const char*> (*text);
    return message.isAtEnd();
}

bool RemoteData::read (RemoteMessage& message)
{
    const auto first = message.next(), type = message.next(), size = message.next(), target = message.next();

    if (first != wordOfData || type != std::uintptr_t {} || ! target || *target == 0 || *size == 0
        || *size > mostDataBytes)
        return false;

    if (block.empty())
        block.assign ((*size + sizeof (std::uintptr_t) - 1) / sizeof (std::uintptr_t), 0);

    *reinterpret_cast<std::uintptr_t*> (*target) = reinterpret_cast<std::uintptr_t> (block.data());
    return message.isAtEnd();
}
} // namespace refhost
