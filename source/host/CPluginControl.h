// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// One control as the host sees it: a value on the control scale, names, texts and what may be done with it.

#pragma once

#include "ControlScale.h"

#include <atomic>
#include <cstdint>

/** Base of all controls. The virtual operations stand in the order of the host's framework, which is why some
   that change nothing are not const. Texts are bytes; a buffer for `maxLength` of them holds one more for the
   terminator. Values come in on the thread that sets a parameter and are read on the host's main thread. */
class CPluginControl
{
public:
    CPluginControl() = default;
    CPluginControl (const CPluginControl&) = delete;
    CPluginControl& operator= (const CPluginControl&) = delete;

    /** [any] The value on the control scale; at the bottom until one is set. */
    std::int32_t GetValue() const noexcept { return value.load (std::memory_order_relaxed); }

    /** [any] */
    void SetValue (std::int32_t newValue) noexcept { value.store (newValue, std::memory_order_relaxed); }

    /** [host-main] What the control is called in chunks and by the host: a four-character code or a number.
     */
    virtual std::uint32_t GetID() const = 0;

    /** [host-main] On the control scale. */
    virtual std::int32_t GetDefaultValue() const = 0;

    /** [host-main] On the control scale. Controls with a fixed default ignore it. */
    virtual void SetDefaultValue (std::int32_t) {}

    /** [host-main] How many different values there are. */
    virtual std::int32_t GetNumSteps() const = 0;

    /** [host-main] What a typed text stands for, on the control scale. */
    virtual std::int32_t ConvertStringToValue (const char* text) = 0;

    /** [host-main] Whether a key, by its character code, can be part of a typed text. */
    virtual bool IsKeyValid (std::int32_t key) = 0;

    /** [host-main] The longest name that has at most `maxLength` bytes, for a kind of control surface. */
    virtual void GetNameOfLength (char* name, std::int32_t maxLength, std::uint32_t controllerType) = 0;

    /** [host-main] */
    virtual std::int32_t GetPriority() const = 0;

    /** [host-main] The host's code for how the control turns; 0 is the usual way. */
    virtual std::int32_t GetOrientation() const = 0;

    /** [host-main] The host's code for the kind of control. */
    virtual std::int32_t GetControlType() const = 0;

    /** [host-main] How a value on the control scale is shown, in at most `maxLength` bytes. */
    virtual void GetValueString (char* text, std::int32_t maxLength, std::int32_t valueToShow) = 0;

    /** [host-main] */
    virtual bool IsAutomatable() const = 0;

    virtual ~CPluginControl() = default;

private:
    std::atomic<std::int32_t> value { longControlBottom };
};
