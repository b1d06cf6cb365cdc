// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A group whose instances are clients of the host's MIDI service.

#include "CEffectGroupMIDI.h"

#include <limits>

CEffectGroupMIDI::CEffectGroupMIDI()
{
    sCriticalSectionScope = 0;
}

void CEffectGroupMIDI::GetUniqueNodeInfo (std::int32_t* id)
{
    if (id == nullptr)
        return;

    std::int32_t candidate = *id != 0 ? *id : 1;

    // A session may hold the highest number there is, and 0 stands for none.
    while (! usedInstanceIDs.insert (candidate).second)
    {
        const bool hasNext = candidate != std::numeric_limits<std::int32_t>::max() && candidate != -1;
        candidate = hasNext ? candidate + 1 : 1;
    }

    *id = candidate;
}

void CEffectGroupMIDI::DeleteUniqueNodeInfo (std::int32_t id)
{
    usedInstanceIDs.erase (id);
}
