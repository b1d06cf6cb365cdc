// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Audio files: every format through the whole program, and files that are not what they should be.

#include "wideloom/AudioInput.h"

#include "support/ScratchFolder.h"
#include "support/TestAudioFiles.h"

#include <gmock/gmock.h>

#include <cmath>
#include <random>

namespace
{
/** Every value that so few bits can hold; of 24 bits and floats, the borders and a lot between. */
StereoSignal valuesOf (SampleFormat samples)
{
    StereoSignal signal;
    const auto add = [&signal] (float value)
    {
        signal.left.push_back (value);
        signal.right.insert (signal.right.begin(), value);
    };

    if (samples.isFloat)
    {
        for (const float value : { 0.0f, -0.0f, 1.0f, -1.0f, 4.0f, 1.0e-40f, -3.0e38f, 0.1f, INFINITY })
            add (value);

        return signal;
    }

    const int most = 1 << (samples.bits - 1);
    const int stride = samples.bits > 16 ? 101 : 1;

    for (int value = -most; value < most; value += stride)
        signal.left.push_back (static_cast<float> (value) / static_cast<float> (most));

    signal.right.assign (signal.left.rbegin(), signal.left.rend());
    return signal;
}

struct FormatRow
{
    const char* name;
    const char* extension;
    SampleFormat samples;
};

class AudioFilesRoundTrip : public testing::TestWithParam<FormatRow>
{
};

TEST_P (AudioFilesRoundTrip, KeepsBypassedAudioBitForBit)
{
    const auto& row = GetParam();
    const ScratchFolder folder;
    const auto in = std::string ("in.") + row.extension, out = std::string ("out.") + row.extension;
    const auto signal = valuesOf (row.samples);

    writeAudio (folder / in, signal, row.samples, 48000.0);
    expectSame (readAudio (folder / in), signal);

    const auto result = folder.shell ("wideloom render " + in + " " + out + " --set Bypass=on");
    EXPECT_EQ (result.status, 0) << result.errors;
    expectSame (readAudio (folder / out), signal);
    EXPECT_EQ (sampleFormatOf (folder / out), row.samples);
}

constexpr FormatRow formatRows[] = {
    { "wav8", "wav", { 8, false } },     { "wav16", "wav", { 16, false } },
    { "wav24", "wav", { 24, false } },   { "wavFloat", "wav", { 32, true } },
    { "aiff8", "aiff", { 8, false } },   { "aiff16", "aif", { 16, false } },
    { "aiff24", "aiff", { 24, false } }, { "flac16", "flac", { 16, false } },
    { "flac24", "flac", { 24, false } },
};

const auto formatName = [] (const auto& row) { return std::string (row.param.name); };

INSTANTIATE_TEST_SUITE_P (Formats, AudioFilesRoundTrip, testing::ValuesIn (formatRows), formatName);

TEST (AudioFiles, TakesMonoForLeftAndRightAlike)
{
    const ScratchFolder folder;
    writeWholeFile (folder / "mono.wav", plainWav (std::string ("\x00\x40\x00\x80", 4), 1));
    const auto signal = readAudio (folder / "mono.wav");
    EXPECT_THAT (signal.left, testing::ElementsAre (0.5f, -1.0f));
    EXPECT_EQ (signal.left, signal.right);
}

/** The bytes of a whole file with some of them replaced. */
std::string patched (std::string bytes, std::size_t position, const std::string& replacement)
{
    return bytes.replace (position, replacement.size(), replacement);
}

/** A chunk with a length that need not be true. */
std::string chunk (const std::string& name, std::uint32_t length, const std::string& body)
{
    std::string bytes = name;

    for (int i = 0; i < 4; ++i)
        bytes += static_cast<char> ((length >> (8 * i)) & 0xff);

    return bytes + body;
}

const std::string fourFrames (16, '\x11');
constexpr std::size_t firstChunkAt = 12, channelsAt = 22, rateAt = 24, frameBytesAt = 32, dataLengthAt = 40;

std::string withChunkInFront (const std::string& inserted)
{
    return plainWav (fourFrames).insert (firstChunkAt, inserted);
}

struct DamagedRow
{
    const char* name;
    std::string bytes;
    const char* hint;
};

const DamagedRow damagedRows[] = {
    { "empty", "", "it is empty" },
    { "text", "Dear diary, today I bought a compressor.", "this is no audio file" },
    { "halfAHeader", plainWav (fourFrames).substr (0, 30), "damaged" },
    { "noData", plainWav (fourFrames).substr (0, 36), "cut short" },
    { "dataMissing", plainWav (fourFrames).substr (0, 50), "promises 16 bytes of audio and 6 are there" },
    { "dataLengthHuge", patched (plainWav (fourFrames), dataLengthAt, "\xff\xff\xff\xff"), "cut short" },
    { "threeChannels", plainWav (std::string (12, 'x'), 3), "3 channels" },
    { "noChannels", patched (plainWav (fourFrames), channelsAt, std::string (2, 0)), "no channels" },
    { "noRate", patched (plainWav (fourFrames), rateAt, std::string (4, 0)), "sample rate" },
    { "rateHuge", patched (plainWav (fourFrames), rateAt, "\xff\xff\xff\xff"), "sample rate" },
    { "frameSizeWrong", patched (plainWav (fourFrames), frameBytesAt, "\x05"), "size of a frame" },
    { "compressed", plainWav (fourFrames, 2, 16, 0x55), "compressed audio (format 85)" },
    { "doubles", plainWav (fourFrames, 1, 64, 3), "64-bit float" },
    { "chunkBeyondTheEnd", withChunkInFront (chunk ("bext", 0xfffffff0u, "")), "cut short" },
    { "onlyEmptyChunks", "RIFF....WAVE" + std::string (1 << 20, '\0'), "no audio" },
    { "aiffCutShort", std::string ("FORM\0\0\0\1AIFFCOMM\0\0\0\x12", 20), "damaged" },
    { "flacMarkOnly", "fLaC", "damaged" },
    { "flacHeaderOfZeros", "fLaC" + std::string (60, '\0'), "damaged" },
};

class AudioFilesDamaged : public testing::TestWithParam<DamagedRow>
{
};

TEST_P (AudioFilesDamaged, AreRefusedWithTheirNameAndWhatIsWrong)
{
    const ScratchFolder folder;
    writeWholeFile (folder / "bad.wav", GetParam().bytes);
    Problem problem;
    EXPECT_EQ (AudioInput::open (folder / "bad.wav", problem), nullptr);
    ASSERT_TRUE (problem);
    EXPECT_THAT (*problem,
                 testing::AllOf (testing::HasSubstr ("bad.wav"), testing::HasSubstr (GetParam().hint)));
}

INSTANTIATE_TEST_SUITE_P (Rows, AudioFilesDamaged, testing::ValuesIn (damagedRows), formatName);

TEST (AudioFiles, ReadsAudioBesideMetadataThatMakesNoSense)
{
    // A label list that never advances and a sampler chunk with a count of loops that is not there.
    const ScratchFolder folder;
    const auto list = chunk ("LIST", 12, "adtl" + chunk ("labl", 0, ""));
    const auto sampler = chunk ("smpl", 36, std::string (36, '\x7f'));
    writeWholeFile (folder / "odd.wav", withChunkInFront (list + sampler));
    EXPECT_EQ (readAudio (folder / "odd.wav").size(), 4);
}

class AudioFilesMutilated : public testing::TestWithParam<FormatRow>
{
};

/** Reads what there is to be read of a file. What matters is that it ends. */
void readIfPossible (const std::string& path)
{
    Problem problem;

    if (const auto input = AudioInput::open (path, problem))
    {
        constexpr int count = 256;
        juce::AudioBuffer<float> audio (2, count);

        for (std::int64_t position = 0; position + count <= input->getNumFrames(); position += count)
            if (! input->read (audio, position, count))
                break;
    }
    else
    {
        EXPECT_TRUE (problem);
    }
}

TEST_P (AudioFilesMutilated, NeverCrashOrHang)
{
    constexpr int numRounds = 300, mostBytesChanged = 8, headBytes = 128;
    const ScratchFolder folder;
    const auto path = folder / (std::string ("file.") + GetParam().extension);
    TestRandom random (testSeed());
    writeAudio (path, noise (1000), GetParam().samples);
    const auto whole = readWholeFile (path);

    for (int i = 0; i < numRounds; ++i)
    {
        auto bytes = whole;

        for (int j = random.between (1, mostBytesChanged); j > 0; --j)
        {
            const int reach = j % 2 == 0 ? headBytes : static_cast<int> (bytes.size());
            bytes[static_cast<std::size_t> (random.between (0, reach - 1))] =
                static_cast<char> (random.between (0, 255));
        }

        if (i % 3 == 0)
            bytes.resize (static_cast<std::size_t> (random.between (0, static_cast<int> (bytes.size()))));

        writeWholeFile (path, bytes);
        readIfPossible (path);
    }
}

TEST_P (AudioFilesMutilated, AreRefusedWhenTheyAreCutShort)
{
    const ScratchFolder folder;
    const auto path = folder / (std::string ("file.") + GetParam().extension);
    writeAudio (path, noise (10000), GetParam().samples);
    const auto whole = readWholeFile (path);

    for (const std::size_t missing : { std::size_t { 1 }, std::size_t { 100 }, whole.size() / 2 })
    {
        writeWholeFile (path, whole.substr (0, whole.size() - missing));
        Problem problem;
        EXPECT_EQ (AudioInput::open (path, problem), nullptr) << missing;
        EXPECT_THAT (problem.value_or (""),
                     testing::AnyOf (testing::HasSubstr ("cut short"), testing::HasSubstr ("damaged")));
    }
}

INSTANTIATE_TEST_SUITE_P (Formats,
                          AudioFilesMutilated,
                          testing::Values (formatRows[1], formatRows[3], formatRows[5], formatRows[7]),
                          formatName);
} // namespace
