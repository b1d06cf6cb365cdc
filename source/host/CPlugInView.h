// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the host sees of a plug-in's window: a rectangle in a port.

#pragma once

#include "HostInterface.h"

#include <cstdint>

/** A view without contents. All operations are [host-main]. */
class CPlugInView
{
public:
    CPlugInView() = default;
    virtual ~CPlugInView();

    CPlugInView (const CPlugInView&) = delete;
    CPlugInView& operator= (const CPlugInView&) = delete;

    /** Called once by the owner, before anything else. May throw; the view is then deleted. */
    virtual void Setup() {}

    virtual void Draw (const Rect*) {}
    virtual void DoMouseCommand (EventRecord*) {}

    /** Whether the view made use of the key. */
    virtual bool DoKeyCommand (EventRecord*) { return false; }

    virtual void ActivateWindow() {}
    virtual void DeactivateWindow() {}

    // The sub-view that a control has in this view, if any, by its ID.
    virtual void AttachSubView (std::uint32_t) {}
    virtual void DetachSubView (std::uint32_t) {}

    /** Redraws the control's sub-view if it shows something else than `value`. */
    virtual void UpdateSubView (std::uint32_t /*viewID*/, std::int32_t /*value*/) {}

    /** Empty until the first SetRect(). Writes nothing if `area` is null. */
    void GetRect (Rect* area) const noexcept;
    void SetRect (const Rect* area) noexcept;

    /** The window's number; 0 while there is none. */
    GrafPtr GetPort() const noexcept { return port; }
    void SetPort (GrafPtr newPort) noexcept { port = newPort; }

    /** Where the view's top left corner lies in the port, in pixels. */
    void SetOrigin (std::int16_t newTop, std::int16_t newLeft) noexcept;

private:
    Rect rect {};
    GrafPtr port = 0;
    std::int16_t originTop = 0, originLeft = 0;
};
