// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// One instance of the plug-in: its controls, its view, and how the host's token service hears of them.

#pragma once

#include "CMeterSource.h"
#include "CPlugInView.h"
#include "CPluginControlManager.h"
#include "CProcessOperations.h"
#include "HostTokens.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class CEffectProcessRTAS;
class CProcess;
class CProcessType;

/** What a token's task value points to. */
struct ListenerContext
{
    CProcess* process = nullptr;
    std::int32_t control = 0; // 1-based
};

/** Answers all that the host asks about controls. Where the host has a token service, each control has a name
    there; values then go to the host first, and come into force when it answers.

    Controls are added before Initialize(). The order of life is constructor, SetProcessType(), Initialize(),
    Free(), destructor; Free() may follow a failed Initialize(), and come twice. All operations are
   [host-main] and return a FicResult except where they say otherwise. Indices of controls count from 1; an
   index that there is not gets a neutral answer. */
class CProcess : public CProcessOperations, public CMeterSource
{
public:
    /** Rates and offsets come from gProcessGroup. */
    CProcess();
    ~CProcess() override;

    /** Makes the view, and registers the controls with the host's token service. Throws; nothing stays
        registered then. */
    virtual void Initialize();
    virtual std::int32_t Free();
    virtual void SetProcessType (CProcessType* type);
    CProcessType* GetProcessType() const noexcept { return processType; }

    /** Runs the platform's messages, then the tokens. */
    std::int32_t DoIdle() override;
    /** Takes the host's tokens, for no more than 2 ticks. They may be for any instance. */
    virtual std::int32_t DoTokenIdle();

    std::int32_t Draw (const Rect* area) override;
    std::int32_t DoMouseCommand (EventRecord* event) override;
    std::int32_t DoKeyCommand (EventRecord* event, unsigned char* handled) override;
    std::int32_t GetViewRect (Rect* area) override;
    std::int32_t SetViewPort (GrafPtr port) override;
    std::int32_t SetViewOrigin (std::int16_t top, std::int16_t left) override;
    std::int32_t ActivateWindow() override;
    std::int32_t DeactivateWindow() override;

    /** Stores the rate, in Hz, and nothing else. */
    virtual std::int32_t SetSampleRate (std::int32_t newSampleRate);
    std::int32_t GetSampleRate() const noexcept { return sampleRate; }
    virtual std::int32_t SetDitherBits (std::int32_t numBits);
    virtual std::int32_t SetTimeCodeInfo (const SFicTimeCodeInfo* info);
    virtual std::int32_t SetLocationTempo (std::int32_t location, std::int32_t tempo);
    virtual std::int32_t BoundAutoSegment (std::int32_t start, std::int32_t end);
    virtual std::int32_t Prime (unsigned char on);
    /** [any] A code of SFicTimeCodeInfo. */
    virtual signed char GetFrameRate() const;
    /** [any] Frames. */
    virtual std::int32_t GetFrameOffset() const;

    // -1 until set.
    virtual void SetProcessTypeIndex (std::int16_t index);
    virtual std::int16_t GetProcessTypeIndex() const;
    virtual void SetProcessIndex (std::int16_t index);
    virtual std::int16_t GetProcessIndex() const;

    virtual void SetDriverRefNum (std::int32_t refNum);
    virtual std::int32_t GetDriverRefNum() const;
    virtual void SetHardwareRefNum (std::int32_t refNum);
    virtual std::int32_t GetHardwareRefNum() const;

    std::int32_t GetNumAudioInputs (std::int16_t* numInputs) override = 0;
    std::int32_t GetNumAudioOutputs (std::int16_t* numOutputs) override = 0;
    virtual bool WeHaveVariableNumInputs() const;
    virtual bool WeHaveVariableNumOutputs() const;
    std::int32_t IsInputPortConnected (std::int32_t port, unsigned char* connected) override;
    std::int32_t GetDelaySamplesLong (std::int32_t* numSamples) override;
    std::int32_t GetIndexedChunkID (std::int32_t index, std::uint32_t* chunkID) override;
    std::int32_t GetNumChanges (std::int32_t* numChangesSoFar) override;

