// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a process passes on to its view.

#include "CProcess.h"
#include "FourCC.h"
#include "platform/Views.h"

#include <utility>

namespace
{
/** Controls of this view ID have no sub-view. */
constexpr auto noSubView = fourCC ("NONE");
} // namespace

void CProcess::InitializeView()
{
    if (platform::NoViews())
        return;

    auto newView = CreateCPlugInView();

    if (newView != nullptr)
        newView->Setup();

    view = std::move (newView);
}

std::unique_ptr<CPlugInView> CProcess::CreateCPlugInView()
{
    return nullptr;
}

std::int32_t CProcess::Draw (const Rect* area)
{
    if (view != nullptr)
        view->Draw (area);

    return ficSuccess;
}

std::int32_t CProcess::DoMouseCommand (EventRecord* event)
{
    if (view != nullptr)
        view->DoMouseCommand (event);

    return ficSuccess;
}

std::int32_t CProcess::DoKeyCommand (EventRecord* event, unsigned char* handled)
{
    const bool isHandled = view != nullptr && view->DoKeyCommand (event);

    if (handled != nullptr)
        *handled = isHandled;

    return ficSuccess;
}

std::int32_t CProcess::GetViewRect (Rect* area)
{
    if (view == nullptr)
        return host::neutralAnswer<ficSuccess> (area);

    view->GetRect (area);
    return ficSuccess;
}

std::int32_t CProcess::SetViewPort (GrafPtr port)
{
    if (view == nullptr)
        return ficSuccess;

    view->SetPort (port);

    for (std::int32_t control = 1; IsValidControlIndex (control); ++control)
    {
        std::uint32_t viewID = noSubView;
        GetProcessControlViewId (control, &viewID);

        if (viewID == noSubView)
            continue;

        if (port != 0)
            view->AttachSubView (viewID);
        else
            view->DetachSubView (viewID);
    }

    return ficSuccess;
}

std::int32_t CProcess::SetViewOrigin (std::int16_t top, std::int16_t left)
{
    if (view != nullptr)
        view->SetOrigin (top, left);

    return ficSuccess;
}

std::int32_t CProcess::ActivateWindow()
{
    if (view != nullptr)
        view->ActivateWindow();

    return ficSuccess;
}

std::int32_t CProcess::DeactivateWindow()
{
    if (view != nullptr)
        view->DeactivateWindow();

    return ficSuccess;
}

std::int32_t CProcess::UpdateControlGraphic (std::int32_t control, std::int32_t value)
{
    if (view == nullptr || ! IsValidControlIndex (control))
        return ficSuccess;

    std::uint32_t viewID = 0;
    GetProcessControlViewId (control, &viewID);
    view->UpdateSubView (viewID, value);
    return ficSuccess;
}
