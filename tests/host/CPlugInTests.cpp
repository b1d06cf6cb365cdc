// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Sets of ports and their numbers.

#include "host/CPlugIn.h"
#include "host/CPlugInPort.h"

#include <gtest/gtest.h>

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
