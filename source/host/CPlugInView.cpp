// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Keeps the rectangle and the origin that a view is given.

#include "CPlugInView.h"

CPlugInView::~CPlugInView() = default;

void CPlugInView::GetRect (Rect* area) const noexcept
{
    if (area != nullptr)
        *area = rect;
}

void CPlugInView::SetRect (const Rect* area) noexcept
{
    if (area != nullptr)
        rect = *area;
}

void CPlugInView::SetOrigin (std::int16_t newTop, std::int16_t newLeft) noexcept
{
    originTop = newTop;
    originLeft = newLeft;
}
