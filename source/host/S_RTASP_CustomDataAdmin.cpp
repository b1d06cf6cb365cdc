// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reads and writes the block member by member, and proves that the members cover all of it.

#include "S_RTASP_CustomDataAdmin.h"

#include <array>
#include <cstring>

namespace
{
#define MEMBER(name)                                                                                         \
    SmartMember                                                                                              \
    {                                                                                                        \
        offsetof (SRTASPCustomData, name), sizeof (SRTASPCustomData::name)                                   \
    }
constexpr std::array members { MEMBER (process),       MEMBER (inputConnections), MEMBER (outputConnections),
                               MEMBER (numInputs),     MEMBER (numOutputs),       MEMBER (sidechainPort),
                               MEMBER (variableQuanta) };
#undef MEMBER

/** Whether the members follow each other without a gap. */
constexpr bool coversTheBlock()
{
    std::size_t end = 0;

    for (const auto& member : members)
    {
        if (member.offset != end)
            return false;

        end += member.size;
    }

    return end == sizeof (SRTASPCustomData);
}

static_assert (coversTheBlock());
} // namespace

void S_RTASP_CustomDataAdmin::SetAll (const SRTASPCustomData& values)
{
    const auto* const bytes = reinterpret_cast<const std::byte*> (&values);

    for (const auto& member : members)
        SetMember (member, bytes + member.offset);
}

SRTASPCustomData S_RTASP_CustomDataAdmin::GetAll()
{
    SRTASPCustomData values {};
    auto* const bytes = reinterpret_cast<std::byte*> (&values);

    for (const auto& member : members)
        std::memcpy (bytes + member.offset, Access (member), member.size);

    return values;
}
