// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Describes a data block, and fills the host's own when its address has changed.

#include "CPlugInData.h"

#include "CPlugInOutputStream.h"

namespace
{
constexpr std::int32_t dataDescription = 1;
constexpr std::int32_t dataType = 0;
} // namespace

CPlugInData::CPlugInData (std::size_t sizeInBytes)
    : CSmartStructure (sizeInBytes),
      CRemoteObject (ficRemoteData)
{
}

void CPlugInData::DescribeToDAE()
{
    CPlugInBuffer message;
    CPlugInOutputStream stream (message);
    stream.WriteNumber (dataDescription);
    stream.WriteNumber (dataType);
    stream.WriteNumber (static_cast<std::int32_t> (GetSize()));
    stream.WriteReference (&hostAddress);

    const auto before = hostAddress;
    SendToDAE (message);

    if (hostAddress != before)
        UpdateAddress();
}
