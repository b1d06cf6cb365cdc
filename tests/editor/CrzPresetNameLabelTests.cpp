// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The editable preset name: what its entry starts with, what it takes, which text is a name.

#include <editor/CrzPresetNameLabel.h>

#include <gtest/gtest.h>
#include <support/NamedRows.h>

#include <utility>

namespace
{
constexpr int maxLength = 8;
const char* const allowed = "abcdef ABC_-";

/** Opens its entry without the keyboard focus, which only a real window has. */
class LabelWithEntry : public CrzPresetNameLabel
{
public:
    explicit LabelWithEntry (const juce::String& text)
        : CrzPresetNameLabel (maxLength, "label", text, allowed)
    {
        entry.setText (text, false);
        editorShown (&entry);
    }

    juce::TextEditor entry;
};

struct EntryCase
{
    const char* name;
    const char* labelText;
    const char* shown;
    const char* typedOverAll; ///< replaces what is selected, which is all
    const char* result;
};

class CrzPresetNameLabelEntry : public testing::TestWithParam<EntryCase>
{
};

const EntryCase entryCases[] = {
    { "Unchanged", "abc", "abc", "def", "def" },
    { "Changed", "abc *", "abc ", "d", "d" },
    { "StarsAnywhere", "*a*b*", "ab", "*c*", "c" },
    { "RefusesOthers", "abc", "abc", "a/b.c:xyz", "abc" },
    { "RefusesTheNinth", "abc", "abc", "aaaabbbbcccc", "aaaabbbb" },
    { "ShowsWhatCannotBeTyped", "(ber)/abcdefabc", "(ber)/abcdefabc", "a", "a" },
    { "Empty", "", "", "ab", "ab" },
    { "OnlyStars", "**", "", "ab", "ab" },
};

TEST_P (CrzPresetNameLabelEntry, StartsSelectedAndTakesOnlyNames)
{
    const auto& row = GetParam();
    LabelWithEntry label (juce::String::fromUTF8 (row.labelText));

    EXPECT_EQ (label.entry.getText(), juce::String::fromUTF8 (row.shown));
    EXPECT_EQ (label.entry.getHighlightedText(), juce::String::fromUTF8 (row.shown));

    label.entry.insertTextAtCaret (row.typedOverAll);
    EXPECT_EQ (label.entry.getText(), row.result);
}

INSTANTIATE_TEST_SUITE_P (Entries,
                          CrzPresetNameLabelEntry,
                          testing::ValuesIn (entryCases),
                          rowName<EntryCase>);

TEST (CrzPresetNameLabel, TakesANameFromATypedText)
{
    using Pair = std::pair<const char*, const char*>;
    const CrzPresetNameLabel label (maxLength, "label", "abc", allowed);

    for (const auto& [typed, name] : { Pair { "  abc\t", "abc" },
                                       Pair { "a/b*c", "abc" },
                                       Pair { "   ", "" },
                                       Pair { "xyz", "" },
                                       Pair { "* abc", " abc" },
                                       Pair { "\xc3\xbc-a", "-a" },
                                       Pair { "aaaabbbbcccc", "aaaabbbbcccc" } })
        EXPECT_EQ (label.nameFrom (juce::String::fromUTF8 (typed)), name) << typed;
}
} // namespace
