// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Every routine of the table, called as a careless host might call it.

#include "BundleFixture.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace
{
constexpr unsigned char untouched = 0xa5;
constexpr std::size_t roomForText = 256; // bytes, the length byte or terminator included
constexpr std::size_t guardBytes = 256;

/** Routines whose `char` pointers are texts, and may therefore fill the room of one. */
constexpr bool writesText (std::int32_t selector)
{
    switch (selector)
    {
        case ficSelectorGetProcessTypeName:
        case ficSelectorGetManufacturerName:
        case ficSelectorGetControlName:
        case ficSelectorGetMeterName:
        case ficSelectorDescribeChunk:
        case ficSelectorMapControlValToString:
        case ficSelectorGetControlUnitsString:
        case ficSelectorGetPlugInString:
        case ficSelectorGetControlNameOfLength:
        case ficSelectorGetXMLPageTableForType:
            return true;
        default:
            return false;
    }
}

/** Makes arguments. Pointers point to memory that shows what was written, or nowhere. */
class Arguments
{
public:
    std::int32_t number = 0; ///< of all parameters that are none of the others
    std::uint32_t type = 0;
    std::int32_t process = 0;
    bool nullPointers = false;

    /** Routines that take no type and process have other things in their places. */
    bool startsWithType = false, startsWithProcess = false;

    explicit Arguments (std::int32_t selectorToUse)
        : selector (selectorToUse)
    {
        for (auto& place : memory)
            place.bytes.fill (untouched);
    }

    template <typename Argument>
    Argument next()
    {
        const auto index = numMade++;

        if constexpr (std::is_pointer_v<Argument>)
        {
            using Pointee = std::remove_pointer_t<Argument>;

            if constexpr (std::is_function_v<Pointee>)
                return nullptr;
            else
            {
                auto& place = memory[index];
                place.mayWrite = roomOf<Pointee>();
                return nullPointers ? nullptr : reinterpret_cast<Argument> (place.bytes.data());
            }
        }
        else
        {
            if (index == 0 && startsWithType)
                return static_cast<Argument> (type);

            if (index == 1 && startsWithProcess)
                return static_cast<Argument> (process);

            if constexpr (std::is_same_v<Argument, GrafPtr>)
                return 0;
            else
                return static_cast<Argument> (number);
        }
    }

    std::string whereItWroteTooMuch() const
    {
        for (std::size_t i = 0; i < memory.size(); ++i)
        {
            const auto& bytes = memory[i].bytes;
            const auto* const found = std::find_if (bytes.begin() + memory[i].mayWrite,
                                                    bytes.end(),
                                                    [] (auto byte) { return byte != untouched; });

            if (found != bytes.end())
                return "argument " + std::to_string (i) + ", byte " + std::to_string (found - bytes.begin());
        }

        return {};
    }

    void allowNothing()
    {
        for (auto& place : memory)
            place.mayWrite = 0;
    }

private:
    template <typename Pointee>
    std::ptrdiff_t roomOf() const
    {
        if constexpr (
            std::is_const_v<
                Pointee> || std::is_same_v<Pointee, EventRecord> || std::is_same_v<Pointee, DAEConnection>)
            return 0;
        else if constexpr (sizeof (Pointee) == 1)
            return writesText (selector) ? static_cast<std::ptrdiff_t> (roomForText) : 1;
        else
            return sizeof (Pointee);
    }

    struct Place
    {
        alignas (std::max_align_t) std::array<unsigned char, roomForText + guardBytes> bytes;
        std::ptrdiff_t mayWrite = 0;
    };

    std::int32_t selector;
    std::size_t numMade = 0;
    std::array<Place, 8> memory;
};

template <typename... Parameters>
std::int32_t callWith (std::int32_t (*routine) (Parameters...), Arguments& arguments)
{
    const std::tuple<Parameters...> values { arguments.next<Parameters>()... };
    return std::apply (routine, values);
}

enum class Concerns
{
    group,
    type,
    process,
    nobody
};

struct RoutineRow
{
    std::int32_t selector;
    const char* name;
    Concerns concerns;
    std::int32_t answer;
    std::int32_t (*callIt) (const refhost::HostRoutines& pi, Arguments& arguments);

    std::int32_t call (const refhost::HostRoutines& pi, Arguments& arguments) const
    {
        arguments.startsWithType = concerns != Concerns::group;
        arguments.startsWithProcess = concerns == Concerns::process || concerns == Concerns::nobody;
        return callIt (pi, arguments);
    }
};

#define ROW(selector, Name, concerns, answer)                                                                \
    RoutineRow { selector,                                                                                   \
                 #Name,                                                                                      \
                 Concerns::concerns,                                                                         \
                 answer,                                                                                     \
                 [] (const refhost::HostRoutines& pi, Arguments& arguments)                                  \
                 { return callWith (pi.Name, arguments); } },
#define GROUP_ROW(selector, Name, ...)           ROW (selector, Name, group, 0)
#define TYPE_ROW(selector, Name, ...)            ROW (selector, Name, type, 0)
#define PROCESS_ROW(selector, Name, answer, ...) ROW (selector, Name, process, answer)
#define FIXED_ROW(selector, Name, ...)           ROW (selector, Name, nobody, 0)

const RoutineRow routineRows[] = { FIC_ROUTINES (GROUP_ROW, TYPE_ROW, PROCESS_ROW, FIXED_ROW) };

/** Makes or frees instances, or takes away what they need. */
bool changesTheScene (const RoutineRow& row)
{
    return row.selector == ficSelectorInstantiateProcess || row.selector == ficSelectorFreeProcess
           || row.selector == ficSelectorSetXCMDProc;
}

class BundleRoutines : public BundleFixture
{
protected:
    void SetUp() override
    {
        start();
        instance = insert();
        ASSERT_NE (instance, nullptr);
    }

    void TearDown() override
    {
        instance.reset();
        BundleFixture::TearDown();
    }

    std::unique_ptr<refhost::HostInstance> instance;
};

TEST_F (BundleRoutines, HaveGaps)
{
    const std::vector<std::int32_t> gaps { 11, 13, 21, 26, 34, 60, 61, 106, 107 };
    int numRoutines = 0;

    for (std::int32_t selector = -10; selector < ficNumSelectors + 10; ++selector)
    {
        auto routine = reinterpret_cast<FicRoutine> (this);
        const bool isGap = selector < 0 || selector >= ficNumSelectors
                           || std::find (gaps.begin(), gaps.end(), selector) != gaps.end();
        EXPECT_EQ (bundle->getRoutine (selector, &routine), isGap ? ficNoSuchRoutine : ficSuccess)
            << selector;
        EXPECT_EQ (routine == nullptr, isGap) << selector;
        numRoutines += ! isGap;
    }

    EXPECT_EQ (numRoutines, 165);
    EXPECT_EQ (std::size (routineRows), 165u);
    FicRoutine routine = nullptr;
    EXPECT_EQ (bundle->getRoutine (lowest, &routine), ficNoSuchRoutine);
    EXPECT_EQ (bundle->getRoutine (highest, &routine), ficNoSuchRoutine);
    bundle->getRoutine (0, nullptr);
}

/** What comes of a type or instance that there is not, unless the answer stands before it matters. */
std::int32_t answerForUnknown (const RoutineRow& row, std::int32_t usual)
{
    switch (row.selector)
    {
        case ficSelectorSetChunk:
        case ficSelectorCompareActiveChunk:
            return ficChunkNotHandled; // of another maker
        case ficSelectorGetNumAudioInputs:
        case ficSelectorGetNumAudioOutputs:
            return usual == ficUnknownProcess ? ficSuccess : usual; // all instances of a type have the same
        default:
            return usual;
    }
}

TEST_F (BundleRoutines, KnowNoUnknownType)
{
    for (const auto& row : routineRows)
    {
        if (row.concerns == Concerns::group)
            continue;

        SCOPED_TRACE (row.name);
        Arguments arguments (row.selector);
        arguments.type = unknownType;
        arguments.process = 1;
        EXPECT_EQ (row.call (pi, arguments),
                   row.concerns == Concerns::nobody ? 0 : answerForUnknown (row, ficUnknownType));

        if (row.concerns != Concerns::nobody)
            arguments.allowNothing();

        EXPECT_EQ (arguments.whereItWroteTooMuch(), "");
    }
}

TEST_F (BundleRoutines, KnowNoUnknownInstance)
{
    for (const auto& row : routineRows)
    {
        if (row.concerns != Concerns::process)
            continue;

        for (const auto process : { lowest, -1, 0, 2, 65537, highest })
        {
            SCOPED_TRACE (testing::Message() << row.name << " of " << process);
            Arguments arguments (row.selector);
            arguments.type = typeCode;
            arguments.process = process;
            const auto answer = answerForUnknown (row, ficUnknownProcess);
            EXPECT_EQ (row.call (pi, arguments), answer);

            if (answer != ficSuccess)
                arguments.allowNothing();

            EXPECT_EQ (arguments.whereItWroteTooMuch(), "");
        }
    }

    EXPECT_EQ (pi.FreeProcess (typeCode, 2), ficUnknownProcess);
}

/** What an instance answers when it is asked for number 0 of everything, where that is not its row's answer.
 */
std::int32_t answerForZero (const RoutineRow& row)
{
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
        case ficSelectorSetChunk:
        case ficSelectorCompareActiveChunk:
            return ficChunkNotHandled;
        default:
            return row.answer;
    }
}