    // Controls: names, texts, ranges.
    std::int32_t GetNumControls (std::int32_t* numControls) override;
    std::int32_t IsControlAutomatable (std::int32_t control, unsigned char* automatable) override;
    std::int32_t GetNumControlSteps (std::int32_t control, std::int32_t* numSteps) override;
    virtual std::int32_t ConvertStringToValue (std::int32_t control, const char* text, std::int32_t* value);
    virtual std::int32_t IsKeyValid (std::int32_t control, std::int32_t key, unsigned char* valid);
    /** A Pascal string of at most `length` characters. */
    virtual std::int32_t GetValueString (std::int32_t control,
                                         std::int32_t value,
                                         unsigned char* text,
                                         std::int32_t length);
    std::int32_t MapControlValToString (std::int32_t control,
                                        std::int32_t value,
                                        char* text,
                                        std::int32_t length) override;
    std::int32_t GetControlName (std::int32_t control, char* name) override;
    std::int32_t GetControlNameOfLength (std::int32_t control,
                                         char* name,
                                         std::int32_t length,
                                         std::uint32_t controllerType,
                                         std::int16_t* requiredLength) override;
    /** The part of a control's token service name that comes behind the instance's; `name` holds 32 bytes. */
    virtual std::int32_t GetProcessControlSDSName (std::int32_t control, char* name);
    std::int32_t GetControlPriority (std::int32_t control, std::int32_t* priority) override;
    std::int32_t GetControlType (std::int32_t control, std::int32_t* controlType) override;
    std::int32_t GetControlOrientation (std::int32_t control, std::int32_t* orientation) override;
    virtual std::int32_t GetProcessControlViewId (std::int32_t control, std::uint32_t* viewID);

    // Controls: values, on the control scale.
    std::int32_t GetControlValue (std::int32_t control, std::int32_t* value) override;
    std::int32_t GetControlDefaultValue (std::int32_t control, std::int32_t* value) override;
    virtual std::int32_t SetControlDefaultValue (std::int32_t control, std::int32_t value);
    /** With tokens asks the host for the value, without sets it. */
    std::int32_t SetControlValue (std::int32_t control, std::int32_t value) override;
    std::int32_t SetControlRelative (std::int32_t control, std::int32_t delta) override;
    /** Sets the value, and tells the host. */
    std::int32_t UpdateControlValue (std::int32_t control, std::int32_t value) override;
    std::int32_t UpdateControlRelative (std::int32_t control, std::int32_t delta) override;
    virtual std::int32_t UpdateControlValueInAlgorithm (std::int32_t control);
    virtual std::int32_t UpdateControlGraphic (std::int32_t control, std::int32_t value);
    virtual std::int32_t UpdateHighlight (std::int32_t control, const TokenHighlight& highlight);
    /** Touches nest: only the first and the last of them reach the host. */
    virtual std::int32_t TouchControl (std::int32_t control);
    virtual std::int32_t ReleaseControl (std::int32_t control);

    // Meters. The flags may be used on both threads.
    std::int32_t GetPlugInType() const override;
    void GetMetersFromDSPorRTAS (std::int32_t* values, bool* clips) override;
    bool TestAndClearMetersReady() noexcept override;
    /** [audio] A block has been rendered. */
    void SetMetersReady() noexcept { metersReady.store (true, std::memory_order_relaxed); }

    /** [audio] This process as the one that renders, null if it does not. The worker only has a CProcess, and
       the cast from there would cost it more than all the rest of its work. */
    CEffectProcessRTAS* GetRenderTarget() const noexcept { return renderTarget; }
    std::int32_t GetClipState (unsigned char* hasClipped) override;
    std::int32_t ClearClipState() override;
    virtual void SetClipped (bool hasClipped);

