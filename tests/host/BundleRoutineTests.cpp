// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Every routine of the table, called as a careless host might call it.

#include "BundleFixture.h"
#include "RoutineArguments.h"

#include <algorithm>
#include <map>

namespace
{
/** Routines whose `char` pointers are texts, and may therefore fill the room of one. */
constexpr std::int32_t writersOfText[] = {
    ficSelectorGetProcessTypeName,    ficSelectorGetManufacturerName, ficSelectorGetControlName,
    ficSelectorGetMeterName,          ficSelectorDescribeChunk,       ficSelectorMapControlValToString,
    ficSelectorGetControlUnitsString, ficSelectorGetPlugInString,     ficSelectorGetControlNameOfLength,
    ficSelectorGetXMLPageTableForType
};

/** They take what a pointer points to, so that a null one may be another matter. */
constexpr std::int32_t readers[] = { ficSelectorGetChunk,
                                     ficSelectorSetChunk,
                                     ficSelectorCompareActiveChunk,
                                     ficSelectorGetRelatedProcessType,
                                     ficSelectorGetRelatedProcessTypeOfType,
                                     ficSelectorSetConnectionFormat,
                                     ficSelectorSetTimeCodeInfo,
                                     ficSelectorConnectInput,
                                     ficSelectorConnectOutput };

/** They make or free instances, or take away what they need. */
constexpr std::int32_t changersOfTheScene[] = { ficSelectorInstantiateProcess,
                                                ficSelectorFreeProcess,
                                                ficSelectorSetXCMDProc };

template <std::size_t size>
bool isOneOf (const std::int32_t (&selectors)[size], const RoutineRow& row)
{
    return std::find (std::begin (selectors), std::end (selectors), row.selector) != std::end (selectors);
}

class BundleRoutines : public BundleWithInstance
{
protected:
    std::int32_t call (const RoutineRow& row, ArgumentMaker& maker) const
    {
        FicRoutine routine = nullptr;
        EXPECT_EQ (bundle->getRoutine (row.selector, &routine), ficSuccess);
        return row.call (routine, maker);
    }

