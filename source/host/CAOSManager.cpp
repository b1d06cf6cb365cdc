// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Answers each question about auxiliary outputs as one that has none.

#include "CAOSManager.h"

#include "RoutineRows.h"

std::int32_t CAOSManager::GetNumAuxOutputStems (std::int32_t* numStems) const noexcept
{
    return host::neutralAnswer<ficSuccess> (numStems);
}

std::int32_t CAOSManager::GetAuxOutputStemInfo (std::int32_t,
                                                std::int32_t* stemFormat,
                                                std::int32_t* firstPort) const noexcept
{
    return host::neutralAnswer<ficSuccess> (stemFormat, firstPort);
}