TEST_F (BundleRoutines, AnswerAsTheirRowsSay)
{
    for (const auto& row : routineRows)
    {
        if (row.concerns != Concerns::process && row.concerns != Concerns::nobody)
            continue;

        SCOPED_TRACE (row.name);
        Arguments arguments (row.selector);
        arguments.type = typeCode;
        arguments.process = instance->getIndex();
        EXPECT_EQ (row.call (pi, arguments), answerForZero (row));
        EXPECT_EQ (arguments.whereItWroteTooMuch(), "");
    }
}

/** Takes what a pointer points to, so that a null one may be another matter. */
bool reads (const RoutineRow& row)
{
    switch (row.selector)
    {
        case ficSelectorGetChunk:
        case ficSelectorSetChunk:
        case ficSelectorCompareActiveChunk:
        case ficSelectorGetRelatedProcessType:
        case ficSelectorGetRelatedProcessTypeOfType:
        case ficSelectorSetConnectionFormat:
        case ficSelectorSetTimeCodeInfo:
        case ficSelectorConnectInput:
        case ficSelectorConnectOutput:
            return true;
        default:
            return false;
    }
}

TEST_F (BundleRoutines, WriteNothingThroughNullPointers)
{
    for (const auto& row : routineRows)
    {
        if (changesTheScene (row))
            continue;

        for (const std::int32_t number : { 0, 1, 3 })
        {
            SCOPED_TRACE (testing::Message() << row.name << " with " << number);
            Arguments arguments (row.selector), nullArguments (row.selector);
            arguments.number = nullArguments.number = number;
            arguments.type = nullArguments.type = typeCode;
            arguments.process = nullArguments.process = instance->getIndex();
            nullArguments.nullPointers = true;
            const auto result = row.call (pi, arguments);
            const auto nullResult = row.call (pi, nullArguments);

            if (! reads (row))
            {
                EXPECT_EQ (nullResult, result);
            }
        }
    }
}

