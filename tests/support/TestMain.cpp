// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Runs the tests of one executable with JUCE initialised, a home folder of their own, and no display but one
// that was started for them.

#include <gtest/gtest.h>
#include <juce_events/juce_events.h>

#include <cstdlib>

namespace
{
/** A fresh folder that HOME points to, so that no test reads or writes what belongs to the person running it.
 */
class ScopedHome
{
public:
    ScopedHome()
        : folder (juce::File::createTempFile ({}))
    {
        folder.createDirectory();
        ::setenv ("HOME", folder.getFullPathName().toRawUTF8(), 1);
    }

    ~ScopedHome() { folder.deleteRecursively(); }

    ScopedHome (const ScopedHome&) = delete;
    ScopedHome& operator= (const ScopedHome&) = delete;

private:
    juce::File folder;
};

/** Tests must do the same on a desktop as without one, and those that move the mouse must not move a
   person's. Where DISPLAY is empty JUCE tries display 0, which may be another test's, so it gets the name of
   none. */
void takeTestDisplay()
{
    if (const auto* display = std::getenv ("WIDELOOM_TEST_DISPLAY"))
        ::setenv ("DISPLAY", display, 1);
    else
        ::setenv ("DISPLAY", "none", 1);
}
} // namespace

int main (int argc, char** argv)
{
    testing::InitGoogleTest (&argc, argv);
    takeTestDisplay();
    const ScopedHome home;
    const juce::ScopedJuceInitialiser_GUI juce;
    return RUN_ALL_TESTS();
}
