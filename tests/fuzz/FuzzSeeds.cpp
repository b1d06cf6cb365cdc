// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Writes the seed corpus: the program's own preset files and session blocks.
//
//  wideloom_fuzz_seeds FOLDER fills FOLDER/user_preset, FOLDER/session_block and FOLDER/chunk.

#include <engine/WideLoomAudioProcessor.h>
#include <presets/UserPresetFile.h>

#include <cstdlib>

namespace
{
bool writeSeed (const juce::File& folder, int number, const char* form, const juce::MemoryBlock& bytes)
{
    return folder.createDirectory().wasOk()
           && folder.getChildFile (juce::String (number) + form)
                  .replaceWithData (bytes.getData(), bytes.getSize());
}
/** As the chunk target reads it: which chunk, and its body. */
juce::MemoryBlock chunkOfSettings (const juce::MemoryBlock& session)
{
    juce::MemoryBlock chunk ("j", 1);
    chunk.append (session.getData(), session.getSize());
    return chunk;
}
} // namespace

int main (int argc, char** argv)
{
    if (argc != 2)
        return EXIT_FAILURE;

    const auto folder = juce::File::getCurrentWorkingDirectory().getChildFile (argv[1]);
    const auto home = juce::File::createTempFile ({});
    home.createDirectory();
    ::setenv ("HOME", home.getFullPathName().toRawUTF8(), 1);

    bool written = true;

    {
        const juce::ScopedJuceInitialiser_GUI juce;
        WideLoomAudioProcessor processor;

        for (int id = 0; id < processor.getAllFactoryPresetNames().size(); ++id)
        {
            processor.loadFactoryPresetUndoableWithID (id);
            auto tree = processor.getCurrentPresetValueTree().createCopy();
            processor.addAdditionalInfosToValueTree (&tree);

            juce::MemoryBlock session;
            processor.getStateInformation (session);

            const auto presets = folder.getChildFile ("user_preset");
            written = written && writeSeed (presets, id, "-plain", UserPresetFile::write (tree, false))
                      && writeSeed (presets, id, "-compressed", UserPresetFile::write (tree, true))
                      && writeSeed (folder.getChildFile ("session_block"), id, "", session)
                      && writeSeed (folder.getChildFile ("chunk"), id, "", chunkOfSettings (session));
        }
    }

    constexpr char controls[] = "e\1\1\1\1l_bypa\0\0\0\0\0\1";
    constexpr char transport[] = "m\1\1\1\1l_Instance ID\0\0\0\0\0\0\2";
    const auto chunks = folder.getChildFile ("chunk");
    written = written && writeSeed (chunks, 0, "-controls", { controls, sizeof (controls) - 1 })
              && writeSeed (chunks, 0, "-transport", { transport, sizeof (transport) - 1 });

    home.deleteRecursively();
    return written ? EXIT_SUCCESS : EXIT_FAILURE;
}
