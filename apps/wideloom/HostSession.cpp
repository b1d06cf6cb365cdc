// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Starts the bundle that lies beside the program and inserts one instance of its first type.

#include "HostSession.h"

#include <cmath>
#include <filesystem>

namespace
{
std::string withResult (const std::string& text, std::int32_t result)
{
    return text + " (result " + std::to_string (result) + ")";
}
} // namespace

HostSession::HostSession (refhost::HostOffer offer)
    : services (offer)
{
}

HostSession::~HostSession() = default;

std::string HostSession::bundleBesideProgram()
{
    std::error_code error;
    const auto program = std::filesystem::read_symlink ("/proc/self/exe", error);
    return (program.parent_path() / "WideLoom.bundle").string();
}

Problem HostSession::open (double sampleRate)
{
    std::string problem;
    bundle = refhost::HostBundle::load (bundleBesideProgram(), problem);

    if (bundle == nullptr)
        return problem;

    if (const auto result = bundle->start(); result != ficSuccess)
        return withResult ("the plug-in does not start", result);

    if (bundle->getTypeIDs (1, ids) != ficSuccess)
        return "the plug-in shows nothing that could be inserted";

    std::int32_t result =
        bundle->getRoutines().SetSampleRate (static_cast<std::int32_t> (std::lround (sampleRate)));

    if (result == ficSuccess)
        instance = refhost::HostInstance::make (*bundle, services, ids.typeID, result);

    if (instance == nullptr)
        return withResult ("the plug-in cannot be inserted", result);

    if (instance->getPlugIn() == nullptr)
        return "the plug-in does not say how to render it";

    return {};
}
