// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// An instance as the host sees it: controls, chunks, life and end.

#include "engine/NativeWrapperType.h"
#include "engine/ParameterTable.h"
#include "engine/WideLoomAudioProcessor.h"
#include "host/BridgeFixture.h"
#include "host/ParameterScale.h"
#include "host/ProbeProcessor.h"

#include <cstring>
#include <limits>

namespace
{
constexpr auto bottom = std::numeric_limits<std::int32_t>::min();
constexpr auto top = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t masterBypass = 1;
constexpr std::int32_t chunkHeader = 56;

/** A chunk that says it has `size` bytes, with a body of that many. */
std::vector<unsigned char> chunkOfSize (std::int32_t size, const std::string& body = {})
{
    std::vector<unsigned char> bytes (chunkHeader + body.size());
    reinterpret_cast<SFicPlugInChunk*> (bytes.data())->chunkSize = size;
    std::memcpy (bytes.data() + chunkHeader, body.data(), body.size());
    return bytes;
}

class JucePlugInProcessTest : public BridgeFixture
{
protected:
    /** An instance on a probe. */
    void makeProbe()
    {
        auto owned = std::make_unique<ProbeProcessor>();
        probe = owned.get();
        process = instantiateWith (std::move (owned));
    }

    ~JucePlugInProcessTest() override { process.reset(); }

    std::int32_t valueOf (std::int32_t control)
    {
        std::int32_t value = 0;
        EXPECT_EQ (process->GetControlValue (control, &value), ficSuccess);
        return value;
    }

    int isAutomatable (std::int32_t control)
    {
        unsigned char answer = 99;
        EXPECT_EQ (process->IsControlAutomatable (control, &answer), ficSuccess);
        return answer;
    }

    std::string textOf (std::int32_t control, std::int32_t value)
    {
        std::array<char, 16> text {};
        EXPECT_EQ (process->MapControlValToString (control, value, text.data(), 15), ficSuccess);
        return text.data();
    }

    std::string nameOf (std::int32_t control, std::int32_t length)
    {
        std::array<char, 256> name {};
        EXPECT_EQ (process->GetControlNameOfLength (control, name.data(), length, 0, nullptr), ficSuccess);
        return name.data();
    }

    std::int32_t setChunk (const std::vector<unsigned char>& bytes)
    {
        return process->SetChunk (FIC_CHUNK_JUCE, reinterpret_cast<const SFicPlugInChunk*> (bytes.data()));
    }

    std::string savedState (std::size_t size)
    {
        std::vector<unsigned char> bytes (size + chunkHeader);
        auto* const chunk = reinterpret_cast<SFicPlugInChunk*> (bytes.data());
        EXPECT_EQ (process->GetChunk (FIC_CHUNK_JUCE, chunk), ficSuccess);
        EXPECT_EQ (chunk->chunkSize, static_cast<std::int32_t> (bytes.size()));
        return { bytes.begin() + chunkHeader, bytes.end() };
    }

    std::unique_ptr<JucePlugInProcess> process;
    ProbeProcessor* probe = nullptr;
};
} // namespace

TEST_F (JucePlugInProcessTest, TheHostSeesTheBypassAndEveryParameterSlot)
{
    auto& effect = instantiate();
    std::int32_t numControls = 0, bypassControl = 0;
    EXPECT_EQ (effect.GetNumControls (&numControls), 0);
    EXPECT_EQ (numControls, 51);
    EXPECT_EQ (effect.GetMasterBypassControl (&bypassControl), 0);
    EXPECT_EQ (bypassControl, 1);

    std::array<char, 32> name {};
    effect.GetControlName (1, name.data());
    EXPECT_STREQ (name.data(), "Master Bypass");

    for (const auto& row : parameterTable)
    {
        effect.GetControlName (indexOf (row.id) + 2, name.data());
        EXPECT_EQ (std::string (name.data()), std::string (row.name).substr (0, 31));
    }

    EXPECT_EQ (effect.getFilter().wrapperType, nativeHostWrapperType);
}

TEST_F (JucePlugInProcessTest, SetsTheProcessorUpOnceWithTheHostsRateAndLongestBlock)
{
    group->SetSampleRate (96000);
    framework.maximumQuantum = 256;
    makeProbe();
    EXPECT_EQ (probe->numTimesPrepared, 1);
    EXPECT_EQ (probe->preparedRate, 96000.0);
    EXPECT_EQ (probe->preparedSize, 256);
    EXPECT_EQ (probe->getTotalNumInputChannels(), 2);
    EXPECT_EQ (probe->getTotalNumOutputChannels(), 2);
    EXPECT_EQ (probe->getPlayHead(), process.get());
    EXPECT_EQ (probe->preparedPlayHead, process.get()) << "it may ask for the position from then on";

    process->SetSampleRate (48000);
    EXPECT_EQ (probe->numTimesPrepared, 1);
    EXPECT_EQ (probe->getSampleRate(), 96000.0);

    std::int32_t latency = 0;
    probe->setLatencySamples (123);
    EXPECT_EQ (process->GetDelaySamplesLong (&latency), 0);
    EXPECT_EQ (latency, 123);

    group->SetSampleRate (0); // which is none
    makeProbe();
    EXPECT_EQ (probe->preparedRate, 44100.0);
}

