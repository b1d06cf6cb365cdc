// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A data block that every call of the worker gets from the host.

#pragma once

#include "CRemoteObject.h"
#include "CSmartStructure.h"

#include <cstddef>

/** Announces the block's size; the host answers with the address of its own block, which is filled at once.
 */
class CPlugInData : public CSmartStructure, public CRemoteObject
{
public:
    explicit CPlugInData (std::size_t sizeInBytes);

    void DescribeToDAE() override;
};
