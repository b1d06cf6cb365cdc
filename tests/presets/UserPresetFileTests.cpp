// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Preset files byte by byte: both forms, damage, and names that are no file names.

#include <gtest/gtest.h>
#include <presets/UserPresetFile.h>
#include <presets/XmlGuard.h>
#include <presets/ZlibBody.h>

#include <ostream>
#include <string>

namespace
{
const std::string marker = "QUORVEXDSP Preset File:::::";
const std::string zero (1, '\0');

std::string bytesOf (const juce::MemoryBlock& block)
{
    return { static_cast<const char*> (block.getData()), block.getSize() };
}

std::string compressed (const std::string& text)
{
    return bytesOf (deflateZlib (text));
}

juce::ValueTree somePreset()
{
    juce::ValueTree tree ("Q7AudioPreset",
                          { { "PresetName",
                              juce::String::fromUTF8 ("Gr\xc3\xb6\xc3\x9f"
                                                      "e <&>") } });
    tree.appendChild (juce::ValueTree ("Parameter", { { "ParameterName", "Pan" }, { "Value", 0.1 } }),
                      nullptr);
    return tree;
}

std::string presetText (const std::string& children)
{
    return "<Q7AudioPreset>" + children + "</Q7AudioPreset>";
}

struct FileCase
{
    const char* name;
    std::string bytes;
    bool good;
};

void PrintTo (const FileCase& row, std::ostream* stream)
{
    *stream << row.name;
}

class UserPresetFileBytes : public testing::TestWithParam<FileCase>
{
};

std::vector<FileCase> fileCases()
{
    const auto xml = presetText ("");
    const std::string bomb (64 * 1024 * 1024, ' ');
    auto wrongSum = compressed (xml + zero);
    wrongSum.back() ^= 1;

    return {
        { "Plain", marker + zero + xml + zero, true },
        { "PlainWithoutItsLastZero", marker + zero + xml, true },
        { "Compressed", marker + "c" + zero + compressed (xml + zero), true },
        { "CompressedWithoutATextsZero", marker + "c" + zero + compressed (xml), true },
        { "AnyTextThatEndsInC", marker + " made by abc" + zero + compressed (xml + zero), true },
        { "AnyOtherTextIsPlain", marker + "cd" + zero + xml, true },
        { "LongHeader", marker + std::string (1000, 'h') + "c" + zero + compressed (xml), true },
        { "HeaderThatIsNotUtf8", marker + "\xff\xfe" + "c" + zero + compressed (xml), true },
        { "BytesBehindTheStream", marker + "c" + zero + compressed (xml) + "behind", true },
        { "AnyRoot", marker + zero + "<other/>", true },

        { "Empty", "", false },
        { "MarkerOnly", marker, false },
        { "OtherMarker", "Quorvexdsp Preset File:::::" + zero + xml, false },
        { "MarkerNotAtTheStart", " " + marker + zero + xml, false },
        { "EndlessHeader", marker + std::string (4 * 1024 * 1024, 'c'), false },
        { "PlainMarkedAsCompressed", marker + "c" + zero + xml, false },
        { "CompressedMarkedAsPlain", marker + zero + compressed (xml), false },
        { "NoText", marker + zero, false },
        { "NoStream", marker + "c" + zero, false },
        { "StreamCutInItsSum",
          marker + "c" + zero + compressed (xml).substr (0, compressed (xml).size() - 2),
          false },
        { "WrongSum", marker + "c" + zero + wrongSum, false },
        { "BombOfBlanks", marker + "c" + zero + compressed (bomb), false },
        { "BombBehindTheText", marker + "c" + zero + compressed (xml + zero + bomb), false },
        { "TextTooLong", marker + zero + presetText (std::string (maxXmlTextBytes, ' ')), false },
    };
}
} // namespace

TEST_P (UserPresetFileBytes, AreReadOrRefused)
{
    const auto& [name, bytes, good] = GetParam();
    const auto contents = UserPresetFile::read (bytes);

    EXPECT_EQ (contents.tree.isValid(), good) << contents.error;
    EXPECT_EQ (contents.error.isEmpty(), good) << contents.error;
}

INSTANTIATE_TEST_SUITE_P (Files,
                          UserPresetFileBytes,
                          testing::ValuesIn (fileCases()),
                          [] (const auto& row) { return std::string (row.param.name); });