TEST_F (JucePlugInProcessTest, ReleasesTheProcessorOnceItHasLeftTheTransport)
{
    makeProbe();
    int numTimesReleased = 0;
    probe->atRelease = [&]
    {
        ++numTimesReleased;
        EXPECT_EQ (framework.numMidiClients, 0);
    };
    EXPECT_EQ (framework.numMidiClients, 1);
    process.reset();
    EXPECT_EQ (numTimesReleased, 1);
}

TEST_F (JucePlugInProcessTest, ControlsAnswerWhatTheProcessorSays)
{
    makeProbe();
    const auto answer = [this] (auto operation, std::int32_t control)
    {
        std::int32_t number = 99;
        EXPECT_EQ ((*process.*operation) (control, &number), 0);
        return number;
    };

    const auto viewIdOf = [this] (std::int32_t control)
    {
        std::uint32_t id = 0;
        EXPECT_EQ (process->GetProcessControlViewId (control, &id), 0);
        return id;
    };

    EXPECT_EQ (process->SetControlDefaultValue (2, 77), 0);
    EXPECT_EQ (answer (&CProcess::GetControlDefaultValue, 2), longFromParameter (0.25f));
    EXPECT_EQ (answer (&CProcess::GetNumControlSteps, 2), 11);
    EXPECT_EQ (answer (&CProcess::GetControlOrientation, 2), 0);
    EXPECT_EQ (answer (&CProcess::GetControlOrientation, 3), 19);
    EXPECT_EQ (answer (&CProcess::GetControlType, 3), 1);
    EXPECT_EQ (answer (&CProcess::GetControlPriority, 3), 0);
    EXPECT_EQ (viewIdOf (masterBypass), fourCC ("bypa"));
    EXPECT_EQ (viewIdOf (2), 1u);
    EXPECT_EQ (viewIdOf (3), 2u);
    EXPECT_EQ (isAutomatable (2), 1);
    EXPECT_EQ (isAutomatable (3), 0);

    // The bypass is a switch that starts off.
    EXPECT_EQ (answer (&CProcess::GetNumControlSteps, masterBypass), 2);
    EXPECT_EQ (answer (&CProcess::GetControlDefaultValue, masterBypass), bottom);
    EXPECT_EQ (answer (&CProcess::GetControlType, masterBypass), 0);
    EXPECT_EQ (valueOf (masterBypass), bottom);
    EXPECT_EQ (isAutomatable (masterBypass), 1);
    EXPECT_EQ (textOf (masterBypass, top), "On");
    EXPECT_EQ (textOf (masterBypass, bottom), "Off");

    for (const std::int32_t key : { bottom, -1, 0, 113, top })
    {
        unsigned char valid = 0;
        process->IsKeyValid (2, key, &valid);
        EXPECT_EQ (valid, 1) << key;
    }

    std::int32_t parsed = 0;
    EXPECT_EQ (process->ConvertStringToValue (2, "0.5", &parsed), 0);
    EXPECT_EQ (parsed, 0);
    EXPECT_EQ (process->ConvertStringToValue (2, "7", &parsed), 0);
    EXPECT_EQ (parsed, top);

    probe->parameters[0] = 0.125f;
    EXPECT_EQ (textOf (2, top), juce::String (0.125f, 2).toStdString()) << "whatever value was asked for";
}

TEST_F (JucePlugInProcessTest, NamesAreCutBetweenCharacters)
{
    makeProbe();
    EXPECT_EQ (nameOf (2, 31), "Sch\xC3\xA4rfe");
    EXPECT_EQ (nameOf (2, 3), "Sch");
    EXPECT_EQ (nameOf (2, 4), "Sch") << "the fourth character takes two bytes";
    EXPECT_EQ (nameOf (2, 5), "Sch\xC3\xA4");
    EXPECT_EQ (nameOf (2, 0), "");
}

TEST_F (JucePlugInProcessTest, ValuesReachTheProcessorAndTheControl)
{
    makeProbe();
    EXPECT_EQ (valueOf (2), bottom) << "until the first update";

    for (const auto& [value, expected] : { std::pair { top, 1.0f }, { bottom, 0.0f }, { 0, 0.5f } })
    {
        EXPECT_EQ (process->UpdateControlValue (3, value), 0);
        EXPECT_EQ (probe->parameters[1], expected);
        EXPECT_EQ (valueOf (3), value);
    }

    probe->parametersSet.clear();

    for (const std::int32_t control : { bottom, -1, 0 })
        EXPECT_EQ (process->UpdateControlValue (control, 0), 0);

    EXPECT_EQ (process->UpdateControlValue (masterBypass, top), 0);
    EXPECT_TRUE (probe->parametersSet.empty());
    EXPECT_EQ (valueOf (masterBypass), top);
}

