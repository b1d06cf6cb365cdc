// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "CCustomView.h"

void CCustomView::Draw (const Rect*)
{
    Rect whole {};
    GetRect (&whole);
    DrawBackground (&whole);
    DrawContents (&whole);
}
