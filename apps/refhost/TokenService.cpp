// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Keeps the tree of names, checks each token, and queues it for the listeners that it is for.

#include "TokenService.h"

#include <algorithm>
#include <cstring>

namespace refhost
{
namespace
{
constexpr std::int32_t noSuchName = -50;
constexpr std::int32_t badToken = -51;

std::string codeText (std::uint32_t code)
{
    std::string text;

    for (int shift = 24; shift >= 0; shift -= 8)
        text += static_cast<char> (code >> shift & 0xff);

    return text;
}

bool answers (const SFicListener& listener, const SFicSDSToken& token)
{
    return listener.nameID == token.nameID && listener.protocol == token.protocol
           && listener.manufacturer == token.manufacturer && listener.tokenType == token.tokenType
           && listener.tokenSubType == token.tokenSubType;
}

std::int16_t lengthOf (std::uint32_t subType)
{
    switch (subType)
    {
        case FIC_TOKEN_VALUE:
            return ficTokenValueLength;
        case FIC_TOKEN_TOUCH:
            return ficTokenTouchLength;
        default:
            return ficTokenHeaderLength;
    }
}
} // namespace

std::int32_t valueOf (const SFicSDSToken& token)
{
    std::int32_t value = 0;
    std::memcpy (&value, token.payload, sizeof (value));
    return value;
}

TokenService::TokenService (HostObjects& objectsToUse, HostComplaints& complaintsToUse)
    : objects (objectsToUse),
      complaints (complaintsToUse)
{
}

std::int32_t TokenService::reserveName (std::int32_t parentID, const char* name, std::int32_t* nameID)
{
    if (name == nullptr || nameID == nullptr
        || (parentID != 0 && parentID != rootID && ! names.contains (parentID)))
    {
        complaints.push_back ("a name is reserved below a name that there is not");
        return noSuchName;
    }

    names[++lastNameID] = { parentID, name };
    *nameID = lastNameID;
    return ficSuccess;
}

std::int32_t TokenService::findName (std::int32_t parentID, const char* name, std::int32_t* nameID) const
{
    if (name == nullptr || nameID == nullptr)
        return noSuchName;

    if (parentID == 0 && *name == 0)
    {
        *nameID = rootID;
        return ficSuccess;
    }

    for (const auto& [id, known] : names)
    {
        if (known.parentID == parentID && known.text == name)
        {
            *nameID = id;
            return ficSuccess;
        }
    }

    return noSuchName;
}

std::int32_t TokenService::releaseName (std::int32_t nameID)
{
    const bool isParent = std::any_of (
        names.begin(), names.end(), [nameID] (const auto& entry) { return entry.second.parentID == nameID; });

    if (isParent)
        complaints.push_back ("the name " + getPath (nameID) + " is released before those below it");

    if (nameID == rootID || names.erase (nameID) > 0)
        return ficSuccess;

    complaints.push_back ("a name is released that there is not");
    return noSuchName;
}

std::string TokenService::getPath (std::int32_t nameID) const
{
    const auto found = names.find (nameID);

    if (found == names.end())
        return {};

    return getPath (found->second.parentID) + "/" + found->second.text;
}

bool TokenService::isSound (const SFicSDSToken& token)
{
    const auto complain = [&] (const char* what)
    {
        complaints.push_back ("token " + codeText (token.tokenType) + " " + codeText (token.tokenSubType)
                              + ": " + what);
        return false;
    };

    if (token.nameID != rootID && ! names.contains (token.nameID))
        return complain ("there is no such name");

    if (token.targetID != token.nameID)
        return complain ("name and target differ");

    if (token.manufacturer != FIC_TOKEN_MANUFACTURER)
        return complain ("another manufacturer");

    if (token.protocol != FIC_PROTOCOL_CONTROL && token.protocol != FIC_PROTOCOL_PROCESS)
        return complain ("no known protocol");

    if (token.tokenLength != lengthOf (token.tokenSubType))
        return complain ("the length is wrong");

    if (std::any_of (std::begin (token.reserved), std::end (token.reserved), [] (auto b) { return b != 0; }))
        return complain ("reserved bytes are not zero");

    return true;
}

std::int32_t TokenService::dispatch (const SFicSDSToken& token)
{
    if (observer)
        observer (token);

    if (! isSound (token))
        return badToken;

    if (keepsWishes && token.tokenType == FIC_TOKEN_SET && token.tokenSubType == FIC_TOKEN_VALUE)
        wishes.push_back ({ token.nameID, valueOf (token) });

    deliver (token);
    return ficSuccess;
}

void TokenService::send (std::int32_t nameID, std::uint32_t type, std::uint32_t subType, std::int32_t value)
{
    SFicSDSToken token {};
    token.nameID = token.targetID = nameID;
    token.tokenType = type;
    token.tokenSubType = subType;
    token.manufacturer = FIC_TOKEN_MANUFACTURER;
    token.protocol = FIC_PROTOCOL_CONTROL;
    token.tokenLength = lengthOf (subType);
    std::memcpy (token.payload, &value, sizeof (value));
    deliver (token);
}

void TokenService::deliver (const SFicSDSToken& token)
{
    for (const auto& object : objects)
    {
        const auto& listener = object->listener;

        if (object->kind != FicObjectRecord::Kind::listener || ! answers (listener, token)
            || ! objects.contains (listener.task, FicObjectRecord::Kind::tokenTask))
            continue;

        auto& waiting = listener.task->waiting;

        if (listener.latestOnly != 0)
            std::erase_if (waiting, [&] (const auto& other) { return other.listener == object.get(); });

        auto& last = waiting.emplace_back();
        last.token = std::make_unique<SFicSDSToken> (token);
        last.listener = object.get();
        last.taskValue = listener.taskValue;
    }
}

std::int32_t TokenService::take (FicObject task, SFicSDSToken** token, std::uintptr_t* taskValue)
{
    if (token == nullptr || taskValue == nullptr)
        return badToken;

    *token = nullptr;
    *taskValue = 0;

    if (! objects.contains (task, FicObjectRecord::Kind::tokenTask))
    {
        complaints.push_back ("tokens are taken for a task that there is not");
        return badToken;
    }

    if (task->waiting.empty())
        return noToken;

    auto next = std::move (task->waiting.front());
    task->waiting.pop_front();
    *token = next.token.get();
    *taskValue = next.taskValue;
    taken[*token] = std::move (next.token);
    return ficSuccess;
}

std::int32_t TokenService::done (SFicSDSToken* token)
{
    if (taken.erase (token) > 0)
        return ficSuccess;

    complaints.push_back ("a token is given back that was not taken");
    return badToken;
}

std::vector<TokenService::Wish> TokenService::takeWishes (
    const std::function<bool (std::int32_t nameID)>& isMine)
{
    std::vector<Wish> mine;

    std::erase_if (wishes,
                   [&] (const Wish& wish)
                   {
                       if (! isMine (wish.nameID))
                           return false;

                       mine.push_back (wish);
                       return true;
                   });
    return mine;
}
} // namespace refhost
