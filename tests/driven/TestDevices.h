// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Mouse and keyboard of the X server, moved by the XTest extension: what a program sees is what a person's
// would give.

#pragma once

#include <memory>

/** A connection of its own to the display that the environment names. Every call is done when the server has
   done it; a program that listens has the events then in its queue. */
class TestDevices
{
public:
    enum class Key
    {
        returnKey,
        escape,
        space,
        shift,
        control,
        selectAll ///< the letter that does so together with control
    };

    TestDevices();
    ~TestDevices();

    TestDevices (const TestDevices&) = delete;
    TestDevices& operator= (const TestDevices&) = delete;

    /** False where there is no display, or none with XTest; nothing else may be called then. */
    bool areThere() const;

    /** Pixels of the whole screen. */
    void movePointerTo (int x, int y);
    void movePointerBy (int x, int y);

    void setLeftButton (bool isDown);

    /** One notch, away from the person or towards them. */
    void turnWheel (bool isUp);

    void setKey (Key key, bool isDown);

    /** Types printable ASCII, with Shift where the keyboard needs it. */
    void type (const char* text);

private:
    struct Connection;
    std::unique_ptr<Connection> connection;
};