    // The token service.
    /** Reserves the name of this instance below `parentID`; whatever stood before is unregistered. */
    virtual std::int32_t SetRootName (std::int32_t parentID);
    virtual std::int32_t RegisterControls();
    virtual std::int32_t RegisterListeners();
    virtual void UnRegisterRoot() noexcept;
    virtual void UnRegisterControls() noexcept;
    virtual void UnRegisterListeners() noexcept;
    std::int32_t GetProcessNameID (std::int32_t* nameID) override;
    std::int32_t GetControlNameID (std::int32_t control, std::int32_t* nameID) override;
    /** The first part of the instance's name; `name` holds 256 bytes. */
    virtual std::int32_t GetSDSBaseName (char* name);
    /** A token that is none of those that every process knows. */
    virtual std::int32_t HandleToken (const SFicSDSToken& token);

    virtual std::int32_t GetPageTableList (std::int32_t* numPageTables);

protected:
    /** The view to be, or null for none. */
    virtual std::unique_ptr<CPlugInView> CreateCPlugInView();

    /** Runs what waits for the platform's message loop. Returns false if that freed this process, of which
        nothing may then be touched. */
    virtual bool RunPlatformMessages();

    void SetChannelCounts (std::int16_t numInputs, std::int16_t numOutputs) noexcept;
    CPlugInView* GetView() const noexcept { return view.get(); }
    bool IsValidControlIndex (std::int32_t control) const noexcept
    {
        return controls.IsValidControlIndex (control);
    }

    /** Called by the render target's own constructor. */
    void SetRenderTarget (CEffectProcessRTAS* target) noexcept { renderTarget = target; }

    /** A value as the control shows it, in at most `length` and 255 bytes. */
    std::string ValueText (std::int32_t control, std::int32_t value, std::int32_t length) const;

    CPluginControlManager controls;
    std::int16_t numAudioInputs = 0, numAudioOutputs = 0;
    bool clipped = false;

private:
    struct ListenerRow;
    static const ListenerRow listenerRows[];

    void InitializeView();
    void InitializeTokens();
    void FreeTokens() noexcept;
    static ListenerContext FindContext (std::uintptr_t taskValue) noexcept;
    static bool HandleNextToken();
    bool HasTokens() const noexcept;
    static std::size_t toEntry (std::int32_t control) noexcept { return static_cast<std::size_t> (control); }
    std::int32_t RelativeValue (std::int32_t control, std::int32_t delta);
    void HandleAnyToken (std::int32_t control, const SFicSDSToken& token);
    void TakeValueFromHost (std::int32_t control, std::int32_t value);

    CProcessType* processType = nullptr;
    CEffectProcessRTAS* renderTarget = nullptr;
    std::int16_t processTypeIndex = -1, processIndex = -1;
    std::int32_t driverRefNum = 0, hardwareRefNum = 0;
    std::unique_ptr<CPlugInView> view;
    std::int32_t sampleRate; // Hz
    std::int32_t locationTempo = 0;
    std::int32_t numChanges = 0;

    // Written on the host's main thread, read on the audio thread, too.
    std::atomic<signed char> frameRate;
    std::atomic<std::int32_t> frameOffset;

    // Set on the audio thread, cleared on the host's main thread.
    std::atomic<bool> metersReady { true };

    std::int32_t rootNameID = 0;
    std::int32_t groupNameID = 0;

    // One entry for each control's index and some more, or none at all where there is no token service.
    std::vector<std::int32_t> controlNameIDs;
    std::vector<FicObject> currentValueListeners, getValueListeners, highlightListeners;
    std::vector<std::int32_t> touchCounts;
    std::vector<ListenerContext> listenerContexts;

    // The control whose value came with a token, while it is being set; 0 for none.
    std::int32_t controlSetByHost = 0;
};
