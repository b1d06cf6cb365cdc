// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The numbered list of a plug-in's controls.

#pragma once

#include "CPluginControl.h"

#include <cstdint>
#include <memory>
#include <vector>

/** Owns the controls. Indices count from 1. Controls are added while the plug-in is set up, before the host
   can name one; from then on the list stays as it is. */
class CPluginControlManager
{
public:
    /** [host-main] Appends and owns `control`. Throws CDAEError if it is null. */
    void AddControl (CPluginControl* control);

    /** [any] */
    std::int32_t GetNumControls() const noexcept { return static_cast<std::int32_t> (controls.size()); }

    /** [any] */
    bool IsValidControlIndex (std::int32_t index) const noexcept
    {
        return index >= 1 && index <= GetNumControls();
    }

    /** [any] Never null. Throws CDAEError if there is no control of that index. */
    CPluginControl* GetControl (std::int32_t index) const;

private:
    std::vector<std::unique_ptr<CPluginControl>> controls;
};
