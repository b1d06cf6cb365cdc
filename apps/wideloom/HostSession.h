// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The plug-in bundle, running in the reference host with one instance.

#pragma once

#include "Command.h"

#include "refhost/HostInstance.h"

#include <memory>

/** [message] One at a time. The services are there from the start; bundle and instance come with open(). */
class HostSession
{
public:
    explicit HostSession (refhost::HostOffer offer = {});
    ~HostSession();

    /** Loads the bundle that lies beside the program and makes one instance of its first type. `sampleRate`
       in Hz; the border knows whole ones only. */
    Problem open (double sampleRate);

    refhost::HostServices& getServices() noexcept { return services; }
    const refhost::HostBundle& getBundle() const noexcept { return *bundle; }
    const refhost::HostInstance& getInstance() const noexcept { return *instance; }

    /** Codes and index of the instance's type. */
    const SFicPlugInSpec& getIds() const noexcept { return ids; }

    /** The first parameter's control; the one before it is the master bypass. */
    static constexpr int controlOfFirstParameter = 2;

    static std::string bundleBesideProgram();

private:
    refhost::HostServices services;
    std::unique_ptr<refhost::HostBundle> bundle;
    std::unique_ptr<refhost::HostInstance> instance;
    SFicPlugInSpec ids {};
};
