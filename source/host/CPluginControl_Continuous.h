// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A control whose own range is a floating-point one.

#pragma once

#include "CPluginControl.h"

#include <cstdint>

/** A control of this kind travels in the controls chunk as a double. */
class CPluginControl_Continuous : public CPluginControl
{
public:
    /** [host-main] From the control's own range to the control scale. */
    virtual std::int32_t ConvertContinuousToControl (double continuous) const = 0;

    /** [host-main] From the control scale to the control's own range. */
    virtual double ConvertControlToContinuous (std::int32_t control) const = 0;

    /** [host-main] The current value in the control's own range. */
    double GetContinuous() const { return ConvertControlToContinuous (GetValue()); }
};
