// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// One instance as the host's real-time engine is told about it.

#pragma once

#include "CBaseSet.h"
#include "CPlugInOperations.h"
#include "CRemoteObject.h"
#include "HostInterface.h"

#include <cstdint>

/** Ports, controls and workers under the identity of an instance. Owns none of them. */
class CPlugIn : public CRemoteObject
{
public:
    explicit CPlugIn (const SFicPlugInId& newId);

    // All operations: [host-main]. Numbers count from 1; null where there is no such object.
    virtual const SFicPlugInId& GetID() const { return id; }
    virtual std::int32_t GetNumInputs() const { return inputs.GetNumMembers(); }

    /** How many there are follows from the set, here and for the outputs. */
    virtual void SetNumInputs (std::int32_t) {}
    virtual CRemoteObject* GetInput (std::int32_t number) const { return inputs.GetMemberN (number); }
    virtual std::int32_t GetNumOutputs() const { return outputs.GetNumMembers(); }
    virtual void SetNumOutputs (std::int32_t) {}
    virtual CRemoteObject* GetOutput (std::int32_t number) const { return outputs.GetMemberN (number); }
    virtual std::int32_t GetNumControls() const { return controls.GetNumMembers(); }
    virtual CRemoteObject* GetControl (std::int32_t number) const { return controls.GetMemberN (number); }
    virtual CRemoteObject* GetUserInterface() const { return userInterface; }

#define CPLUGIN_DECLARE(Name, answer, parameters, names) virtual std::int32_t Name parameters;
    CPLUGIN_NEUTRAL_OPERATIONS (CPLUGIN_DECLARE)

    /** Sends the description of everything in the sets, then the plug-in's own, with scheduling held off all
     * the while. */
    void DescribeToDAE() override;

    /** Tells the host's engine to leave its schedule alone, or that it may go on. */
    virtual void ProtectFromScheduling (bool shouldProtect);

    CPLUGIN_NEUTRAL_NESTING_OPERATIONS (CPLUGIN_DECLARE)
#undef CPLUGIN_DECLARE

protected:
    const SFicPlugInId id;
    std::uintptr_t unusedWord = 0;

public:
    CBaseSet inputs, outputs, controls;

protected:
    CRemoteObject* userInterface = nullptr;

public:
    CBaseSet workers;

private:
    void describeMembers();
    void describeItself();
};
