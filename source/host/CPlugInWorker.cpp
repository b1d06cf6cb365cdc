// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Describes a worker by its function, its data blocks and its name.

#include "CPlugInWorker.h"

#include "CPlugInOutputStream.h"

#include <utility>

CPlugInWorker::CPlugInWorker (CPlugIn& owner, FicWorkerProc function, std::string name)
    : CRemoteObject (ficRemoteWorker),
      plugIn (owner),
      workerFunction (function),
      workerName (std::move (name))
{
}

void CPlugInWorker::DescribeToDAE()
{
    constexpr std::int32_t workerDescription = 6;
    constexpr std::int32_t numSets = 4;
    static_assert (std::tuple_size_v<decltype (otherObjects)> + 1 == numSets);

    CPlugInBuffer message;
    CPlugInOutputStream stream (message);
    stream.WriteNumber (workerDescription);
    stream.WriteFunction (workerFunction);
    stream.WriteNumber (numSets);
    stream.WriteSet (dataObjects);

    for (const auto& set : otherObjects)
        stream.WriteSet (set);

    stream.WriteReference (workerName.c_str());
    stream.WriteNumber (0);
    SendToDAE (message);
}
