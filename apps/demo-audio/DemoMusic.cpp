// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Bass, pad, plucks, kick and noise, and where in the stereo field each of them sits.

#include "DemoMusic.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace
{
constexpr double beatSeconds = 60.0 / 92.0;
constexpr int beatsPerChord = 4;
constexpr double releaseSeconds = 1.5;
constexpr double twoPi = 2.0 * std::numbers::pi;
constexpr float peakLevel = 0.3548134f; // -9 dBFS

/** MIDI note numbers. */
struct Chord
{
    int bass;
    std::array<int, 4> pad;
};

// A minor 9, F major 7, C major 7, G 6.
constexpr std::array<Chord, 4> chords { {
    { 33, { 57, 60, 64, 71 } },
    { 29, { 57, 60, 64, 65 } },
    { 36, { 55, 59, 64, 67 } },
    { 31, { 55, 59, 62, 64 } },
} };

constexpr std::array<int, 8> pluckSteps { 0, 2, 3, 1, 2, 3, 0, 2 }; ///< notes of the pad, an octave higher
constexpr double pluckPan[] = { -0.9, 0.9, -0.4, 0.4, 0.8, -0.8, 0.0, 0.6 };

double noteFrequency (int note)
{
    return 440.0 * std::pow (2.0, (note - 69) / 12.0);
}

/** Sine partials with amplitudes 1/n^slope. */
double partials (double phase, int count, double slope)
{
    double sum = 0.0;

    for (int n = 1; n <= count; ++n)
        sum += std::sin (n * phase) / std::pow (n, slope);

    return sum;
}

/** What one voice gives, left and right, at a time in seconds since its note began. */
struct Pair
{
    double left, right;
};

class Music
{
public:
    Music()
        : buffer (2, toSamples (chords.size() * beatsPerChord * beatSeconds + releaseSeconds))
    {
        buffer.clear();
    }

    /** Adds a note that sounds from `start` to `end`, in seconds. */
    template <typename Voice>
    void play (double start, double end, Voice&& voice)
    {
        const int first = toSamples (start);
        const int last = std::min (toSamples (end), buffer.getNumSamples());

        for (int sample = first; sample < last; ++sample)
        {
            const Pair pair = voice ((sample - first) / demoSampleRate);
            buffer.addSample (0, sample, static_cast<float> (pair.left));
            buffer.addSample (1, sample, static_cast<float> (pair.right));
        }
    }

    juce::AudioBuffer<float> finish()
    {
        buffer.applyGain (peakLevel / buffer.getMagnitude (0, buffer.getNumSamples()));
        return std::move (buffer);
    }

private:
    static int toSamples (double seconds)
    {
        return static_cast<int> (std::lround (seconds * demoSampleRate));
    }

    juce::AudioBuffer<float> buffer;
};

void playBass (Music& music, int note, double start, double seconds)
{
    // 80 degrees between the channels: 0.77 of the fundamental is in mid, 0.64 in side.
    constexpr double phaseBetween = twoPi * 80.0 / 360.0;
    const double frequency = noteFrequency (note);

    music.play (
        start,
        start + seconds,
        [=] (double t)
        {
            const double level =
                0.4 * std::min (1.0, t / 0.01) * std::min (1.0, (seconds - t) / 0.04) * std::exp (-0.6 * t);
            const double phase = twoPi * frequency * t;
            return Pair { level * partials (phase, 6, 1.4), level * partials (phase + phaseBetween, 6, 1.4) };
        });
}

void playPad (Music& music, const Chord& chord, double start, double seconds)
{
    constexpr double detune = 0.0018; // 3 cents each way

    for (const int note : chord.pad)
    {
        const double frequency = noteFrequency (note);
        const double end = seconds + releaseSeconds;
        music.play (start,
                    start + end,
                    [=] (double t)
                    {
                        const double level = 0.06 * std::min (1.0, t / 0.35)
                                             * std::clamp ((end - t) / releaseSeconds, 0.0, 1.0)
                                             * (1.0 + 0.15 * std::sin (twoPi * 0.7 * t + note));
                        const double phase = twoPi * frequency * t + note;
                        return Pair { level * partials (phase * (1.0 - detune), 9, 1.3),
                                      level * partials (phase * (1.0 + detune) + 1.0, 9, 1.3) };
                    });
    }
}

/** With an echo on the other side. */
void playPluck (Music& music, int note, double pan, double start)
{
    const double frequency = noteFrequency (note);

    for (const auto& [delay, gain, side] :
         { std::array { 0.0, 0.16, 1.0 }, std::array { 0.75 * beatSeconds, 0.06, -1.0 } })
    {
        const double angle = (side * pan + 1.0) * std::numbers::pi / 4.0;
        const double left = gain * std::cos (angle), right = gain * std::sin (angle);
        music.play (start + delay,
                    start + delay + 0.9,
                    [=] (double t)
                    {
                        const double value =
                            std::min (1.0, t / 0.003) * std::exp (-5.0 * t)
                            * (partials (twoPi * frequency * t, 3, 2.0)
                               + std::exp (-30.0 * t) * std::sin (twoPi * 6.0 * frequency * t) * 0.3);
                        return Pair { left * value, right * value };
                    });
    }
}

void playKick (Music& music, double start)
{
    music.play (start,
                start + 0.3,
                [] (double t)
                {
                    // From 150 Hz down to 48 Hz.
                    const double phase = twoPi * (48.0 * t + 102.0 * 0.03 * (1.0 - std::exp (-t / 0.03)));
                    const double value = 0.75 * std::exp (-13.0 * t) * std::sin (phase);
                    return Pair { value, value };
                });
}

struct NoiseSound
{
    double level, decayPerSecond;
    double brightness; ///< 0 is white; towards 1 the bass goes
    double width;      ///< the share that differs between the sides
    double pan;        ///< -1..1
};

constexpr NoiseSound snare { 0.22, 18.0, 0.4, 0.3, 0.0 };
constexpr NoiseSound hiHat { 0.035, 60.0, 0.95, 0.4, 0.45 };
constexpr NoiseSound loudHiHat { 0.055, 45.0, 0.95, 0.4, 0.45 };

void playNoise (Music& music, juce::Random& random, double start, const NoiseSound& sound)
{
    double lastCommon = 0.0, lastLeft = 0.0, lastRight = 0.0;
    const auto noise = [&random, &sound] (double& last)
    {
        const double next = 2.0 * random.nextDouble() - 1.0;
        const double value = next - sound.brightness * last;
        last = next;
        return value;
    };

    music.play (start,
                start + 0.35,
                [&] (double t)
                {
                    const double envelope = sound.level * std::exp (-sound.decayPerSecond * t);
                    const double common = noise (lastCommon) * (1.0 - sound.width);
                    return Pair { envelope * (1.0 - sound.pan) * (common + sound.width * noise (lastLeft)),
                                  envelope * (1.0 + sound.pan) * (common + sound.width * noise (lastRight)) };
                });
}
} // namespace