TEST_F (BundleRoutines, StandWhateverNumbersTheyAreGiven)
{
    TestRandom random (testSeed());
    constexpr std::int32_t longestText = 200;
    std::vector<std::int32_t> numbers { lowest, -1000, -1, 0, 1, 2, 51, 52, 100, longestText };
    const auto before = stateOf (*instance);

    for (const auto& row : routineRows)
    {
        if (changesTheScene (row))
            continue;

        auto used = numbers;

        // A text may be as long as the host says that its room is.
        if (! writesText (row.selector))
            for (const auto large : { 32768, 65536, random.between (1000, highest), highest })
                used.push_back (large);

        for (const auto number : used)
        {
            SCOPED_TRACE (testing::Message() << row.name << " with " << number);
            Arguments arguments (row.selector);
            arguments.type = typeCode;
            arguments.process = instance->getIndex();
            arguments.number = number;
            row.call (pi, arguments);
            EXPECT_EQ (arguments.whereItWroteTooMuch(), "");
        }
    }

    // The instance is none the worse for it.
    EXPECT_EQ (instance->setChunk (FIC_CHUNK_JUCE, before), ficSuccess);
    EXPECT_EQ (stateOf (*instance), before);
    EXPECT_EQ (instance->getNumControls(), numControls);
}

struct GestaltRow
{
    std::int32_t selector, value, answer;
};

TEST_F (BundleRoutines, AnswerGestalts)
{
    const auto midi = static_cast<std::int32_t> (FIC_CHUNK_MIDI);

    for (const auto& row : std::vector<GestaltRow> { { 5, 9, 0 },
                                                     { 7, 9, 1 },
                                                     { 8, 9, 1 },
                                                     { 14, 9, 1 },
                                                     { 21, 9, 512 },
                                                     { 28, midi, 2 },
                                                     { 28, 9, 0 },
                                                     { 29, 9, 1 },
                                                     { 30, 9, 0 },
                                                     { 32, 9, 6 },
                                                     { 38, 9, 0 },
                                                     { 41, 9, 0 },
                                                     { 48, 9, 1 },
                                                     { 0, 9, 0 },
                                                     { -1, 9, 0 },
                                                     { 173, 9, 0 },
                                                     { highest, 9, 0 } })
    {
        std::int32_t value = row.value;
        EXPECT_EQ (pi.Gestalt (typeCode, row.selector, &value), ficSuccess) << row.selector;
        EXPECT_EQ (value, row.answer) << row.selector;
    }
}

