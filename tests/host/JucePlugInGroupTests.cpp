// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the host knows this plug-in by. Sessions keep it, so it stays as it is for ever.

#include "host/BridgeFixture.h"
#include "host/CEffectGroup.h"

#include <cstring>

namespace
{
class JucePlugInGroupTest : public BridgeFixture
{
protected:
    std::int32_t gestalt (std::int32_t selector, std::int32_t value = 0)
    {
        EXPECT_EQ (group->Gestalt (typeCode, selector, &value), ficSuccess);
        return value;
    }

    static std::string pascal (const std::array<unsigned char, 256>& text)
    {
        return { text.begin() + 1, text.begin() + 1 + text[0] };
    }
};
} // namespace

TEST_F (JucePlugInGroupTest, Names)
{
    std::array<unsigned char, 256> text {};
    std::array<char, 256> baseName {};
    auto& effectGroup = dynamic_cast<CEffectGroup&> (*group);

    group->GetManufacturerName (31, text.data());
    EXPECT_EQ (pascal (text), "QUORVEXDSP");
    effectGroup.GetPlugInName (text.data(), 31);
    EXPECT_EQ (pascal (text), "WideLoom");
    effectGroup.GetPlugInName (text.data(), 4);
    EXPECT_EQ (pascal (text), "Wide");
    group->GetProcessTypeName (typeCode, 31, text.data());
    EXPECT_EQ (pascal (text), "WideLoom");
    effectGroup.BuildSDSBaseName (baseName.data());
    EXPECT_STREQ (baseName.data(), "Plug-Ins/QUORVEXDSP/WideLoom/0");
}

TEST_F (JucePlugInGroupTest, CodesAndFormats)
{
    std::uint32_t manufacturer = 0, product = 0, type = 0;
    EXPECT_EQ (group->GetProcessTypeIDs (1, &manufacturer, &product, &type), ficSuccess);
    EXPECT_EQ (manufacturer, fourCC ("Q7Qv"));
    EXPECT_EQ (product, fourCC ("Q7Wl"));
    EXPECT_EQ (type, fourCC ("jcaa"));
    EXPECT_EQ (group->GetProcessTypeIDs (2, &manufacturer, &product, &type), ficUnknownTypeIndex);

    SFicPlugInStemFormats formats { -9, -9, -9 };
    std::int32_t plugInType = 0;
    group->GetStemFormats (typeCode, &formats);
    EXPECT_EQ (formats.input, 1);
    EXPECT_EQ (formats.output, 1);
    EXPECT_EQ (formats.sideChain, 0);
    group->GetPlugInType (typeCode, &plugInType);
    EXPECT_EQ (plugInType, 3);
    EXPECT_EQ (group->GetAutoType(), 3);
}

TEST_F (JucePlugInGroupTest, Gestalts)
{
    for (std::int32_t selector = -1; selector < 100; ++selector)
    {
        std::int32_t expected = 0;

        switch (selector)
        {
            case 7:
            case 8:
            case 14:
            case 29:
            case 48:
                expected = 1;
                break;
            case 21:
                expected = 512;
                break;
            case 32:
                expected = 6;
                break;
            default:
                break;
        }

        EXPECT_EQ (gestalt (selector), expected) << selector;
    }

    EXPECT_EQ (gestalt (28, static_cast<std::int32_t> (FIC_CHUNK_MIDI)), 2);
}

TEST_F (JucePlugInGroupTest, ChunksAreSigned)
{
    instantiate();
    std::int32_t size = 0;
    EXPECT_EQ (group->GetChunkSize (typeCode, 1, FIC_CHUNK_JUCE, &size), ficSuccess);
    std::vector<unsigned char> bytes (static_cast<std::size_t> (size), 0x5A);
    auto* const chunk = reinterpret_cast<SFicPlugInChunk*> (bytes.data());
    EXPECT_EQ (group->GetChunk (typeCode, 1, FIC_CHUNK_JUCE, chunk), ficSuccess);

    EXPECT_EQ (chunk->chunkSize, size);
    EXPECT_EQ (chunk->version, 0x00010100);
    EXPECT_EQ (chunk->manufacturerID, fourCC ("Q7Qv"));
    EXPECT_EQ (chunk->productID, fourCC ("Q7Wl"));
    EXPECT_EQ (chunk->typeID, fourCC ("jcaa"));
    EXPECT_EQ (chunk->chunkID, FIC_CHUNK_JUCE);

    EXPECT_EQ (group->SetChunk (typeCode, 1, FIC_CHUNK_JUCE, chunk), ficSuccess);
    chunk->manufacturerID = fourCC ("else");
    EXPECT_EQ (group->SetChunk (typeCode, 1, FIC_CHUNK_JUCE, chunk), ficChunkNotHandled);
}
