// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A group whose instances are clients of the host's MIDI service.

#pragma once

#include "CEffectGroup.h"

#include <cstdint>
#include <set>

/** Gives out a number to each instance, none twice. Runs nothing inside the host's critical section. */
class CEffectGroupMIDI : public virtual CEffectGroup
{
public:
    CEffectGroupMIDI();

    /** [host-main] Takes the first free number from `*id` on, or from 1 on if that is 0, and stores it there.
     */
    virtual void GetUniqueNodeInfo (std::int32_t* id);

    /** [host-main] Gives a number back. */
    virtual void DeleteUniqueNodeInfo (std::int32_t id);

private:
    std::set<std::int32_t> usedInstanceIDs;
};
