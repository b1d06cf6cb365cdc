// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Finds the module inside a bundle, loads it, and looks up its entry points and all its routines.

#include "HostBundle.h"

#include <dlfcn.h>
#include <filesystem>

namespace refhost
{
namespace
{
/** On the way from one type of function to another. */
using AnyFunction = void (*)();

/** What the host gives with SetCFicWidgetObject: only it knows what that is, and gets it back. */
constexpr std::uintptr_t hostsObject = 0x5eed;

/** A bundle holds its code as Contents/<platform>/<name of the bundle>.so. */
std::filesystem::path findModule (const std::filesystem::path& bundle)
{
    const auto fileName = bundle.stem().string() + ".so";
    std::error_code error;

    for (const auto& entry : std::filesystem::directory_iterator (bundle / "Contents", error))
        if (auto module = entry.path() / fileName; std::filesystem::exists (module, error))
            return module;

    return {};
}

std::string lastLoadError()
{
    const char* const text = ::dlerror();
    return text == nullptr ? "unknown error" : text;
}
} // namespace

HostBundle::HostBundle (const std::string& path, void* libraryToUse)
    : reference { path },
      library (libraryToUse)
{
}

HostBundle::~HostBundle()
{
    if (isStarted)
        stop();
}

std::unique_ptr<HostBundle> HostBundle::load (const std::string& path, std::string& problem)
{
    const auto module = findModule (std::filesystem::path (path));

    if (module.empty())
    {
        problem = "there is no plug-in bundle '" + path + "'";
        return {};
    }

    auto* const library = ::dlopen (module.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);

    if (library == nullptr)
    {
        problem = "the plug-in bundle '" + path + "' cannot be loaded: " + lastLoadError();
        return {};
    }

    std::unique_ptr<HostBundle> bundle (new HostBundle (path, library));

    if (! bundle->findEntryPoints (problem))
        bundle.reset();

    return bundle;
}

bool HostBundle::findEntryPoints (std::string& problem)
{
    newPlugIn = reinterpret_cast<NewMachOPlugInProc> (findExport ("NewMachOPlugIn"));
    closePlugIn = reinterpret_cast<CloseMachOPlugInProc> (findExport ("CloseMachOPlugIn"));

    if (auto* const descriptor = static_cast<void* const*> (findExport ("__PI_GetRoutineDescriptor")))
        getDescriptor = reinterpret_cast<PI_GetRoutineDescriptorProc> (descriptor[0]);

    if (newPlugIn == nullptr || closePlugIn == nullptr || getDescriptor == nullptr)
    {
        problem = "'" + reference.path + "' is no plug-in of this kind; it has none of its entry points";
        return false;
    }

    bool isComplete = true;
    const auto find = [&] (std::int32_t selector)
    {
        FicRoutine routine = nullptr;
        isComplete = getDescriptor (selector, &routine) == ficSuccess && routine != nullptr && isComplete;
        return reinterpret_cast<AnyFunction> (routine);
    };

#define REFHOST_FIND(selector, Name, ...) routines.Name = reinterpret_cast<PI_##Name##Proc> (find (selector));
    FIC_ROUTINES (REFHOST_FIND, REFHOST_FIND, REFHOST_FIND, REFHOST_FIND)
#undef REFHOST_FIND

    if (! isComplete)
        problem = "'" + reference.path + "' lacks routines that a host needs";

    return isComplete;
}

void* HostBundle::findExport (const char* name) const
{
    return ::dlsym (library, name);
}

std::int32_t HostBundle::start()
{
    if (const auto result = newPlugIn (&reference); result != ficSuccess)
        return result;

    isStarted = true;

    for (const auto result : { routines.SetXCMDProc (HostServices::remoteCallback),
                               routines.SetCFicWidgetObject (hostsObject),
                               routines.EnablePlugInType (nativePlugInType) })
        if (result != ficSuccess)
            return result;

    return ficSuccess;
}

std::int32_t HostBundle::stop()
{
    isStarted = false;
    return closePlugIn (&reference);
}

std::int32_t HostBundle::getNumTypes() const
{
    std::int16_t numTypes = 0;
    routines.GetNumProcessTypes (&numTypes);
    return numTypes;
}

std::int32_t HostBundle::getTypeIDs (std::int32_t index, SFicPlugInSpec& ids) const
{
    return routines.GetProcessTypeIDs (index, &ids.manufacturerID, &ids.productID, &ids.typeID);
}
} // namespace refhost
