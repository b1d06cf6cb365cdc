// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A host's transport for tests.

#pragma once

#include "host/HostInterface.h"

#include <cstdint>

/** Answers what its fields say. */
struct FakeTransport : SFicTransport
{
    FakeTransport()
        : SFicTransport { readTempo, readMeter, readPlaying, readStopped, readRunning, readTicks }
    {
    }

    double tempo = 97.5; // beats a minute
    std::int32_t numerator = 7, denominator = 8;
    unsigned char playing = 2;                        // any number but 0
    std::int64_t stoppedAt = 1000, runningAt = 88200; // samples
    std::int64_t ticksPerSample = 10;
    std::int32_t result = 0;         // of every read
    bool writesWhenRefusing = false; // which no host should

private:
    template <typename Value>
    static std::int32_t answer (const SFicTransport* self, Value* out, Value FakeTransport::*field)
    {
        const auto& transport = *static_cast<const FakeTransport*> (self);

        if (transport.result == 0 || transport.writesWhenRefusing)
            *out = transport.*field;

        return transport.result;
    }

    static std::int32_t readTempo (const SFicTransport* self, double* out)
    {
        return answer (self, out, &FakeTransport::tempo);
    }

    static std::int32_t readMeter (const SFicTransport* self,
                                   std::int32_t* numerator,
                                   std::int32_t* denominator)
    {
        answer (self, denominator, &FakeTransport::denominator);
        return answer (self, numerator, &FakeTransport::numerator);
    }

    static std::int32_t readPlaying (const SFicTransport* self, unsigned char* out)
    {
        return answer (self, out, &FakeTransport::playing);
    }

    static std::int32_t readStopped (const SFicTransport* self, std::int64_t* out)
    {
        return answer (self, out, &FakeTransport::stoppedAt);
    }

    static std::int32_t readRunning (const SFicTransport* self, std::int64_t* out)
    {
        return answer (self, out, &FakeTransport::runningAt);
    }

    static std::int32_t readTicks (const SFicTransport* self, std::int64_t* ticks, std::int64_t position)
    {
        auto result = answer (self, ticks, &FakeTransport::ticksPerSample);
        *ticks *= result == 0 ? position : 1;
        return result;
    }
};
