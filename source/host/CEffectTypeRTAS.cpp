// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A process type whose processes run natively, on the host's real-time thread.

#include "CEffectTypeRTAS.h"

#include "CProcess.h"
#include "CProcessGroup.h"
#include "CallNoThrow.h"
#include "Gestalts.h"
#include "HostPlugInMaker.h"

CEffectTypeRTAS::CEffectTypeRTAS (std::uint32_t newTypeID,
                                  std::uint32_t newProductID,
                                  std::uint32_t newCategory)
    : CEffectType (newTypeID, newProductID, nativePlugInType, newCategory)
{
}

void CEffectTypeRTAS::AddGestalt (std::int32_t selector)
{
    CEffectType::AddGestalt (selector);

    if (selector == Gestalts::auxOutputStems)
        CEffectType::AddGestalt (Gestalts::scatterGatherWorker);
}

std::int32_t CEffectTypeRTAS::InstantiateProcess (std::int32_t* process)
{
    std::int32_t index = 0;

    if (const auto result = CEffectType::InstantiateProcess (&index); result != ficSuccess)
        return result;

    const auto result = CallAndTranslateExceptionsToReturnValues ([&] { return CreateHostPlugInOf (index); });

    if (result != ficSuccess)
    {
        CallAndTranslateExceptionsToReturnValues ([&] { return ReleaseMIDI (index); });
        FreeProcess (index);
        return result;
    }

    if (process != nullptr)
        *process = index;

    return ficSuccess;
}

std::int32_t CEffectTypeRTAS::CreateHostPlugInOf (std::int32_t process)
{
    auto* const maker = dynamic_cast<HostPlugInMaker*> (GetProcessFromIndex (process));

    if (maker == nullptr)
        return ficUnknownTypeIndex;

    SFicPlugInId id {};
    throwIfFailed (
        GetProcessGroup()->GetProcessTypeIDs (GetTypeIndex(), &id.manufacturerID, &id.productID, &id.typeID));
    id.plugInObject = groupWord == nullptr ? 0 : *groupWord;
    id.processIndex = process;
    return maker->CreateHostPlugIn (id);
}
