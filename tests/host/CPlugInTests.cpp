// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Sets of ports, and the operations that only answer that they know nothing.

#include "host/CPlugIn.h"
#include "host/CPlugInPort.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace
{
constexpr unsigned char untouched = 0x5A;
constexpr std::size_t resultBytes = 16;

/** What a call gets for a parameter: a number, or memory in which nothing is zero. */
class Argument
{
public:
    Argument() { bytes.fill (untouched); }

    template <typename Parameter>
    operator Parameter() // NOLINT: stands for any parameter
    {
        if constexpr (std::is_pointer_v<Parameter>)
            return reinterpret_cast<Parameter> (bytes.data());
        else
            return Parameter { 1 };
    }

    std::size_t numCleared() const
    {
        std::size_t count = 0;

        for (const auto byte : bytes)
            count += byte == 0 ? 1 : 0;

        return count;
    }

    alignas (8) std::array<unsigned char, resultBytes> bytes;
};

/** How many bytes an operation clears in each parameter, after its row: results and nothing else. */
template <typename Parameter>
constexpr std::size_t clearedBytes()
{
    if constexpr (! std::is_pointer_v<Parameter>)
        return 0;
    else
    {
        using Pointee = std::remove_pointer_t<Parameter>;

        if constexpr (
            std::is_const_v<
                Pointee> || std::is_same_v<Pointee, EventRecord> || std::is_same_v<Pointee, SFicPlugInChunk>)
            return 0;
        else
            return sizeof (Pointee);
    }
}

template <typename... Parameters, std::size_t... indices>
void check (std::index_sequence<indices...>,
            const std::string& name,
            CPlugIn& plugIn,
            std::int32_t (CPlugIn::*operation) (Parameters...),
            std::int32_t expected)
{
    [[maybe_unused]] std::array<Argument, sizeof...(Parameters) + 1> arguments;
    const std::vector<std::size_t> toBeCleared { clearedBytes<Parameters>()..., 0 };

    EXPECT_EQ ((plugIn.*operation) (static_cast<Parameters> (arguments[indices])...), expected) << name;

    for (std::size_t i = 0; i < arguments.size(); ++i)
        EXPECT_EQ (arguments[i].numCleared(), toBeCleared[i]) << name << ", parameter " << i;

    EXPECT_EQ ((plugIn.*operation) (Parameters {}...), expected) << name << " with null pointers";
}

template <typename... Parameters>
void check (const std::string& name,
            CPlugIn& plugIn,
            std::int32_t (CPlugIn::*operation) (Parameters...),
            std::int32_t expected)
{
    check (std::index_sequence_for<Parameters...> {}, name, plugIn, operation, expected);
}
} // namespace

TEST (CPlugIn, NeutralOperationsAnswerTheirRowsAndClearTheirResults)
{
    CPlugIn plugIn ({});
    int numOperations = 0;

#define CHECK_ROW(Name, answer, parameters, names)                                                           \
    check (#Name, plugIn, &CPlugIn::Name, answer);                                                           \
    ++numOperations;
    CPLUGIN_NEUTRAL_OPERATIONS (CHECK_ROW)
    CPLUGIN_NEUTRAL_NESTING_OPERATIONS (CHECK_ROW)
#undef CHECK_ROW

    EXPECT_EQ (numOperations, 48);
}

TEST (CPlugIn, PortsTakeTheNextNumberUnlessTheyAreGivenOne)
{
    CPlugIn plugIn ({});
    CPlugInInput first (plugIn, 0);
    plugIn.inputs.AddMember (&first);
    CPlugInInput second (plugIn, 0);
    CPlugInInput sidechain (plugIn, 7);
    CPlugInOutput output (plugIn, 0);

    EXPECT_EQ (first.GetPortNumber(), 1);
    EXPECT_EQ (second.GetPortNumber(), 2);
    EXPECT_EQ (sidechain.GetPortNumber(), 7);
    EXPECT_EQ (output.GetPortNumber(), 1);
    EXPECT_EQ (plugIn.GetInput (1), &first);
    EXPECT_EQ (plugIn.GetInput (2), nullptr);
    EXPECT_EQ (plugIn.GetNumOutputs(), 0);
}

TEST (CBaseSet, KeepsEachMemberOnceInTheOrderOfAdding)
{
    CPlugIn plugIn ({});
    CPlugInInput a (plugIn, 1), b (plugIn, 2), c (plugIn, 3);
    CBaseSet set, other;

    for (auto* const member : { &b, &a, &b })
        set.AddMember (member);

    set.AddMember (nullptr);
    EXPECT_EQ (set.GetNumMembers(), 2);
    EXPECT_EQ (set.GetMemberN (0), nullptr);
    EXPECT_EQ (set.GetMemberN (1), &b);
    EXPECT_EQ (set.GetMemberN (3), nullptr);

    other.AddMember (&a);
    other.AddMember (&c);
    set.UnionWith (other);
    set.UnionWith (set);
    EXPECT_EQ (set.GetNumMembers(), 3);
    EXPECT_EQ (set.GetMemberN (3), &c);

    set.RemoveMember (&b);
    set.RemoveMember (&b);
    EXPECT_EQ (set.GetMemberN (1), &a);
    set.Clear();
    EXPECT_EQ (set.GetNumMembers(), 0);
}