    /** Asks for number 0 of everything unless told otherwise. */
    static ArgumentMaker argumentsFor (const RoutineRow& row,
                                       std::uint32_t type,
                                       std::int32_t process,
                                       std::int32_t number = 0)
    {
        ArgumentMaker maker;
        maker.number = number;
        maker.textsFillTheirRoom = isOneOf (writersOfText, row);

        if (row.concerns != Concerns::group)
            maker.first.push_back (type);

        if (row.concerns == Concerns::process || row.concerns == Concerns::nobody)
            maker.first.push_back (asWord (process));

        return maker;
    }
};

TEST_F (BundleRoutines, HaveGaps)
{
    const std::vector<std::int32_t> gaps { 11, 13, 21, 26, 34, 60, 61, 106, 107 };
    std::vector<std::int32_t> selectors { lowest, highest };

    for (std::int32_t selector = -10; selector < ficNumSelectors + 10; ++selector)
        selectors.push_back (selector);

    for (const auto selector : selectors)
    {
        auto routine = reinterpret_cast<FicRoutine> (this);
        const bool isGap = selector < 0 || selector >= ficNumSelectors
                           || std::find (gaps.begin(), gaps.end(), selector) != gaps.end();
        EXPECT_EQ (bundle->getRoutine (selector, &routine), isGap ? ficNoSuchRoutine : ficSuccess)
            << selector;
        EXPECT_EQ (routine == nullptr, isGap) << selector;
    }

    bundle->getRoutine (0, nullptr);
}

/** What a routine answers for number 0 of everything. `unknown` is the code of a type or instance that there
    is not, or success. */
std::int32_t expectedAnswer (const RoutineRow& row, std::int32_t unknown)
{
    switch (row.selector)
    {
        case ficSelectorSetChunk:
        case ficSelectorCompareActiveChunk:
            return ficChunkNotHandled; // of another maker
        case ficSelectorGetNumAudioInputs:
        case ficSelectorGetNumAudioOutputs:
            return unknown == ficUnknownProcess ? ficSuccess : unknown; // all of a type have the same
        default:
            break;
    }

    if (unknown != ficSuccess)
        return unknown;

    switch (row.selector)
    {
        case ficSelectorIsInputPortConnected:
        case ficSelectorIsOutputPortConnected:
        case ficSelectorConnectInput:
        case ficSelectorConnectOutput:
        case ficSelectorDisconnectInput:
        case ficSelectorDisconnectOutput:
            return ficPortOutOfRange;
        case ficSelectorSetConnectionFormat:
            return ficConnectionFormatRefused;
        default:
            return row.neutralAnswer;
    }
}

TEST_F (BundleRoutines, AnswerAsTheirRowsSayAndKnowNoUnknownTypeOrInstance)
{
    struct Asked
    {
        std::uint32_t type;
        std::int32_t process, unknown;
    };

    std::vector<Asked> asked { { typeCode, instance->getIndex(), ficSuccess },
                               { unknownType, instance->getIndex(), ficUnknownType } };

    for (const auto process : { lowest, -1, 0, 2, 65537, highest })
        asked.push_back ({ typeCode, process, ficUnknownProcess });

    for (const auto& row : routineRows)
        for (const auto& [type, process, unknown] : asked)
        {
            if (row.concerns == Concerns::group
                || (row.concerns == Concerns::type && unknown != ficUnknownType))
                continue;

            SCOPED_TRACE (testing::Message() << row.name << " of " << type << " " << process);
            auto arguments = argumentsFor (row, type, process);
            const auto answer = row.isFixed() ? ficSuccess : expectedAnswer (row, unknown);
            EXPECT_EQ (call (row, arguments), answer);
            EXPECT_TRUE (arguments.leavesTheRestAlone());
            EXPECT_TRUE (unknown == ficSuccess || answer == ficSuccess || arguments.numTouchedBytes() == 0);
        }
}

TEST_F (BundleRoutines, WriteNothingThroughNullPointers)
{
    for (const auto& row : routineRows)
        for (const std::int32_t number : { 0, 1, 3 })
        {
            if (isOneOf (changersOfTheScene, row))
                continue;

            SCOPED_TRACE (testing::Message() << row.name << " with " << number);
            auto arguments = argumentsFor (row, typeCode, instance->getIndex(), number);
            auto nullArguments = argumentsFor (row, typeCode, instance->getIndex(), number);
            nullArguments.nullPointers = true;
            const auto result = call (row, arguments);
            const auto nullResult = call (row, nullArguments);
            EXPECT_TRUE (nullResult == result || isOneOf (readers, row)) << nullResult;
        }
}

TEST_F (BundleRoutines, StandWhateverNumbersTheyAreGiven)
{
    TestRandom random (testSeed());
    constexpr std::int32_t longestText = 200;
    const auto before = stateOf (*instance);

    for (const auto& row : routineRows)
    {
        if (isOneOf (changersOfTheScene, row))
            continue;

        std::vector<std::int32_t> numbers { lowest, -1000, -1, 0, 1, 2, 51, 52, 100, longestText };

        // A text may be as long as the host says that its room is.
        if (! isOneOf (writersOfText, row))
            numbers.insert (numbers.end(), { 32768, 65536, random.between (1000, highest), highest });

        for (const auto number : numbers)
        {
            auto arguments = argumentsFor (row, typeCode, instance->getIndex(), number);
            call (row, arguments);
            EXPECT_TRUE (arguments.leavesTheRestAlone()) << row.name << " with " << number;
        }
    }

    // The instance is none the worse for it.
    EXPECT_EQ (instance->setChunk (FIC_CHUNK_JUCE, before), ficSuccess);
    EXPECT_EQ (stateOf (*instance), before);
    EXPECT_EQ (instance->getNumControls(), numControls);
}

TEST_F (BundleRoutines, AnswerGestalts)
{
    const std::map<std::int32_t, std::int32_t> known { { 7, 1 },  { 8, 1 },  { 14, 1 }, { 21, 512 },
                                                       { 29, 1 }, { 32, 6 }, { 48, 1 } };
    const auto gestalt = [this] (std::int32_t selector, std::int32_t value)
    {
        EXPECT_EQ (pi.Gestalt (typeCode, selector, &value), ficSuccess) << selector;
        return value;
    };

    for (std::int32_t selector = -1; selector < 200; ++selector)
        EXPECT_EQ (gestalt (selector, 9), known.contains (selector) ? known.at (selector) : 0) << selector;

    EXPECT_EQ (gestalt (28, static_cast<std::int32_t> (FIC_CHUNK_MIDI)), 2);
    EXPECT_EQ (gestalt (highest, 9), 0);
}

TEST_F (BundleRoutines, TellTheNamesAndLayoutThatSessionsKeep)
{
    std::array<unsigned char, 256> text {};
    const auto name = [&] { return std::string (text.begin() + 1, text.begin() + 1 + text[0]); };
    EXPECT_EQ (pi.GetManufacturerName (31, text.data()), ficSuccess);
    EXPECT_EQ (name(), "QUORVEXDSP");
    EXPECT_EQ (pi.GetProcessTypeName (typeCode, 31, text.data()), ficSuccess);
    EXPECT_EQ (name(), "WideLoom");
    pi.GetProcessTypeName (typeCode, 4, text.data());
    EXPECT_EQ (name(), "Wide");

    SFicPlugInStemFormats formats { -9, -9, -9 };
    EXPECT_EQ (pi.GetStemFormats (typeCode, &formats), ficSuccess);
    EXPECT_EQ (formats.input, 1);
    EXPECT_EQ (formats.output, 1);
    EXPECT_EQ (formats.sideChain, 0);

    // Stereo is all that there is, and so all that it is related to.
    SFicPlugInSpec spec { manufacturerCode, 0, typeCode };
    EXPECT_EQ (pi.GetRelatedProcessType (&spec, 1, 2), ficNoRelatedType);
    EXPECT_EQ (pi.GetRelatedProcessType (&spec, 2, 2), ficSuccess);
    EXPECT_EQ (spec.productID, productCode);
    EXPECT_EQ (spec.typeID, typeCode);
}

TEST_F (BundleRoutines, NameControlsInEveryLength)
{
    struct Row
    {
        std::int32_t control, length;
        const char* name;
    };

    constexpr Row rows[] = { { masterBypass, 31, "Master Bypass" },
                             { masterBypass, 8, "MastrByp" },
                             { masterBypass, 4, "MByp" },
                             { masterBypass, 3, "Byp" },
                             { masterBypass, 2, "By" },
                             { stereoWidth, 31, "StereoWidth" },
                             { stereoWidth, 6, "Stereo" },
                             { numControls + 1, 31, "" },
                             { 0, 31, "" } };

    for (const auto& [control, length, expected] : rows)
    {
        std::array<char, 256> name {};
        std::int16_t required = 9;
        EXPECT_EQ (pi.GetControlNameOfLength (
                       typeCode, instance->getIndex(), control, name.data(), length, 0, &required),
                   ficSuccess);
        EXPECT_EQ (required, 0);
        EXPECT_STREQ (name.data(), expected) << control << " " << length;
    }
}
} // namespace