struct RelatedRow
{
    std::int32_t inputs, outputs, result;
};

TEST_F (BundleRoutines, FindRelatedTypes)
{
    const SFicPlugInSpec own { manufacturerCode, productCode, typeCode };

    for (const auto& row : std::vector<RelatedRow> { { 2, 2, 0 },
                                                     { -3, 0, 0 },
                                                     { -3, -3, 0 },
                                                     { 3, 2, 0 },
                                                     { 2, 6, 0 },
                                                     { 0, 0, 0 },
                                                     { 1, 1, ficNoRelatedType },
                                                     { 1, 2, ficNoRelatedType } })
    {
        auto spec = own;
        spec.productID = 0;
        EXPECT_EQ (pi.GetRelatedProcessType (&spec, row.inputs, row.outputs), row.result)
            << row.inputs << " " << row.outputs;
        EXPECT_EQ (spec.typeID, typeCode);
        const bool isMatch = row.result == 0 && (row.inputs == 2 || row.inputs == -3) && row.outputs != 6;
        EXPECT_EQ (spec.productID, isMatch ? productCode : 0u) << row.inputs << " " << row.outputs;
    }

    constexpr auto native = refhost::HostBundle::nativePlugInType;
    auto spec = own;
    EXPECT_EQ (pi.GetRelatedProcessTypeOfType (&spec, native, 2, 2, 1, 1), ficSuccess);
    EXPECT_EQ (pi.GetRelatedProcessTypeOfType (&spec, native, 2, 2, -1, 0), ficSuccess);
    EXPECT_EQ (pi.GetRelatedProcessTypeOfType (&spec, native, 1, 2, -1, 1), ficNoRelatedType);
    EXPECT_EQ (pi.GetRelatedProcessTypeOfType (&spec, native, 2, 2, 0, 1), ficNoRelatedType);
    EXPECT_EQ (pi.GetRelatedProcessTypeOfType (&spec, native + 1, 2, 2, 1, 1), ficNoRelatedType);

    for (const bool isMaker : { true, false })
    {
        auto foreign = own;
        (isMaker ? foreign.manufacturerID : foreign.typeID) ^= 1;
        EXPECT_EQ (pi.GetRelatedProcessTypeOfType (&foreign, native, 2, 2, 1, 1), ficNoRelatedType);
        EXPECT_EQ (pi.GetRelatedProcessType (&foreign, 2, 2), ficNoRelatedType);
    }
}

TEST_F (BundleRoutines, NameControlsInEveryLength)
{
    const auto nameOf = [this] (std::int32_t control, std::int32_t length)
    {
        std::array<char, roomForText> name {};
        std::int16_t required = 9;
        EXPECT_EQ (pi.GetControlNameOfLength (
                       typeCode, instance->getIndex(), control, name.data(), length, 0, &required),
                   ficSuccess);
        EXPECT_EQ (required, 0);
        return std::string (name.data());
    };

    EXPECT_EQ (nameOf (masterBypass, 31), "Master Bypass");
    EXPECT_EQ (nameOf (masterBypass, 8), "MastrByp");
    EXPECT_EQ (nameOf (masterBypass, 4), "MByp");
    EXPECT_EQ (nameOf (masterBypass, 3), "Byp");
    EXPECT_EQ (nameOf (masterBypass, 2), "By");
    EXPECT_EQ (nameOf (stereoWidth, 31), "StereoWidth");
    EXPECT_EQ (nameOf (stereoWidth, 6), "Stereo");
    EXPECT_EQ (nameOf (swapLR, 31), "SwapLR");
    EXPECT_EQ (nameOf (safeBassFreq, 31), "SafeBassFreq");
    EXPECT_EQ (nameOf (numControls + 1, 31), "");
    EXPECT_EQ (nameOf (0, 31), "");

    // 100 and more mean 100 less.
    for (const std::int32_t length : { 2, 102 })
    {
        std::array<char, roomForText> text {};
        EXPECT_EQ (pi.MapControlValToString (
                       typeCode, instance->getIndex(), masterBypass, highest, text.data(), length),
                   ficSuccess);
        EXPECT_STREQ (text.data(), "On");
    }
}
} // namespace
