// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What listing a folder of a thousand user presets costs, the first time and every other time.

#include <benchmark/benchmark.h>
#include <engine/ParameterTable.h>
#include <presets/UserPresetFile.h>
#include <presets/UserPresetList.h>

namespace
{
constexpr int numPresets = 1000;

/** A folder of presets that differ, in the form in which the panel saves them. */
class PresetFolder
{
public:
    PresetFolder()
        : folder (juce::File::createTempFile ({}))
    {
        folder.createDirectory();

        for (int i = 0; i < numPresets; ++i)
        {
            const auto bytes = UserPresetFile::write (preset (i), true);
            folder.getChildFile (juce::String (i) + UserPresetFile::extension)
                .replaceWithData (bytes.getData(), bytes.getSize());
        }
    }

    ~PresetFolder() { folder.deleteRecursively(); }

    PresetFolder (const PresetFolder&) = delete;
    PresetFolder& operator= (const PresetFolder&) = delete;

    const juce::File& get() const noexcept { return folder; }

private:
    static juce::ValueTree preset (int number)
    {
        juce::ValueTree tree ("Q7AudioPreset", { { "PresetName", number } });

        for (const auto& row : parameterTable)
            tree.appendChild (
                juce::ValueTree ("Parameter",
                                 { { "ParameterName", row.name }, { "Value", 1.0 / (number + 1) } }),
                nullptr);

        return tree;
    }

    juce::File folder;
};

void listNames (benchmark::State& state, UserPresetList& list, const juce::File& folder)
{
    if (list.readNames (folder).size() != numPresets)
        state.SkipWithError ("the list is not complete");
}

void thousandNewPresets (benchmark::State& state)
{
    const PresetFolder folder;

    for ([[maybe_unused]] auto _ : state)
    {
        UserPresetList list;
        listNames (state, list, folder.get());
    }
}

void thousandUnchangedPresets (benchmark::State& state)
{
    const PresetFolder folder;
    UserPresetList list;
    listNames (state, list, folder.get());

    for ([[maybe_unused]] auto _ : state)
        listNames (state, list, folder.get());
}

BENCHMARK (thousandNewPresets)->Unit (benchmark::kMillisecond);
BENCHMARK (thousandUnchangedPresets)->Unit (benchmark::kMillisecond);
} // namespace
