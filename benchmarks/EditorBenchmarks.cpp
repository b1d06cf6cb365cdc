// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the editor costs: opening it, painting it whole, and both meters moving. Software renderer, no
// display.

#include <benchmark/benchmark.h>
#include <editor/BrushedGround.h>
#include <editor/CrzQ7Colours.h>
#include <editor/CrzQ7StereoVuMeterComponent.h>
#include <editor/MainEditorComponent.h>
#include <editor/WideLoomAudioProcessorEditor.h>
#include <engine/WideLoomAudioProcessor.h>

#include <memory>

namespace
{
constexpr int editorWidth = 900, editorHeight = 600;

/** A canvas as a window has one. */
juce::Image canvas()
{
    return { juce::Image::RGB, editorWidth, editorHeight, true, juce::SoftwareImageType() };
}

/** An open editor with all its controls, painted once. */
struct OpenEditor
{
    OpenEditor()
    {
        processor.setEditorHeight (editorHeight);
        processor.setExpertMode (true);
        editor = std::make_unique<WideLoomAudioProcessorEditor> (&processor);
        paint (editor->getLocalBounds());
    }

    void paint (const juce::RectangleList<int>& region)
    {
        juce::Graphics g (image);

        if (g.reduceClipRegion (region))
            editor->paintEntireComponent (g, true);
    }

    WideLoomAudioProcessor processor;
    std::unique_ptr<WideLoomAudioProcessorEditor> editor;
    juce::Image image = canvas();
};

void fullRepaint (benchmark::State& state)
{
    OpenEditor open;

    for ([[maybe_unused]] auto _ : state)
        open.paint (open.editor->getLocalBounds());
}

/** What a new size or colour scheme costs on top of the next repaint. */
void groundAnew (benchmark::State& state)
{
    auto image = canvas();
    juce::Graphics g (image);

    for ([[maybe_unused]] auto _ : state)
    {
        BrushedGround ground;
        ground.draw (g, editorWidth, editorHeight, CrzQ7Colours::q7darkGrey);
    }
}

/** Everything below a component that a new reading repaints: bars and numbers. */
void addLeaves (juce::Component& component, const juce::Component& root, juce::RectangleList<int>& region)
{
    for (auto* child : component.getChildren())
        region.add (root.getLocalArea (child, child->getLocalBounds()));
}

/** One tick of both timers, with all four bars and numbers changed and painted. It comes every 70 ms. */
void metersMove (benchmark::State& state)
{
    OpenEditor open;
    auto& panel = *open.editor->getMainEditor();
    juce::RectangleList<int> region;

    for (auto* child : panel.getChildren())
        if (auto* meter = dynamic_cast<CrzQ7StereoVuMeterComponent*> (child))
            addLeaves (*meter, *open.editor, region);

    if (region.getNumRectangles() != 8)
        state.SkipWithError ("there are not two meters of two bars and two numbers");

    float level = 0.1f;

    for ([[maybe_unused]] auto _ : state)
    {
        level = level < 0.9f ? level + 0.0123f : 0.1f;
        panel.poll (juce::Time::getCurrentTime());
        panel.setInputVuMeterVisuals ({ level, 1.0f - level });
        panel.setOutputVuMeterVisuals ({ 1.0f - level, level });
        open.paint (region);
    }
}

/** From the host's call to the first picture. */
void openAndPaint (benchmark::State& state)
{
    WideLoomAudioProcessor processor;
    processor.setEditorHeight (editorHeight);
    auto image = canvas();

    for ([[maybe_unused]] auto _ : state)
    {
        const auto editor = std::make_unique<WideLoomAudioProcessorEditor> (&processor);
        juce::Graphics g (image);
        editor->paintEntireComponent (g, true);
    }
}

BENCHMARK (fullRepaint)->Unit (benchmark::kMillisecond);
BENCHMARK (groundAnew)->Unit (benchmark::kMillisecond);
BENCHMARK (metersMove)->Unit (benchmark::kMillisecond);
BENCHMARK (openAndPaint)->Unit (benchmark::kMillisecond);
} // namespace

int main (int argc, char** argv)
{
    const juce::ScopedJuceInitialiser_GUI juce;
    benchmark::Initialize (&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
