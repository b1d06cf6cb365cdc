// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The X headers define words such as None and Success as macros, so nothing of JUCE is included here.

#include "TestDevices.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

namespace
{
constexpr unsigned int leftButton = 1;
constexpr unsigned int wheelUp = 4;
constexpr unsigned int wheelDown = 5;
constexpr int currentScreen = -1;

KeySym symbolOf (TestDevices::Key key)
{
    switch (key)
    {
        case TestDevices::Key::returnKey:
            return XK_Return;
        case TestDevices::Key::escape:
            return XK_Escape;
        case TestDevices::Key::space:
            return XK_space;
        case TestDevices::Key::shift:
            return XK_Shift_L;
        case TestDevices::Key::control:
            return XK_Control_L;
        case TestDevices::Key::selectAll:
            return XK_a;
    }

    return NoSymbol;
}
} // namespace

struct TestDevices::Connection
{
    Display* display = XOpenDisplay (nullptr);

    ~Connection()
    {
        if (display != nullptr)
            XCloseDisplay (display);
    }

    void finish() const { XSync (display, False); }

    void setButton (unsigned int button, bool isDown) const
    {
        XTestFakeButtonEvent (display, button, isDown ? True : False, CurrentTime);
        finish();
    }

    void setSymbol (KeySym symbol, bool isDown) const
    {
        XTestFakeKeyEvent (display, XKeysymToKeycode (display, symbol), isDown ? True : False, CurrentTime);
        finish();
    }

    bool needsShift (KeySym symbol) const
    {
        int numSymbols = 0;
        auto* symbols = XGetKeyboardMapping (display, XKeysymToKeycode (display, symbol), 1, &numSymbols);
        const bool isSecond =
            symbols != nullptr && numSymbols > 1 && symbols[0] != symbol && symbols[1] == symbol;
        XFree (symbols);
        return isSecond;
    }
};

TestDevices::TestDevices()
    : connection (std::make_unique<Connection>())
{
}

TestDevices::~TestDevices() = default;

bool TestDevices::areThere() const
{
    int event = 0, error = 0, major = 0, minor = 0;
    return connection->display != nullptr
           && XTestQueryExtension (connection->display, &event, &error, &major, &minor) == True;
}

void TestDevices::movePointerTo (int x, int y)
{
    XTestFakeMotionEvent (connection->display, currentScreen, x, y, CurrentTime);
    connection->finish();
}

void TestDevices::movePointerBy (int x, int y)
{
    XTestFakeRelativeMotionEvent (connection->display, x, y, CurrentTime);
    connection->finish();
}

void TestDevices::setLeftButton (bool isDown)
{
    connection->setButton (leftButton, isDown);
}

void TestDevices::turnWheel (bool isUp)
{
    connection->setButton (isUp ? wheelUp : wheelDown, true);
    connection->setButton (isUp ? wheelUp : wheelDown, false);
}

void TestDevices::setKey (Key key, bool isDown)
{
    connection->setSymbol (symbolOf (key), isDown);
}

void TestDevices::type (const char* text)
{
    for (; *text != '\0'; ++text)
    {
        // The symbols of printable ASCII are its codes.
        const auto symbol = static_cast<KeySym> (static_cast<unsigned char> (*text));
        const bool withShift = connection->needsShift (symbol);

        if (withShift)
            connection->setSymbol (XK_Shift_L, true);

        connection->setSymbol (symbol, true);
        connection->setSymbol (symbol, false);

        if (withShift)
            connection->setSymbol (XK_Shift_L, false);
    }
}
