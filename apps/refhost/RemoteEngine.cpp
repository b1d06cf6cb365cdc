// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Checks each message of a plug-in, puts its description together, and renders by it.

#include "RemoteEngine.h"

#include <algorithm>

namespace refhost
{
namespace
{
constexpr std::int32_t badMessage = -70;
constexpr std::uintptr_t wordOfPlugIn = 1, protectWord = 2, unprotectWord = 3;
} // namespace

RemoteEngine::RemoteEngine (HostFaults& faultsToUse, HostComplaints& complaintsToUse)
    : faults (faultsToUse),
      complaints (complaintsToUse)
{
}

std::int32_t RemoteEngine::registerObject (void* object, std::int32_t kind)
{
    if (const auto fault = faults.next (HostPoint::RegisterRemoteObject))
        return fault;

    const auto isKnownKind = kind == ficRemotePlugIn || kind == ficRemoteInput || kind == ficRemoteOutput
                             || kind == ficRemoteWorker || kind == ficRemoteData;

    const auto known = kinds.find (object);
    const bool isOther = known != kinds.end() && known->second != kind;

    if (object == nullptr || ! isKnownKind || isOther)
    {
        complaints.push_back ("a remote object of kind " + std::to_string (kind) + " cannot be registered");
        return badMessage;
    }

    kinds[object] = kind;
    return ficSuccess;
}

std::int32_t RemoteEngine::call (void* object, const std::uintptr_t* words, std::int32_t numWords)
{
    const auto fault = faults.next (HostPoint::CallRemoteObject);
    RemoteMessage message (words, words == nullptr ? 0 : numWords);

    // Even a host that fails must let its real-time threads go on.
    if (fault != ficSuccess && ! (words != nullptr && numWords == 1 && words[0] == unprotectWord))
        return fault;

    if (takeMessage (object, message))
        return fault;

    complaints.push_back ("a message of " + std::to_string (numWords) + " words is wrong");
    return badMessage;
}

bool RemoteEngine::takeMessage (void* object, RemoteMessage& message)
{
    const auto found = kinds.find (object);

    if (found == kinds.end())
        return false;

    if (found->second == ficRemotePlugIn)
        return describePlugIn (object, message);

    if (! isProtected)
        return false;

    switch (found->second)
    {
        case ficRemoteInput:
            return inputs[object].read (message);
        case ficRemoteOutput:
            return outputs[object].read (message);
        case ficRemoteWorker:
            return workers[object].read (message);
        default:
            return data[object].read (message);
    }
}

bool RemoteEngine::protect (bool shouldProtect)
{
    if (isProtected == shouldProtect)
        return false;

    isProtected = shouldProtect;

    if (shouldProtect)
    {
        scheduling.lock();
        return true;
    }

    scheduling.unlock();
    kinds.erase (leaving); // its last message has come
    leaving = nullptr;
    return true;
}

bool RemoteEngine::readId (RemoteMessage& message, SFicPlugInId& id) const
{
    for (auto* code : { &id.manufacturerID, &id.productID, &id.typeID })
    {
        const auto word = message.next();

        if (! word)
            return false;

        *code = static_cast<std::uint32_t> (*word);
    }

    const auto object = message.next(), index = message.next();

    if (! index)
        return false;

    id.plugInObject = *object;
    id.processIndex = static_cast<std::int32_t> (*index);
    return true;
}

bool RemoteEngine::readPorts (RemoteMessage& message,
                              const std::map<void*, RemotePort>& ports,
                              void* object,
                              std::vector<std::int32_t>& numbers) const
{
    std::vector<void*> references;

    if (! message.readReferences (references))
        return false;

    for (auto* const reference : references)
    {
        const auto port = ports.find (reference);

        if (port == ports.end() || port->second.plugIn != object)
            return false;

        numbers.push_back (port->second.number);
    }

    return true;
}

bool RemoteEngine::describePlugIn (void* object, RemoteMessage& message)
{
    const auto first = message.next();

    if (first == protectWord || first == unprotectWord)
        return message.isAtEnd() && protect (first == protectWord);

    auto described = std::make_shared<RemotePlugIn>();
    std::vector<void*> workerReferences;

    if (first != wordOfPlugIn || ! isProtected || ! readId (message, described->id)
        || ! readPorts (message, inputs, object, described->inputPorts)
        || ! readPorts (message, outputs, object, described->outputPorts)
        || ! message.readReferences (workerReferences) || ! message.isAtEnd())
        return false;

    if (workerReferences.empty())
    {
        forget (object);
        return described->inputPorts.empty() && described->outputPorts.empty();
    }

    for (auto* const reference : workerReferences)
    {
        const auto worker = workers.find (reference);

        if (worker == workers.end() || worker->second.data.empty()
            || ! data.contains (worker->second.data.front()))
            return false;

        described->workerNames.push_back (worker->second.name);
    }

    described->workers = workerReferences;

    const auto& worker = workers[workerReferences.front()];
    described->worker = worker.function;
    described->layOut (data[worker.data.front()].block.data());
    plugIns[object] = std::move (described);
    return true;
}

void RemoteEngine::forget (void* object)
{
    if (const auto found = plugIns.find (object); found != plugIns.end())
    {
        found->second->worker = nullptr;

        for (auto* const reference : found->second->workers)
        {
            for (auto* const block : workers[reference].data)
            {
                data.erase (block);
                kinds.erase (block);
            }

            workers.erase (reference);
            kinds.erase (reference);
        }

        plugIns.erase (found);
    }

    for (auto* const ports : { &inputs, &outputs })
    {
        const auto isMine = [object] (const auto& entry) { return entry.second.plugIn == object; };

        for (const auto& entry : *ports)
            if (isMine (entry))
                kinds.erase (entry.first);

        std::erase_if (*ports, isMine);
    }

    leaving = object;
}

RemoteEngine::PlugIn RemoteEngine::find (std::uint32_t typeID, std::int32_t processIndex) const
{
    for (const auto& [object, plugIn] : plugIns)
        if (plugIn->id.typeID == typeID && plugIn->id.processIndex == processIndex)
            return plugIn;

    return {};
}

int RemoteEngine::getNumObjects() const
{
    return static_cast<int> (kinds.size() + inputs.size() + outputs.size() + workers.size() + data.size());
}

bool RemoteEngine::render (RemotePlugIn& plugIn,
                           float* const* inputChannels,
                           float* const* outputChannels,
                           std::int32_t quantum)
{
    const std::shared_lock hold (scheduling);

    if (plugIn.worker == nullptr)
        return false;

    const auto numInputs = plugIn.inputPorts.size();

    for (std::size_t i = 0; i < plugIn.portWords.size(); ++i)
        plugIn.portWords[i] = i < numInputs ? inputChannels[i] : outputChannels[i - numInputs];

    SPlugInRTGlobals globals {};
    globals.emptyOutput = emptyOutput;
    globals.quantum = quantum;
    plugIn.worker (plugIn.getInstance(), &globals);
    return true;
}
} // namespace refhost
