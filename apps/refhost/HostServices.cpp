// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Fills the table of services that plug-ins call, and keeps the books of what they have taken.

#include "HostServices.h"

namespace refhost
{
namespace
{
constexpr std::int32_t notMine = -80;
constexpr std::int32_t noHost = -81;

std::int32_t registerRemoteObject (void* object, std::int32_t kind)
{
    auto* const host = HostServices::current();
    return host == nullptr ? noHost : host->engine.registerObject (object, kind);
}

std::int32_t callRemoteObject (void* object, const std::uintptr_t* words, std::int32_t numWords)
{
    auto* const host = HostServices::current();
    return host == nullptr ? noHost : host->engine.call (object, words, numWords);
}

constexpr SFicRemoteObjectManager remoteObjectManager { registerRemoteObject, callRemoteObject };
} // namespace

HostServices* HostServices::currentHost = nullptr;

HostServices::HostServices (HostOffer offerToUse)
    : offer (offerToUse),
      tokens (objects, complaints),
      engine (faults, complaints),
      transport (faults, complaints),
      table (makeTable (offer.servicesVersion))
{
    currentHost = this;
}

HostServices::~HostServices()
{
    if (currentHost == this)
        currentHost = nullptr;
}

SFicServices HostServices::makeTable (std::int32_t version)
{
    SFicServices functions {};
    functions.version = version;
    functions.InitFic = []
    {
        auto* const host = current();
        return host == nullptr ? noHost : host->faults.next (HostPoint::InitFic);
    };
    functions.NewStandardObject = [] (std::int32_t kind, const SFicListener* listener)
    {
        auto* const host = current();
        const bool isPossible = host != nullptr && host->faults.next (HostPoint::NewStandardObject) == 0;
        return isPossible ? host->newObject (kind, listener) : nullptr;
    };
    functions.ReleaseObject = [] (FicObject object)
    {
        if (auto* const host = current())
            host->releaseObject (object);
    };
    functions.ReleaseName = [] (std::int32_t nameID)
    {
        auto* const host = current();

        if (host == nullptr)
            return noHost;

        const auto fault = host->faults.next (HostPoint::ReleaseName);
        return fault != ficSuccess ? fault : host->tokens.releaseName (nameID);
    };
    functions.TryToEnterCriticalSection = [] (FicObject section)
    {
        auto* const host = current();
        const bool enters = host != nullptr
                            && host->faults.next (HostPoint::TryToEnterCriticalSection) == ficSuccess
                            && host->enter (section) == ficSuccess;
        return static_cast<unsigned char> (enters);
    };
    return functions;
}

std::int32_t HostServices::remoteCallback (std::int32_t code, const SFicRemoteObjectManager** manager)
{
    auto* const host = current();

    if (host == nullptr || code != ficRemoteObjectManagerCode || manager == nullptr)
        return notMine;

    if (const auto fault = host->faults.next (HostPoint::GetRemoteObjectManager))
        return fault;

    *manager = &remoteObjectManager;
    return ficSuccess;
}

std::int32_t HostServices::gestalt (std::uint32_t selector, std::int32_t* answer) const
{
    if (answer == nullptr)
        return notMine;

    *answer = (selector == FIC_GESTALT_VARIABLE_QUANTA && offer.variableQuanta)
              || (selector == FIC_GESTALT_TOKEN_SERVICE && offer.tokenService);
    return ficSuccess;
}

FicObject HostServices::newObject (std::int32_t kind, const SFicListener* listener)
{
    if (kind == ficTokenTaskObject && listener == nullptr)
        return objects.make (FicObjectRecord::Kind::tokenTask);

    if (kind == ficListenerObject && listener != nullptr
        && objects.contains (listener->task, FicObjectRecord::Kind::tokenTask))
    {
        auto* const object = objects.make (FicObjectRecord::Kind::listener);
        object->listener = *listener;
        return object;
    }

    complaints.push_back ("a standard object of kind " + std::to_string (kind) + " cannot be made");
    return nullptr;
}

void HostServices::releaseObject (FicObject object)
{
    // What still waits for a listener that goes would name things of the plug-in that may go with it.
    for (const auto& other : objects)
        std::erase_if (other->waiting, [object] (const auto& token) { return token.listener == object; });

    if (! objects.release (object))
        complaints.push_back ("an object is released that there is not");
}

std::int32_t HostServices::enter (FicObject section)
{
    if (! objects.contains (section, FicObjectRecord::Kind::criticalSection))
        return notMine;

    ++section->depth;
    return ficSuccess;
}

std::int32_t HostServices::leave (FicObject section)
{
    if (! objects.contains (section, FicObjectRecord::Kind::criticalSection) || section->depth == 0)
    {
        complaints.push_back ("a critical section is left that was not entered");
        return notMine;
    }

    --section->depth;
    return ficSuccess;
}

std::string HostServices::leftInTheBooks() const
{
    std::string text;
    const auto add = [&text] (int number, const char* what)
    {
        if (number != 0)
            text += std::to_string (number) + " " + what + "; ";
    };

    using Kind = FicObjectRecord::Kind;
    add (objects.count (Kind::server), "servers");
    add (objects.count (Kind::listener), "listeners");
    add (objects.count (Kind::tokenTask), "token tasks");
    add (tokens.getNumNames(), "names");
    add (tokens.getNumTokensTaken(), "tokens not given back");
    add (engine.getNumObjects(), "remote objects");
    add (transport.getNumClients(), "transport clients");
    return text;
}
} // namespace refhost
