// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Control values on their way between plug-in and host, with and without the token service.

#include "BundleFixture.h"

namespace
{
using testing::ElementsAre;

/** A token as short text, such as "SETV CAVL". */
std::string kindOf (const SFicSDSToken& token)
{
    std::string text;

    for (const auto code : { token.tokenType, token.tokenSubType })
        for (int shift = 24; shift >= 0; shift -= 8)
            text += static_cast<char> (code >> shift & 0xff);

    return text.insert (4, " ");
}

class BundleTokens : public BundleWithInstance
{
protected:
    void SetUp() override
    {
        BundleWithInstance::SetUp();
        services.tokens.observer = [this] (const SFicSDSToken& token) { tokens.push_back (token); };
    }

    void TearDown() override
    {
        instance.reset();
        services.tokens.observer = nullptr;
        BundleWithInstance::TearDown();
    }

    std::vector<std::string> takeKinds()
    {
        std::vector<std::string> kinds;

        for (const auto& token : tokens)
            kinds.push_back (kindOf (token));

        tokens.clear();
        return kinds;
    }

    std::int32_t nameOf (std::int32_t control) const
    {
        std::int32_t nameID = 0;
        EXPECT_EQ (pi.GetControlNameID (typeCode, instance->getIndex(), control, &nameID), ficSuccess);
        return nameID;
    }

    std::vector<SFicSDSToken> tokens;
};

TEST_F (BundleTokens, NameEachControlBelowItsInstance)
{
    std::int32_t root = 0;
    EXPECT_EQ (pi.GetProcessNameID (typeCode, instance->getIndex(), &root), ficSuccess);
    const auto path = services.tokens.getPath (root);
    EXPECT_THAT (path, testing::StartsWith ("/Plug-Ins/QUORVEXDSP/WideLoom/0/Inst"));
    EXPECT_EQ (services.tokens.getPath (nameOf (stereoWidth)), path + "/StereoWidth");
    EXPECT_EQ (services.tokens.getPath (nameOf (masterBypass)), path + "/Master Bypass");
    EXPECT_EQ (services.tokens.getNumNames(), numControls + 1);

    // Another instance has names of its own.
    const auto other = insert();
    std::int32_t otherRoot = 0;
    pi.GetProcessNameID (typeCode, other->getIndex(), &otherRoot);
    EXPECT_NE (services.tokens.getPath (otherRoot), path);
}

TEST_F (BundleTokens, ChangeAValueOnlyWhenTheHostAnswers)
{
    EXPECT_EQ (pi.SetControlValue (typeCode, instance->getIndex(), swapLR, highest), ficSuccess);
    EXPECT_THAT (tokens,
                 testing::Each (testing::Field (&SFicSDSToken::manufacturer, FIC_TOKEN_MANUFACTURER)));
    ASSERT_EQ (tokens.size(), 4u);
    EXPECT_EQ (tokens[0].payload[0], 1);
    EXPECT_EQ (tokens[3].payload[0], 0);
    EXPECT_EQ (refhost::valueOf (tokens[2]), highest);
    EXPECT_EQ (tokens[2].nameID, nameOf (swapLR));
    EXPECT_THAT (takeKinds(), ElementsAre ("SETV CTCH", "SETV GIAC", "SETV CAVL", "SETV CTCH"));
    EXPECT_EQ (instance->getValue (swapLR), lowest);

    instance->idle();
    EXPECT_EQ (instance->getValue (swapLR), highest);
    EXPECT_THAT (takeKinds(), ElementsAre ("CURV CAVL"));
}

TEST_F (BundleTokens, ChangeNothingWhenTheHostWithholdsItsAnswer)
{
    services.tokens.keepsWishes = false;
    EXPECT_EQ (pi.SetControlValue (typeCode, instance->getIndex(), swapLR, highest), ficSuccess);
    EXPECT_EQ (pi.SetControlRelative (typeCode, instance->getIndex(), mono, 5), ficSuccess);
    instance->idle();
    EXPECT_EQ (instance->getValue (swapLR), lowest);
    EXPECT_EQ (instance->getValue (mono), lowest);
}

TEST_F (BundleTokens, SurviveAnyTokenOfTheHost)
{
    TestRandom random (testSeed());
    const std::vector<std::uint32_t> types { FIC_TOKEN_SET, FIC_TOKEN_CURRENT, FIC_TOKEN_GET, 0 };
    const std::vector<std::uint32_t> subTypes {
        FIC_TOKEN_VALUE, FIC_TOKEN_TOUCH, FIC_TOKEN_HIGHLIGHT, FIC_TOKEN_GRABBED, 0
    };

    for (int i = 0; i < 500; ++i)
    {
        services.tokens.send (nameOf (random.between (1, numControls)),
                              random.oneOf (types),
                              random.oneOf (subTypes),
                              random.between (lowest, highest));

        if (random.chance (0.2))
            instance->idle();
    }

    // An instance idles for a while only, but the next time it goes on.
    for (int i = 0; i < 1000; ++i)
        instance->idle();

    EXPECT_EQ (services.tokens.getNumTokensTaken(), 0);
}

class BundleWithoutTokens : public BundleFixture
{
protected:
    BundleWithoutTokens()
        : BundleFixture ({ .tokenService = false })
    {
    }
};

TEST_F (BundleWithoutTokens, SetsValuesAtOnce)
{
    start();
    const auto instance = insert();
    const auto index = instance->getIndex();
    std::int32_t changesBefore = 0, changes = 0;
    pi.GetNumChanges (typeCode, index, &changesBefore);
    EXPECT_EQ (pi.SetControlValue (typeCode, index, swapLR, highest), ficSuccess);
    EXPECT_EQ (instance->getValue (swapLR), highest);
    EXPECT_EQ (pi.GetNumChanges (typeCode, index, &changes), ficSuccess);
    EXPECT_EQ (changes, changesBefore + 1);
    EXPECT_EQ (services.tokens.getNumNames(), 0);

    BlockOfAudio audio (64);
    audio.input[1].assign (64, 0.0f);
    EXPECT_TRUE (audio.render (*instance, 64));
    EXPECT_EQ (audio.output[0][0], 0.0f);
    instance->idle();
}
} // namespace
