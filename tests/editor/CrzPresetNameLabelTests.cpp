// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The editable preset name: what its entry starts with, what it takes, which text is a name.

#include <editor/CrzPresetNameLabel.h>

#include <gtest/gtest.h>

#include <string>

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
    { "ShowsWhatCannotBeTyped",
      "\xc3\xbc"
      "ber/abcdefabc",
      "\xc3\xbc"
      "ber/abcdefabc",
      "a",
      "a" },
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
                          [] (const auto& testCase) { return std::string (testCase.param.name); });

TEST (CrzPresetNameLabel, TakesANameFromATypedText)
{
    struct Row
    {
        const char* typed;
        const char* name;
    };

    const Row rows[] = { { "  abc\t", "abc" },
                         { "a/b*c", "abc" },
                         { "a b", "a b" },
                         { "   ", "" },
                         { "xyz", "" },
                         { "", "" },
                         { "* abc", " abc" },
                         { "\xc3\xbc"
                           "-a",
                           "-a" },
                         { "aaaabbbbcccc", "aaaabbbbcccc" } };
    const CrzPresetNameLabel label (maxLength, "label", "abc", allowed);

    for (const auto& row : rows)
        EXPECT_EQ (label.nameFrom (juce::String::fromUTF8 (row.typed)), row.name) << row.typed;
}
} // namespace