juce::AudioBuffer<float> makeDemoMusic()
{
    Music music;
    juce::Random random (1);
    double chordStart = 0.0;

    for (const auto& chord : chords)
    {
        playPad (music, chord, chordStart, beatsPerChord * beatSeconds);

        for (const auto& [beat, beats] :
             { std::array { 0.0, 1.4 }, std::array { 1.5, 0.9 }, std::array { 2.5, 1.4 } })
            playBass (music, chord.bass, chordStart + beat * beatSeconds, beats * beatSeconds);

        for (std::size_t i = 0; i < pluckSteps.size(); ++i)
            playPluck (music,
                       chord.pad[static_cast<std::size_t> (pluckSteps[i])] + 12,
                       pluckPan[i],
                       chordStart + static_cast<double> (i) * 0.5 * beatSeconds);

        for (const double beat : { 0.0, 1.75, 2.5 })
            playKick (music, chordStart + beat * beatSeconds);

        for (const double beat : { 1.0, 3.0 })
            playNoise (music, random, chordStart + beat * beatSeconds, snare);

        for (int i = 0; i < 2 * beatsPerChord; ++i)
            playNoise (music, random, chordStart + 0.5 * i * beatSeconds, i % 2 == 0 ? hiHat : loudHiHat);

        chordStart += beatsPerChord * beatSeconds;
    }

    return music.finish();
}
