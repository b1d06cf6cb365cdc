// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Texts that the guard before the XML reader must let through, and those that it must not.

#include <gtest/gtest.h>
#include <juce_data_structures/juce_data_structures.h>
#include <presets/XmlGuard.h>

#include <ostream>
#include <string>

namespace
{
std::string repeated (const std::string& text, std::size_t times)
{
    std::string result;

    for (std::size_t i = 0; i < times; ++i)
        result += text;

    return result;
}

std::string manyAttributes (std::size_t count)
{
    std::string result = "<a";

    for (std::size_t i = 0; i < count; ++i)
        result += " n" + std::to_string (i) + "=''";

    return result + "/>";
}

/** Each of another name, in an outer one. */
std::string manyElements (std::size_t count)
{
    std::string result = "<a>";

    for (std::size_t i = 0; i < count; ++i)
        result += "<n" + std::to_string (i) + "/>";

    return result + "</a>";
}

struct XmlCase
{
    const char* name;
    std::string text;
    bool good;
};

void PrintTo (const XmlCase& row, std::ostream* stream)
{
    *stream << row.name;
}

class XmlGuard : public testing::TestWithParam<XmlCase>
{
};

std::vector<XmlCase> xmlCases()
{
    const std::string depth32 = repeated ("<a>", 32) + repeated ("</a>", 32);
    const std::string filler (maxXmlTextBytes - 9, 'x');

    return {
        { "OneElement", "<a/>", true },
        { "HeaderCommentAndInstruction",
          "<?xml version='1.0'?> <!-- c --> <?pi?>\r\n<a b = 'c'>t</a>\n",
          true },
        { "CommentInsideATag", "<a <!-- > --> b='c'/>", true },
        { "MarkupInsideValues", "<a b='<x>' c=\"</a>\"/>", true },
        { "KnownReferences", "<a b='&amp;&LT;&#65;&#x1F600;'>&gt;</a>", true },
        { "SectionAndComment", "<a><![CDATA[<b> & ]]><!-- <!DOCTYPE & --></a>", true },
        { "ForeignEncodingInTheHeader", "<?xml version='1.0' encoding='ISO-8859-1'?><a/>", true },
        { "Depth32", depth32, true },
        { "Depth32WithAnEmptyElement", repeated ("<a>", 31) + "<b/>" + repeated ("</a>", 31), true },
        { "FirstAndLastCharactersOfEachLength",
          "<a b='\xc2\x80\xdf\xbf\xe0\xa0\x80\xec\xbf\xbf\xed\x9f\xbf\xee\x80\x80\xef\xbf\xbf"
          "\xf0\x90\x80\x80\xf3\xbf\xbf\xbf\xf4\x8f\xbf\xbf'/>",
          true },
        { "ExactlyAsLongAsAllowed", "<a b='" + filler + "'/>", true },
        { "AsManyReferencesAsAllowed",
          "<a b='" + repeated ("&lt;", maxXmlReferences / 2) + "'>"
              + repeated ("&#65;", maxXmlReferences - maxXmlReferences / 2) + "</a>",
          true },
        { "AnAttributeInEachOfTwoTags", "<a b='c'><d b='c'/></a>", true },
        { "WrongEndTag", "<a><b></a></b>", true },
        { "AfterTheFirstZero", std::string ("<a/>\0<!DOCTYPE", 14), true },

        { "Empty", "", false },
        { "Blanks", " \n ", false },
        { "HeaderOnly", "<?xml version='1.0'?>", false },
        { "PlainText", "text>", false },
        { "OneByteTooLong", "<a b='" + filler + "x'/>", false },
        { "Depth33", "<a>" + depth32 + "</a>", false },
        { "Depth33WithAnEmptyElement", repeated ("<a>", 32) + "<b/>" + repeated ("</a>", 32), false },
        { "Deep", repeated ("<a>", 80000) + "</a>", false },
        { "DepthHiddenBehindAnOddName", "<\xc3\xa9\xe2\x82\xac b='" + repeated ("<a>", 60000) + "'>", false },
        { "DepthHiddenBehindAnUnquotedValue", "<a b=1>" + repeated ("<a>", 60000) + "</a>", false },
        { "DocumentType", "<!DOCTYPE a [<!ENTITY b '&&a;'>]><a>&b;</a>", false },
        { "DocumentTypeBehindTheRoot", "<a/><!DOCTYPE a>", false },
        { "EntityInsideTheRoot", "<a><!ENTITY b 'c'></a>", false },
        { "InstructionInsideTheRoot", "<a><?pi?>text</a>", false },
        { "UnknownReference", "<a>&bogus;</a>", false },
        { "UnknownReferenceBeyondAscii", "<a>&\xc3\xa9;</a>", false },
        { "UnknownReferenceThatStartsLikeAKnownOne", "<a>&ampere;</a>", false },
        { "ManyBareAmpersands", "<a>" + std::string (250000, '&') + "</a>", false },
        { "ReferenceToZero", "<a b='&#0;'/>", false },
        { "ReferenceToASurrogate", "<a b='&#xD800;'/>", false },
        { "ReferencePastTheLastCharacter", "<a b='&#x110000;'/>", false },
        { "ReferenceWithoutDigits", "<a b='&#x;'/>", false },
        { "ReferenceCutAtTheEnd", "<a>&#x41>", false },
        { "CutInAnAttribute", "<a b='c' d='", false },
        { "CutBehindAnAttribute", "<a b='c' ", false },
        { "NotClosed", "<a><b></b>", false },
        { "CommentNotClosed", "<a><!-- </a>", false },
        { "NameStartsWithADigit", "<a 1b='c'/>", false },
        { "AnAttributeTwice", "<a b='c' d='e' b='f'/>", false },
        { "MostAttributes", manyAttributes (maxXmlAttributes), true },
        { "OneAttributeTooMany", manyAttributes (maxXmlAttributes + 1), false },
        { "MostNames", manyElements (maxXmlNames - 1), true },
        { "OneNameTooMany", manyElements (maxXmlNames), false },
        { "ManyReferencesInAValue",
          "<a b='" + repeated ("&lt;\xc3\xa9", maxXmlReferences + 1) + "'/>",
          false },
        { "ManyReferencesInText", "<a>" + repeated ("&#65;", maxXmlReferences + 1) + "</a>", false },
        { "DepthHiddenBehindLongFormsOfTags",
          "<a>"
              + repeated ("\xc0\xbc"
                          "a>",
                          60000)
              + "</a>",
          false },
        { "TwoBytesForAscii", "<a b='\xc1\xbf'/>", false },
        { "ThreeBytesForTwo", "<a b='\xe0\x9f\xbf'/>", false },
        { "FourBytesForThree", "<a b='\xf0\x8f\xbf\xbf'/>", false },
        { "ASurrogate", "<a b='\xed\xa0\x80'/>", false },
        { "PastTheLastCharacter", "<a b='\xf4\x90\x80\x80'/>", false },
        { "FiveBytes", "<a b='\xf8\x88\x80\x80\x80'/>", false },
        { "ATrailByteAlone", "<a b='\x80'/>", false },
        { "ATrailByteMissing", "<a b='\xe2\x82'/>", false },
        { "Latin1", "<a b='\xe9'/>", false },
        { "Utf16", std::string ("\xff\xfe<\0a\0/\0>\0", 10), false },
    };
}
} // namespace

TEST_P (XmlGuard, LetsThroughOnlyWhatTheReaderReadsSafely)
{
    const auto& [name, text, good] = GetParam();
    const auto parsed = parseGuardedXml (text);

    EXPECT_EQ (parsed.element != nullptr, good) << parsed.error;
    EXPECT_EQ (parsed.error.isEmpty(), good) << parsed.error;
}

INSTANTIATE_TEST_SUITE_P (Texts,
                          XmlGuard,
                          testing::ValuesIn (xmlCases()),
                          [] (const auto& row) { return std::string (row.param.name); });

TEST (XmlGuardTrees, LeaveOutTextAndBinaryAttributes)
{
    auto parsed = parseGuardedXml ("<a base64:b='999999999.AAAA' base64:='1.A' c='d'>text<e>more</e></a>");
    ASSERT_NE (parsed.element, nullptr) << parsed.error;

    const auto tree = treeFromXml (*parsed.element);
    EXPECT_EQ (tree.getNumProperties(), 1);
    EXPECT_EQ (tree["c"].toString(), "d");
    ASSERT_EQ (tree.getNumChildren(), 1);
    EXPECT_EQ (tree.getChild (0).getNumChildren(), 0);
}
