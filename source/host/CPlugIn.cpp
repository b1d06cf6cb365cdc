// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Describes an instance to the host's engine, its members first, while the schedule stays as it is.

#include "CPlugIn.h"

#include "CPlugInOutputStream.h"
#include "CPlugInWorker.h"
#include "RoutineRows.h"

namespace
{
/** The first words of the plug-in's own messages. */
enum PlugInMessage : std::int32_t
{
    plugInDescription = 1,
    scheduleStays = 2,
    scheduleMayChange = 3
};

void describeAll (const CBaseSet& set)
{
    for (std::int32_t number = 1; number <= set.GetNumMembers(); ++number)
        set.GetMemberN (number)->DescribeToDAE();
}
} // namespace

CPlugIn::CPlugIn (const SFicPlugInId& newId)
    : CRemoteObject (ficRemotePlugIn),
      id (newId)
{
}

#define CPLUGIN_DEFINE(Name, answer, parameters, names)                                                      \
    std::int32_t CPlugIn::Name parameters                                                                    \
    {                                                                                                        \
        return host::neutralAnswer<answer> names;                                                            \
    }

CPLUGIN_NEUTRAL_OPERATIONS (CPLUGIN_DEFINE)
CPLUGIN_NEUTRAL_NESTING_OPERATIONS (CPLUGIN_DEFINE)

#undef CPLUGIN_DEFINE

void CPlugIn::DescribeToDAE()
{
    ProtectFromScheduling (true);

    try
    {
        describeMembers();
        describeItself();
    }
    catch (...)
    {
        ProtectFromScheduling (false);
        throw;
    }

    ProtectFromScheduling (false);
}

void CPlugIn::describeMembers()
{
    describeAll (inputs);
    describeAll (outputs);
    describeAll (workers);

    CBaseSet data;

    for (std::int32_t number = 1; number <= workers.GetNumMembers(); ++number)
        if (const auto* const worker = dynamic_cast<CPlugInWorker*> (workers.GetMemberN (number)))
            data.UnionWith (worker->dataObjects);

    describeAll (data);
}

void CPlugIn::describeItself()
{
    CPlugInBuffer message;
    CPlugInOutputStream stream (message);
    stream.WriteNumber (plugInDescription);
    stream.WriteCode (id.manufacturerID);
    stream.WriteCode (id.productID);
    stream.WriteCode (id.typeID);
    stream.WriteWord (id.plugInObject);
    stream.WriteNumber (id.processIndex);
    stream.WriteSet (inputs);
    stream.WriteSet (outputs);
    stream.WriteSet (workers);
    SendToDAE (message);
}

void CPlugIn::ProtectFromScheduling (bool shouldProtect)
{
    CPlugInBuffer message;
    CPlugInOutputStream (message).WriteNumber (shouldProtect ? scheduleStays : scheduleMayChange);
    SendToDAE (message);
}
