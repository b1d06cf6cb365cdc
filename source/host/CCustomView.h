// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A view that draws all of itself.

#pragma once

#include "CPlugInView.h"

/** The base of views of the plug-in's own. All operations are [host-main]. */
class CCustomView : public CPlugInView
{
public:
    /** Draws the background of the whole view, then its contents. */
    void Draw (const Rect* area) override;

    virtual void DrawContents (Rect* area) = 0;
    virtual void DrawBackground (Rect* area) = 0;
};