TEST_F (JucePlugInProcessTest, WhatTheProcessorChangesComesBackAsAControlsValue)
{
    makeProbe();
    JUCE_BEGIN_IGNORE_WARNINGS_GCC_LIKE ("-Wdeprecated-declarations")
    probe->beginParameterChangeGesture (1);
    probe->setParameterNotifyingHost (1, 0.1f);
    probe->endParameterChangeGesture (1);
    JUCE_END_IGNORE_WARNINGS_GCC_LIKE
    EXPECT_EQ (valueOf (3), longFromParameter (0.1f));
    EXPECT_EQ (probe->parameters[1], 0.1f);
    EXPECT_EQ (valueOf (2), bottom);
}

TEST_F (JucePlugInProcessTest, TheChunkIsTheBlockWhoseSizeWasTold)
{
    makeProbe();
    EXPECT_EQ (savedState (3), "abc") << "without asking for the size";

    std::int32_t size = 0;
    process->GetChunkSize (FIC_CHUNK_JUCE, &size);
    EXPECT_EQ (size, chunkHeader + 3);
    probe->state = { 'd', 'e', 'f', 'g', 'h' };
    EXPECT_EQ (savedState (3), "abc") << "the block of that size";
    EXPECT_EQ (savedState (5), "defgh") << "the present one";

    process->GetChunkSize (FIC_CHUNK_JUCE, &size);
    probe->state = { 'i', 'j' };
    process->GetChunkSize (FIC_CHUNK_JUCE, &size);
    EXPECT_EQ (size, chunkHeader + 2);
    EXPECT_EQ (savedState (2), "ij") << "the later of two";

    process->GetChunkSize (FIC_CHUNK_JUCE, &size);
    setChunk (chunkOfSize (chunkHeader + 4, "wxyz"));
    EXPECT_EQ (savedState (4), "wxyz") << "in place of the one that waited to be fetched";

    EXPECT_EQ (process->GetChunkSize (FIC_CHUNK_JUCE, nullptr), 0);
    EXPECT_EQ (process->GetChunk (FIC_CHUNK_JUCE, nullptr), 0);
}

TEST_F (JucePlugInProcessTest, TheChunksBodyGoesToTheProcessorUnlessItIsEmpty)
{
    makeProbe();

    for (const std::int32_t size : { bottom, -1, 0, 1, chunkHeader - 1, chunkHeader })
        EXPECT_EQ (setChunk (chunkOfSize (size)), 0) << size;

    EXPECT_EQ (process->SetChunk (FIC_CHUNK_JUCE, nullptr), 0);
    EXPECT_EQ (probe->numTimesRestored, 0);

    EXPECT_EQ (setChunk (chunkOfSize (chunkHeader + 1, "x")), 0);
    EXPECT_EQ (setChunk (chunkOfSize (chunkHeader + 4, "wxyz")), 0);
    EXPECT_EQ (probe->numTimesRestored, 2);
    EXPECT_EQ (std::string (probe->state.begin(), probe->state.end()), "wxyz");
}

TEST_F (JucePlugInProcessTest, ProcessorsHearTheTransport)
{
    const SFicTimeCodeInfo timeCode { 2, 50 };
    group->SetTimeCodeInfo (&timeCode);
    makeProbe();
    const auto info = process->getPosition();
    ASSERT_TRUE (info.hasValue());
    EXPECT_EQ (info->getBpm(), juce::makeOptional (transport.tempo));
    EXPECT_EQ (info->getTimeInSeconds(), juce::makeOptional (2.0));
    EXPECT_EQ (info->getFrameRate()->getType(), juce::AudioPlayHead::fps25);
    EXPECT_EQ (info->getEditOriginTime(), juce::makeOptional (2.0));
}

TEST_F (JucePlugInProcessTest, TheLastOneShutsJuceDownAndTheNextStartsItAgain)
{
    for (int round = 0; round < 2; ++round)
    {
        instantiate();
        EXPECT_EQ (framework.numMidiClients, 1);
        instantiate();
        EXPECT_EQ (framework.numMidiClients, 2);
        EXPECT_EQ (group->FreeProcess (typeCode, 1), 0);
        EXPECT_NE (juce::MessageManager::getInstanceWithoutCreating(), nullptr);
        EXPECT_EQ (group->FreeProcess (typeCode, 2), 0);
        EXPECT_EQ (juce::MessageManager::getInstanceWithoutCreating(), nullptr);
        EXPECT_EQ (framework.numMidiClients, 0);
    }
}
