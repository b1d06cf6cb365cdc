// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Which of an instance's ports the host has connected, and the format that it connects.

#include "CEffectProcessRTAS.h"
#include "StemFormats.h"

namespace
{
bool isInRange (const std::vector<DAEConnection*>& connections, std::int32_t port)
{
    return port >= 1 && port <= static_cast<std::int32_t> (connections.size());
}

std::size_t entryOf (std::int32_t port)
{
    return static_cast<std::size_t> (port - 1);
}

/** The one format that there is. The rate stands for any that is given. */
constexpr SFicConnectionFormat acceptedFormat { 0, 1, 2, 1, 44100.0f };
} // namespace

bool CEffectProcessRTAS::isSidechain (std::int32_t port) const
{
    return GetSidechainPort() != 0 && port == GetSidechainPort();
}

bool CEffectProcessRTAS::isAuxOutput (std::int32_t port)
{
    std::int32_t numStems = 0;
    GetNumAuxOutputStems (&numStems);

    for (std::int32_t stem = 1; stem <= numStems; ++stem)
    {
        std::int32_t format = 0;
        std::int32_t firstPort = 0;

        if (GetAuxOutputStemInfo (stem, &format, &firstPort) == ficSuccess && port >= firstPort
            && port - firstPort < SurroundFormatToNumChannels (format))
            return true;
    }

    return false;
}

std::int32_t CEffectProcessRTAS::connect (Connections& connections,
                                          std::int32_t port,
                                          DAEConnection* connection,
                                          std::int32_t codeIfConnected)
{
    if (! isInRange (connections, port))
        return ficPortOutOfRange;

    auto& entry = connections[entryOf (port)];

    if (entry != nullptr && connection != nullptr && ! isAuxOutput (port))
        return codeIfConnected;

    entry = connection;
    return ficSuccess;
}

std::int32_t CEffectProcessRTAS::disconnect (Connections& connections, std::int32_t port)
{
    if (! isInRange (connections, port))
        return ficPortOutOfRange;

    auto& entry = connections[entryOf (port)];

    if (entry == nullptr)
        return ficPortNotConnected;

    entry = nullptr;
    return ficSuccess;
}

std::int32_t CEffectProcessRTAS::tellConnected (const Connections& connections,
                                                std::int32_t port,
                                                unsigned char* connected) const
{
    const bool inRange = isInRange (connections, port);

    if (connected != nullptr)
        *connected = inRange && connections[entryOf (port)] != nullptr;

    return inRange ? ficSuccess : ficPortOutOfRange;
}

std::int32_t CEffectProcessRTAS::IsInputPortConnected (std::int32_t port, unsigned char* connected)
{
    return tellConnected (inputConnections, port, connected);
}

std::int32_t CEffectProcessRTAS::IsOutputPortConnected (std::int32_t port, unsigned char* connected)
{
    return tellConnected (outputConnections, port, connected);
}

std::int32_t CEffectProcessRTAS::CanOutputPortConnect (std::int32_t port, unsigned char* canConnect)
{
    const bool isFree = isInRange (outputConnections, port) && outputConnections[entryOf (port)] == nullptr;

    if (canConnect != nullptr)
        *canConnect = isFree || isAuxOutput (port);

    return ficSuccess;
}

std::int32_t CEffectProcessRTAS::ConnectInput (std::int32_t port, DAEConnection* connection)
{
    if (isSidechain (port))
        ConnectSidechain();

    return connect (inputConnections, port, connection, ficInputAlreadyConnected);
}

std::int32_t CEffectProcessRTAS::ConnectOutput (std::int32_t port, DAEConnection* connection)
{
    if (isSidechain (port))
        ConnectSidechain();

    return connect (outputConnections, port, connection, ficOutputAlreadyConnected);
}

std::int32_t CEffectProcessRTAS::DisconnectInput (std::int32_t port)
{
    if (isSidechain (port))
        DisconnectSidechain();

    return disconnect (inputConnections, port);
}

std::int32_t CEffectProcessRTAS::DisconnectOutput (std::int32_t port)
{
    if (isSidechain (port))
        DisconnectSidechain();

    return disconnect (outputConnections, port);
}

std::int32_t CEffectProcessRTAS::GetConnectionFormat (std::int16_t,
                                                      std::int16_t,
                                                      SFicConnectionFormat* format)
{
    if (format != nullptr)
    {
        format->first = acceptedFormat.first;
        format->second = acceptedFormat.second;
        format->third = acceptedFormat.third;
        format->sampleRate = acceptedFormat.sampleRate;
    }

    return ficSuccess;
}

std::int32_t CEffectProcessRTAS::SetConnectionFormat (std::int16_t,
                                                      std::int16_t,
                                                      const SFicConnectionFormat* format)
{
    const bool isAccepted = format != nullptr && format->first == acceptedFormat.first
                            && format->second == acceptedFormat.second
                            && format->third == acceptedFormat.third && format->sampleRate != 0.0f;

    return isAccepted ? ficSuccess : ficConnectionFormatRefused;
}
