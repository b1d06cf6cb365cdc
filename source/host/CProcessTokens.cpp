// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// How a process has its controls known to the host's token service.

#include "CProcess.h"
#include "CallNoThrow.h"
#include "FicFunctions.h"
#include "HostGlobals.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

/** One of the listeners that each control has. */
struct CProcess::ListenerRow
{
    std::vector<FicObject> CProcess::*listeners;
    std::uint32_t tokenType, tokenSubType;
};

const CProcess::ListenerRow CProcess::listenerRows[] = {
    { &CProcess::currentValueListeners, FIC_TOKEN_CURRENT, FIC_TOKEN_VALUE },
    { &CProcess::getValueListeners, FIC_TOKEN_GET, FIC_TOKEN_VALUE },
    { &CProcess::highlightListeners, FIC_TOKEN_SET, FIC_TOKEN_HIGHLIGHT },
};

namespace
{
/** Entries that the arrays have beside those of the controls. */
constexpr std::size_t numSpareEntries = 3;

constexpr std::size_t sdsBaseNameSize = 256; // bytes, with the terminator
constexpr std::size_t sdsControlNameSize = 32;

/** The processes with names at the token service. A token that waits may be for one that has gone. */
std::vector<CProcess*>& processesWithTokens()
{
    static std::vector<CProcess*> processes;
    return processes;
}

std::int32_t reserveName (std::int32_t parentID, const char* name, std::int32_t& nameID)
{
    std::int32_t reserved = 0;
    const auto result = host::FicSDSReserveName (parentID, name, &reserved);
    nameID = result == ficSuccess ? reserved : 0;
    return result;
}

void releaseName (std::int32_t& nameID) noexcept
{
    const auto released = std::exchange (nameID, 0);

    if (const auto* const services = host::FicGetServices(); services != nullptr && released != 0)
        services->ReleaseName (released);
}
} // namespace

bool CProcess::HasTokens() const noexcept
{
    return gOurTokenTask != nullptr && ! controlNameIDs.empty();
}

void CProcess::InitializeTokens()
{
    if (gOurTokenTask == nullptr)
        return;

    // Without the services nothing that is registered could be taken back.
    if (host::FicGetServices() == nullptr)
        throw CDAEError (ficObjectNotMade);

    processesWithTokens().push_back (this);

    const auto numEntries = toEntry (controls.GetNumControls()) + numSpareEntries;
    controlNameIDs.assign (numEntries, 0);
    touchCounts.assign (numEntries, 0);
    listenerContexts.assign (numEntries, {});

    for (const auto& row : listenerRows)
        (this->*row.listeners).assign (numEntries, nullptr);

    for (std::int32_t control = 1; IsValidControlIndex (control); ++control)
        listenerContexts[toEntry (control)] = { this, control };

    throwIfFailed (SetRootName (0));
    throwIfFailed (RegisterControls());
    throwIfFailed (RegisterListeners());
}

void CProcess::FreeTokens() noexcept
{
    UnRegisterListeners();
    UnRegisterControls();
    UnRegisterRoot();

    controlNameIDs.clear();
    touchCounts.clear();
    listenerContexts.clear();

    for (const auto& row : listenerRows)
        (this->*row.listeners).clear();

    std::erase (processesWithTokens(), this);
}

std::int32_t CProcess::SetRootName (std::int32_t parentID)
{
    if (rootNameID != 0)
    {
        UnRegisterControls();
        UnRegisterRoot();
    }

    std::array<char, sdsBaseNameSize> baseName {};
    GetSDSBaseName (baseName.data());
    baseName.back() = 0;

    const auto name = std::string (baseName.data()) + "/Inst" + std::to_string (gInstanciationNum);
    return reserveName (parentID, name.c_str(), rootNameID);
}

std::int32_t CProcess::RegisterControls()
{
    for (std::int32_t control = 1; IsValidControlIndex (control); ++control)
    {
        std::array<char, sdsControlNameSize> name {};
        GetProcessControlSDSName (control, name.data());
        name.back() = 0;

        const auto result = reserveName (rootNameID, name.data(), controlNameIDs.at (toEntry (control)));

        if (result != ficSuccess)
            return result;
    }

    return host::FicSDSGetNameId (0, "", &groupNameID);
}

std::int32_t CProcess::RegisterListeners()
{
    const auto* const services = host::FicGetServices();

    if (services == nullptr)
        return ficObjectNotMade;

    for (std::int32_t control = 1; IsValidControlIndex (control); ++control)
    {
        SFicListener listener {};
        listener.nameID = controlNameIDs.at (toEntry (control));
        listener.latestOnly = 1;
        listener.taskValue = reinterpret_cast<std::uintptr_t> (&listenerContexts.at (toEntry (control)));
        listener.task = gOurTokenTask;
        listener.protocol = FIC_PROTOCOL_CONTROL;
        listener.manufacturer = FIC_TOKEN_MANUFACTURER;

        for (const auto& row : listenerRows)
        {
            listener.tokenType = row.tokenType;
            listener.tokenSubType = row.tokenSubType;
            auto* const made = services->NewStandardObject (ficListenerObject, &listener);

            if (made == nullptr)
                return ficObjectNotMade;

            (this->*row.listeners).at (toEntry (control)) = made;
        }
    }

    return ficSuccess;
}

void CProcess::UnRegisterRoot() noexcept
{
    releaseName (rootNameID);
}

void CProcess::UnRegisterControls() noexcept
{
    for (auto& nameID : controlNameIDs)
        releaseName (nameID);

    groupNameID = 0; // the whole group's, and not reserved here
}

void CProcess::UnRegisterListeners() noexcept
{
    const auto* const services = host::FicGetServices();

    for (const auto& row : listenerRows)
        for (auto& listener : this->*row.listeners)
            if (auto* const released = std::exchange (listener, nullptr);
                released != nullptr && services != nullptr)
                services->ReleaseObject (released);
}

std::int32_t CProcess::GetProcessNameID (std::int32_t* nameID)
{
    if (nameID != nullptr)
        *nameID = rootNameID;

    return ficSuccess;
}

std::int32_t CProcess::GetControlNameID (std::int32_t control, std::int32_t* nameID)
{
    if (nameID != nullptr)
        *nameID =
            IsValidControlIndex (control) && ! controlNameIDs.empty() ? controlNameIDs[toEntry (control)] : 0;

    return ficSuccess;
}

std::int32_t CProcess::GetSDSBaseName (char* name)
{
    return host::neutralAnswer<ficSuccess> (name);
}

/** The context that a listener was given as its task value, or an empty one. */
ListenerContext CProcess::FindContext (std::uintptr_t taskValue) noexcept
{
    for (const auto* const process : processesWithTokens())
    {
        const auto& contexts = process->listenerContexts;
        const auto offset = taskValue - reinterpret_cast<std::uintptr_t> (contexts.data());

        if (offset < contexts.size() * sizeof (ListenerContext) && offset % sizeof (ListenerContext) == 0)
            return contexts[offset / sizeof (ListenerContext)];
    }

    return {};
}
