// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A process type whose processes run natively, on the host's real-time thread.

#pragma once

#include "CEffectType.h"

#include <cstdint>

/** All operations are [host-main]. */
class CEffectTypeRTAS : public CEffectType
{
public:
    CEffectTypeRTAS (std::uint32_t newTypeID, std::uint32_t newProductID, std::uint32_t newCategory);

    void AddGestalt (std::int32_t selector) override;

    /** Makes a process and has it announced to the host's real-time engine. On an error there is no new
     * process. */
    std::int32_t InstantiateProcess (std::int32_t* process) override;

    /** Where the host's object for the plug-in stands, from the group. */
    void SetGroupWord (const std::uintptr_t* word) noexcept { groupWord = word; }

private:
    std::int32_t CreateHostPlugInOf (std::int32_t process);

    const std::uintptr_t* groupWord = nullptr;
};
