// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Values and touches on their way between a process and the host.

#include "CProcess.h"
#include "CallNoThrow.h"
#include "FicFunctions.h"
#include "HostGlobals.h"
#include "platform/Ticks.h"

#include <cstddef>
#include <utility>

namespace
{
/** How long one idle call may take tokens. */
constexpr std::int64_t maxIdleTicks = 2;

std::int32_t dispatch (const SFicSDSToken& token)
{
    return host::FicSDSDispatchToken (&token);
}

/** Gives a token back to the host at the end of its use. */
class ScopedToken
{
public:
    explicit ScopedToken (SFicSDSToken* tokenInUse) noexcept
        : token (tokenInUse)
    {
    }

    ~ScopedToken() { host::FicSDSDoneWithToken (token); }

    ScopedToken (const ScopedToken&) = delete;
    ScopedToken& operator= (const ScopedToken&) = delete;

private:
    SFicSDSToken* token;
};
} // namespace

std::int32_t CProcess::SetControlValue (std::int32_t control, std::int32_t value)
{
    if (! IsValidControlIndex (control))
        return ficSuccess;

    if (! HasTokens())
    {
        const auto result = UpdateControlValue (control, value);
        UpdateControlGraphic (control, value);
        return result;
    }

    TouchControl (control);
    const auto result = dispatch (makeValueToken (controlNameIDs[toEntry (control)], FIC_TOKEN_SET, value));
    ReleaseControl (control);
    return result;
}

std::int32_t CProcess::UpdateControlValue (std::int32_t control, std::int32_t value)
{
    std::int32_t result = ficSuccess;

    if (IsValidControlIndex (control))
    {
        controls.GetControl (control)->SetValue (value);
        UpdateControlValueInAlgorithm (control);

        if (HasTokens() && control != controlSetByHost)
            result = dispatch (makeValueToken (controlNameIDs[toEntry (control)], FIC_TOKEN_CURRENT, value));
    }

    ++numChanges;
    return result;
}

std::int32_t CProcess::TouchControl (std::int32_t control)
{
    if (! HasTokens() || ! IsValidControlIndex (control))
        return ficSuccess;

    FirstError error;

    if (touchCounts[toEntry (control)] == 0)
    {
        error.run ([&] { return dispatch (makeTouchToken (controlNameIDs[toEntry (control)], true)); });
        error.run (
            [&]
            {
                return dispatch (makeToken (groupNameID,
                                            FIC_TOKEN_SET,
                                            FIC_TOKEN_GRABBED,
                                            FIC_PROTOCOL_CONTROL,
                                            ficTokenHeaderLength));
            });
    }

    ++touchCounts[toEntry (control)];
    return error.get();
}

std::int32_t CProcess::ReleaseControl (std::int32_t control)
{
    if (! HasTokens() || ! IsValidControlIndex (control) || touchCounts[toEntry (control)] == 0)
        return ficSuccess;

    if (--touchCounts[toEntry (control)] > 0)
        return ficSuccess;

    return dispatch (makeTouchToken (controlNameIDs[toEntry (control)], false));
}

/** Returns false if no token waits. */
bool CProcess::HandleNextToken()
{
    SFicSDSToken* token = nullptr;
    std::uintptr_t taskValue = 0;

    if (gOurTokenTask == nullptr
        || host::FicSDSGetTokenAndTaskVal (gOurTokenTask, &token, &taskValue) != ficSuccess
        || token == nullptr)
        return false;

    const ScopedToken inUse (token);

    if (const auto context = FindContext (taskValue); context.process != nullptr)
        context.process->HandleAnyToken (context.control, copyToken (*token));

    return true;
}

std::int32_t CProcess::DoTokenIdle()
{
    const auto end = platform::TickCount() + maxIdleTicks;

    // A token may be the end of this process, so nothing of it is touched behind one.
    while (HandleNextToken() && platform::TickCount() < end)
    {
    }

    host::FicPersonalityDoIdle();
    return ficSuccess;
}

void CProcess::HandleAnyToken (std::int32_t control, const SFicSDSToken& token)
{
    const auto is = [&token] (std::uint32_t type, std::uint32_t subType)
    { return token.tokenType == type && token.tokenSubType == subType; };

    if (is (FIC_TOKEN_CURRENT, FIC_TOKEN_VALUE))
    {
        if (const auto value = readTokenValue (token); value.has_value())
            TakeValueFromHost (control, *value);
    }
    else if (is (FIC_TOKEN_GET, FIC_TOKEN_VALUE))
    {
        std::int32_t value = 0;
        GetControlValue (control, &value);
        dispatch (makeValueToken (controlNameIDs[toEntry (control)], FIC_TOKEN_CURRENT, value));
    }
    else if (is (FIC_TOKEN_SET, FIC_TOKEN_HIGHLIGHT))
    {
        UpdateHighlight (control, readTokenHighlight (token));
    }
    else
    {
        HandleToken (token);
    }
}

/** Mostly the value is the one that UpdateControlValue() sent, on its way back. A host may answer a request
    with this token alone, and then it is what sets the value; it is not sent again, or it would go round. */
void CProcess::TakeValueFromHost (std::int32_t control, std::int32_t value)
{
    std::int32_t current = 0;
    GetControlValue (control, &current);

    if (current != value)
    {
        const auto previous = std::exchange (controlSetByHost, control);

        try
        {
            UpdateControlValue (control, value);
        }
        catch (...)
        {
            controlSetByHost = previous;
            throw;
        }

        controlSetByHost = previous;
    }

    UpdateControlGraphic (control, value);
}

std::int32_t CProcess::HandleToken (const SFicSDSToken&)
{
    return ficSuccess;
}
