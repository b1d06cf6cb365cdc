/* SPDX-FileCopyrightText: The WideLoom authors
 * SPDX-License-Identifier: GPL-3.0-or-later
 *
 * A small but whole host: renders a tone on the left channel with the control "SwapLR" on, so that it comes out
 * right. Build it with -rdynamic, since the plug-in looks the Fic functions up in the running program.
 */
#include <host/HostInterface.h>

#include <dlfcn.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

struct FicObjectRecord { int depth; };

/* What a plug-in cannot do without: the marker, a services object, a critical section. */
static int32_t startServices (void) { return ficSuccess; }
static FicObject makeNothing (int32_t kind, const SFicListener* listener) { (void) kind, (void) listener; return NULL; }
static void release (FicObject object) { free (object); }
static int32_t releaseName (int32_t nameID) { (void) nameID; return ficSuccess; }
static unsigned char tryToEnter (FicObject section) { return ++section->depth > 0; }

int32_t FicGetFrameworkVersion (void) { return 1; }
const SFicServices* FicGetServices (void)
{
    static const SFicServices services = { 1, startServices, makeNothing, release, releaseName, tryToEnter };
    return &services;
}
FicObject FicCreateCriticalSection (void) { return calloc (1, sizeof (struct FicObjectRecord)); }

/* The engine: keeps the data block and the worker out of what it is told. */
static uintptr_t kinds[16][2], customData[64];
static int numObjects = 0;
static FicWorkerProc worker = NULL;

static int32_t registerObject (void* object, int32_t kind)
{
    if (numObjects == 16)
        return ficOutOfMemory;
    kinds[numObjects][0] = (uintptr_t) object;
    kinds[numObjects++][1] = (uintptr_t) kind;
    return ficSuccess;
}

static int32_t callObject (void* object, const uintptr_t* words, int32_t numWords)
{
    for (int i = 0; i < numObjects; ++i)
    {
        if (kinds[i][0] != (uintptr_t) object)
            continue;
        if (kinds[i][1] == ficRemoteData && numWords == 4 && words[2] <= sizeof (customData))
            *(uintptr_t*) words[3] = (uintptr_t) customData; /* the plug-in fills it */
        if (kinds[i][1] == ficRemoteWorker)
            worker = (FicWorkerProc) words[1];
    }
    return ficSuccess;
}

static int32_t remoteCallback (int32_t code, const SFicRemoteObjectManager** manager)
{
    static const SFicRemoteObjectManager objects = { registerObject, callObject };
    *manager = code == ficRemoteObjectManagerCode ? &objects : NULL;
    return *manager != NULL ? ficSuccess : ficFunctionMissing;
}

static PI_GetRoutineDescriptorProc getRoutine;
static void (*routine (int32_t selector)) (void)
{
    FicRoutine found = NULL;
    getRoutine (selector, &found);
    return (void (*) (void)) found;
}
#define PI(Name) ((PI_##Name##Proc) routine (ficSelector##Name))

int main (int argc, char** argv)
{
    void* const library = argc == 2 ? dlopen (argv[1], RTLD_NOW | RTLD_LOCAL) : NULL;
    if (library == NULL)
        return fprintf (stderr, "usage: minimal-host CODE_OF_A_BUNDLE.so\n"), 2;

    const NewMachOPlugInProc open = (NewMachOPlugInProc) dlsym (library, "NewMachOPlugIn");
    const CloseMachOPlugInProc close = (CloseMachOPlugInProc) dlsym (library, "CloseMachOPlugIn");
    void* const* const descriptor = dlsym (library, "__PI_GetRoutineDescriptor");
    if (open == NULL || close == NULL || descriptor == NULL)
        return fprintf (stderr, "that is no plug-in\n"), 2;
    getRoutine = (PI_GetRoutineDescriptorProc) descriptor[0];

    uint32_t manufacturer, product, type = 0;
    int32_t process = 0, result = open (NULL);
    if (result != ficSuccess)
        return printf ("the plug-in does not start: %d\n", result), 1;
    PI (SetXCMDProc) (remoteCallback);
    PI (EnablePlugInType) (3);
    PI (SetSampleRate) (48000);
    PI (GetProcessTypeIDs) (1, &manufacturer, &product, &type);
    result = PI (InstantiateProcess) (type, &process);

    int32_t numControls = 0;
    PI (GetNumControls) (type, process, &numControls);
    for (int32_t control = 1; control <= numControls; ++control)
    {
        char name[32] = "";
        PI (GetControlName) (type, process, control, name);
        if (strcmp (name, "SwapLR") == 0)
            PI (UpdateControlValue) (type, process, control, INT32_MAX); /* the top of its range: on */
    }

    /* Ports of 2 inputs and 2 outputs, and the record that the worker finds them in: inputs first. */
    float samples[4][ficFixedQuantum], *ports[4], left = 0.0f, right = 0.0f;
    uintptr_t record[6] = { 0, (uintptr_t) customData };
    SPlugInRTGlobals globals = { .quantum = ficFixedQuantum };
    for (int i = 0; i < 4; ++i)
    {
        ports[i] = samples[i];
        record[2 + i] = (uintptr_t) &ports[i];
    }

    for (int block = 0; block < 100 && worker != NULL; ++block)
    {
        for (int i = 0; i < ficFixedQuantum; ++i)
        {
            samples[0][i] = i < ficFixedQuantum / 2 ? 0.5f : -0.5f;
            samples[1][i] = 0.0f;
        }
        worker ((SPlugInRTInstance*) record, &globals); /* on a real-time thread in a real host */
        for (int i = 0; i < ficFixedQuantum; ++i)
        {
            left = samples[2][i] > left ? samples[2][i] : left;
            right = samples[3][i] > right ? samples[3][i] : right;
        }
    }

    printf ("instance %d: result %d, peaks %.3f and %.3f\n", process, result, (double) left, (double) right);
    PI (FreeProcess) (type, process);
    close (NULL);
    return left == 0.0f && right == 0.5f ? 0 : 1;
}
