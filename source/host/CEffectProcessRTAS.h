// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// An instance that the host's real-time engine renders: its ports, and the way from the engine to
// RenderAudio().

#pragma once

#include "CEffectProcess.h"
#include "HostInterface.h"
#include "HostPlugInMaker.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

class CPlugIn;
struct SRTASPCustomData;

/** Ports count from 1. What returns a code returns a FicResult. */
class CEffectProcessRTAS : public virtual CEffectProcess, public HostPlugInMaker
{
public:
    CEffectProcessRTAS();

    void Initialize() override;

    /** [host-main] How many ports there can be of each direction; has no effect from Initialize() on. */
    virtual void SetMaxRTASConnections (std::int32_t newMaxConnections);

    // [host-main] Beyond the range of ports: ficPortOutOfRange. A connected port is only changed to none.
    std::int32_t IsInputPortConnected (std::int32_t port, unsigned char* connected) override;
    std::int32_t CanOutputPortConnect (std::int32_t port, unsigned char* canConnect) override;
    std::int32_t IsOutputPortConnected (std::int32_t port, unsigned char* connected) override;
    std::int32_t ConnectInput (std::int32_t port, DAEConnection* connection) override;
    std::int32_t DisconnectInput (std::int32_t port) override;
    std::int32_t ConnectOutput (std::int32_t port, DAEConnection* connection) override;
    std::int32_t DisconnectOutput (std::int32_t port) override;

    std::int32_t UpdateControlValue (std::int32_t control, std::int32_t value) override;
    std::int32_t GetDelaySamples (std::int16_t* numSamples) override;

    /** [host-main] Ends rendering, then all that the base has with the host. */
    std::int32_t Free() override;
    std::int32_t GetPlugInString (std::int32_t selector, unsigned char* text) override;
    std::int32_t GetConnectionFormat (std::int16_t port,
                                      std::int16_t index,
                                      SFicConnectionFormat* format) override;
    std::int32_t SetConnectionFormat (std::int16_t port,
                                      std::int16_t index,
                                      const SFicConnectionFormat* format) override;

    /** [host-main] Announces this instance to the host's real-time engine, which may render from then on. */
    std::int32_t CreateHostPlugIn (SFicPlugInId id) override;

    /** [audio] Renders one block: an array of channels each, `numSamples` floats a channel. What it throws
       ends the block. */
    virtual void RenderAudio (float** inputs, float** outputs, std::int32_t numSamples) = 0;

    /** [host-main] The name for a region that the instance makes: here, `text` as it is. A Pascal string. */
    virtual void ModifyRegionName (unsigned char* text);

    ~CEffectProcessRTAS() override;

    /** [host-main] The longest block that the host renders, in samples. */
    static std::int32_t GetMaximumRTASQuantum();

    /** [audio] The worker that is announced to the host. */
    static void RenderAudioWorker (SPlugInRTInstance* instance, SPlugInRTGlobals* globals);

    // [audio] For a plug-in without a worker of its own: a block that fails leaves the host's empty output in
    // the output ports.
    static void PlugInWorker (SPlugInRTInstance* instance, SPlugInRTGlobals* globals);
    static void PlugInWorkerSG (SPlugInRTInstance* instance, SPlugInRTGlobals* globals);

protected:
    /** [any] Whether the master bypass is on. */
    bool IsBypassed() const noexcept { return bypassed.load (std::memory_order_relaxed); }

    /** [any] */
    void SetBypassed (bool shouldBeBypassed) noexcept
    {
        bypassed.store (shouldBeBypassed, std::memory_order_relaxed);
    }

private:
    using Connections = std::vector<DAEConnection*>;

    void InitializeConnectionArrays();
    void FreeConnectionArrays();
    bool isSidechain (std::int32_t port) const;
    bool isAuxOutput (std::int32_t port);
    std::int32_t connect (Connections&, std::int32_t port, DAEConnection*, std::int32_t codeIfConnected);
    std::int32_t disconnect (Connections&, std::int32_t port);
    std::int32_t tellConnected (const Connections&, std::int32_t port, unsigned char* connected) const;

    // [audio] Whether the block was rendered.
    static bool renderInstance (const SPlugInRTInstance*, SPlugInRTGlobals*) noexcept;
    bool renderBlock (const SPlugInRTInstance&, const SRTASPCustomData&, SPlugInRTGlobals&) noexcept;
    bool takePorts (const SPlugInRTInstance&) noexcept;

    std::atomic<bool> bypassed { false }; // set on the main thread, read by the worker

    // These two, and the sample pointers, are the worker's.
    const SRTASPCustomData* renderContext = nullptr;
    SPlugInRTGlobals* renderGlobals = nullptr;

    bool connectionArraysReady = false;
    std::int32_t maxConnections = defaultMaxConnections;
    std::vector<float*> inputSamples, outputSamples;
    Connections inputConnections, outputConnections;
    std::unique_ptr<CPlugIn> hostPlugIn;

    static constexpr std::int32_t defaultMaxConnections = 48;
};