TEST (UserPresetFile, LeavesOutTextBetweenElements)
{
    constexpr int numElements = 5000;
    std::string children;

    for (int i = 0; i < numElements; ++i)
        children += "text <!-- --> &amp;<e/>\n";

    const auto contents = UserPresetFile::read (
        marker + zero + presetText (children + "text<Parameter ParameterName='Pan' Value='0.25'/>text"));
    ASSERT_TRUE (contents.tree.isValid()) << contents.error;
    EXPECT_EQ (contents.tree.getNumChildren(), numElements + 1);
    EXPECT_EQ (contents.tree.getChildWithProperty ("ParameterName", "Pan")["Value"].toString(), "0.25");
}

TEST (UserPresetFile, WritesBothFormsAsLaidDown)
{
    const auto tree = somePreset();
    const auto text = tree.toXmlString().toStdString();
    const auto plain = bytesOf (UserPresetFile::write (tree, false));
    const auto packed = bytesOf (UserPresetFile::write (tree, true));

    EXPECT_EQ (plain, marker + zero + text + zero);
    EXPECT_TRUE (text.starts_with ("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"));

    ASSERT_EQ (packed.substr (0, 31), marker + "c" + zero + "\x78\xda");
    EXPECT_EQ (inflateZlib (std::string_view (packed).substr (29), packed.size() * 100), text + zero);

    for (const auto& bytes : { plain, packed })
        EXPECT_EQ (UserPresetFile::read (bytes).tree.toXmlString(), tree.toXmlString());
}

TEST (UserPresetFile, NoFlippedBitOfACompressedPresetGoesUnnoticed)
{
    const auto good = bytesOf (UserPresetFile::write (somePreset(), true));
    const auto tree = UserPresetFile::read (good).tree;
    constexpr std::size_t bitsPerByte = 8;

    for (std::size_t bit = 0; bit < good.size() * bitsPerByte; ++bit)
    {
        auto damaged = good;
        damaged[bit / bitsPerByte] =
            static_cast<char> (damaged[bit / bitsPerByte] ^ (1 << (bit % bitsPerByte)));
        const auto read = UserPresetFile::read (damaged).tree;
        EXPECT_TRUE (! read.isValid() || read.isEquivalentTo (tree)) << "bit " << bit;
    }

    for (std::size_t length = 0; length < good.size(); ++length)
        EXPECT_FALSE (UserPresetFile::read (std::string_view (good).substr (0, length)).tree.isValid())
            << length;
}

TEST (UserPresetFile, LimitsTheEffectsOwnValues)
{
    const auto node = [] (const std::string& name, const std::string& value)
    { return "<Parameter ParameterName='" + name + "' Value='" + value + "'/>"; };

    const auto tree =
        UserPresetFile::read (marker + zero
                              + presetText (node ("Pan", "1e300") + node ("Mono", "nan") + node ("Mono", "1")
                                            + node ("StereoWidth", "-0.5") + node ("Foreign", "7")
                                            + node ("InputGain", "-inf") + node ("OutputGain", "0.25")
                                            + node ("OutputGain", "nan")))
            .tree;

    juce::String result;

    for (const auto& child : tree)
        result << child["ParameterName"].toString() << "=" << static_cast<float> (child["Value"]) << " ";

    EXPECT_EQ (result, "Pan=1 StereoWidth=0 Foreign=7 OutputGain=0.25 OutputGain=0 ");
}

TEST (UserPresetFile, KnowsWhichNamesAreFileNames)
{
    struct
    {
        const char* name;
        bool good;
    } const names[] { { "Bass", true },
                      { "a..b", true },
                      { "...", true },
                      { "~", true },
                      { " ", true },
                      { "Gr\xc3\xb6\xc3\x9f"
                        "e",
                        true },
                      { "", false },
                      { "..", false },
                      { "../up", false },
                      { "a/b", false },
                      { "/etc/x", false },
                      { "a\\b", false },
                      { "line\nfeed", false },
                      { "\x7f", false },
                      { "\xc2\x85", false },
                      { "\xed\xa0\x80", false },
                      { "\xed\xbf\xbf", false },
                      { "\xf4\x90\x80\x80", false },
                      { "\xf0\x9f\x98\x80", true } };

    for (const auto& row : names)
        EXPECT_EQ (UserPresetFile::isFileName (juce::String::fromUTF8 (row.name)), row.good) << row.name;
}

TEST (UserPresetFile, HeadersEndAtAZeroOrTheEnd)
{
    for (const std::size_t length :
         { std::size_t { 0 }, std::size_t { 255 }, std::size_t { 256 }, std::size_t { 5000 } })
        for (const auto& behind : { std::string(), zero + "rest" })
        {
            const std::string header (length, 'h');
            const auto bytes = header + behind;
            juce::MemoryInputStream stream (bytes.data(), bytes.size(), false);
            EXPECT_EQ (UserPresetFile::readHeader (stream), header);
        }
}
