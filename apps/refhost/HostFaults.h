// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The points at which the host can be told to fail.

#pragma once

#include <host/HostInterface.h>

#include <array>
#include <atomic>
#include <cstddef>

namespace refhost
{
/** All that a plug-in calls: the host's functions, and what its tables of functions hold. */
enum class HostPoint
{
#define REFHOST_POINT(Result, Name, parameters) Name,
    FIC_HOST_FUNCTIONS (REFHOST_POINT)
#undef REFHOST_POINT
        InitFic,
    NewStandardObject,
    ReleaseName,
    TryToEnterCriticalSection,
    GetRemoteObjectManager,
    RegisterRemoteObject,
    CallRemoteObject,
    GetCurrentTempo,
    GetCurrentMeter,
    IsTransportPlaying,
    GetCurrentTDMSampleLocation,
    GetCurrentRTASSampleLocation,
    GetCustomTickPosition,
    numPoints
};

inline constexpr auto numHostPoints = static_cast<std::size_t> (HostPoint::numPoints);

/** Counts the calls of each point and says which of them fail. What a point answers when it fails depends on
    its type: the code, null, or 0. Set on the main thread; asked from any. */
class HostFaults
{
public:
    enum class Kind
    {
        code,      ///< the call does nothing and returns a code
        badAlloc,  ///< it throws std::bad_alloc
        exception, ///< it throws what is no std::exception
    };

    /** Any code that no plug-in gives on its own. */
    static constexpr std::int32_t usualCode = -4711;
    static constexpr int forEver = -1;

    /** From now on the calls from `firstCall` (1: the next one) fail, `numCalls` of them. */
    void fail (HostPoint point,
               Kind kind = Kind::code,
               int firstCall = 1,
               int numCalls = forEver,
               std::int32_t code = usualCode);

    /** Nothing fails any more. */
    void clear();

    /** Counts a call. 0, or the code with which it fails; throws if it shall. */
    std::int32_t next (HostPoint point);

    /** How often a point has been called, failures included. */
    int getNumCalls (HostPoint point) const noexcept;

private:
    struct Plan
    {
        std::atomic<int> numCalls { 0 }, firstFailure { 0 }, lastFailure { -1 }; // of numCalls
        std::atomic<std::int32_t> code { 0 };
        std::atomic<Kind> kind { Kind::code };
    };

    Plan& planOf (HostPoint point) noexcept { return plans[static_cast<std::size_t> (point)]; }

    std::array<Plan, numHostPoints> plans;
};
} // namespace refhost
