// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A process for tests, to which controls are added from outside, and controls of each kind.

#pragma once

#include <host/CEffectProcess.h>
#include <host/CPluginControl_Continuous.h>
#include <host/CPluginControl_Discrete.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/** Neither continuous nor discrete: each answer is a number of its own, so that none can stand for another.
 */
class PlainTestControl : public CPluginControl
{
public:
    explicit PlainTestControl (std::string newName, std::uint32_t newId = 0);

    static constexpr std::int32_t defaultValue = 1001, numSteps = 1002, priority = 1003, orientation = 1004,
                                  controlType = 1005, validKey = 'k';
    /** The text that stands for a value of 7; any other throws a CDAEError of this code. */
    static constexpr char knownText[] = "seven";
    static constexpr std::int32_t unknownTextCode = -1234;

    std::uint32_t GetID() const override { return id; }
    std::int32_t GetDefaultValue() const override { return defaultValue; }
    std::int32_t GetNumSteps() const override { return numSteps; }
    std::int32_t ConvertStringToValue (const char* text) override;
    bool IsKeyValid (std::int32_t key) override { return key == validKey; }
    void GetNameOfLength (char* text, std::int32_t maxLength, std::uint32_t controllerType) override;
    std::int32_t GetPriority() const override { return priority; }
    std::int32_t GetOrientation() const override { return orientation; }
    std::int32_t GetControlType() const override { return controlType; }
    /** As many letters as there is room for, then the value's last digit. */
    void GetValueString (char* text, std::int32_t maxLength, std::int32_t shownValue) override;
    bool IsAutomatable() const override { return true; }

    std::int32_t askedLength = 0;
    std::uint32_t askedController = 0;

private:
    std::string name;
    std::uint32_t id;
};

/** From 0 to 10, shown with one digit behind the point. */
class ContinuousTestControl : public CPluginControl_Continuous
{
public:
    explicit ContinuousTestControl (std::uint32_t newId)
        : id (newId)
    {
    }

    std::int32_t ConvertContinuousToControl (double continuous) const override;
    double ConvertControlToContinuous (std::int32_t control) const override;

    std::uint32_t GetID() const override { return id; }
    std::int32_t GetDefaultValue() const override { return 0; }
    std::int32_t GetNumSteps() const override { return 0; }
    std::int32_t ConvertStringToValue (const char*) override { return 0; }
    bool IsKeyValid (std::int32_t) override { return true; }
    void GetNameOfLength (char* text, std::int32_t, std::uint32_t) override { *text = 0; }
    std::int32_t GetPriority() const override { return 0; }
    std::int32_t GetOrientation() const override { return 0; }
    std::int32_t GetControlType() const override { return 0; }
    void GetValueString (char* text, std::int32_t maxLength, std::int32_t shownValue) override;
    bool IsAutomatable() const override { return true; }

private:
    std::uint32_t id;
};

/** Notes what reaches its sub-views. */
class TestView : public CPlugInView
{
public:
    explicit TestView (std::vector<std::string>& callsToNote)
        : calls (callsToNote)
    {
    }

    ~TestView() override { calls.push_back ("view deleted"); }

    void Setup() override;
    bool DoKeyCommand (EventRecord*) override { return handlesKeys; }
    void AttachSubView (std::uint32_t viewID) override
    {
        calls.push_back ("attach " + std::to_string (viewID));
    }
    void DetachSubView (std::uint32_t viewID) override
    {
        calls.push_back ("detach " + std::to_string (viewID));
    }
    void UpdateSubView (std::uint32_t viewID, std::int32_t value) override
    {
        calls.push_back ("update " + std::to_string (viewID) + "=" + std::to_string (value));
    }

    bool handlesKeys = false;
    bool failsToSetUp = false;

private:
    std::vector<std::string>& calls;
};

class ControlledProcess : public CEffectProcess
{
public:
    /** Takes the control over, and returns it. */
    template <typename Control>
    Control* add (std::unique_ptr<Control> control)
    {
        auto* const added = control.release();
        controls.AddControl (added);
        return added;
    }

    /** The value as the control has it. */
    std::int32_t valueOf (std::int32_t control) { return controls.GetControl (control)->GetValue(); }

    std::unique_ptr<CPlugInView> CreateCPlugInView() override { return std::move (nextView); }
    bool RunPlatformMessages() override { return runMessages ? runMessages() : true; }
    std::int32_t HandleToken (const SFicSDSToken& token) override;
    std::int32_t UpdateHighlight (std::int32_t control, const TokenHighlight& highlight) override;
    bool HandleKeystroke (EventRecord*) override { return handlesKeys; }
    void EffectInit() override { effectInit(); }
    void GetMetersFromDSPorRTAS (std::int32_t* values, bool* clips) override;

    using CEffectProcess::AddChunk;
    using CEffectProcess::DefineMasterBypassControlIndex;
    using CEffectProcess::LoadChunk;
    using CEffectProcess::meterManager;
    using CEffectProcess::plugInStrings;
    using CEffectProcess::SetOrUpdateControlFromChunk;
    using CEffectProcess::sidechainPort;
    using CEffectProcess::stemFormats;

    std::vector<std::string> calls;     // of the views and of what is overridden here
    std::unique_ptr<TestView> nextView; // for Initialize()
    std::function<bool()> runMessages;
    std::function<void()> effectInit = [] {};
    std::function<void()> onToken;
    bool handlesKeys = false;
    std::vector<std::int32_t> levels; // of the meters
    std::vector<bool> clips;
    TokenHighlight highlight;
};
