// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Draws a view whole, its background first, whatever part of it the host asks for.

#include "CCustomView.h"

void CCustomView::Draw (const Rect*)
{
    Rect whole {};
    GetRect (&whole);
    DrawBackground (&whole);
    DrawContents (&whole);
}
