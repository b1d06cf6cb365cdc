// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Lays out a menu's rows as its window would, and has the look and feel draw them.

#include "MenuPicture.h"

#include <vector>

namespace
{
constexpr int noStandardHeight = 0; ///< each row as high as its font wants it

struct Row
{
    const juce::PopupMenu::Item& item;
    juce::Rectangle<int> bounds; ///< within the menu
};

/** The menu's rows in their places; a separator at the end is left out, as in a menu's window. */
std::vector<Row> layOut (const juce::PopupMenu& menu, juce::LookAndFeel& lookAndFeel)
{
    const juce::PopupMenu::Options options;
    const int border = lookAndFeel.getPopupMenuBorderSizeWithOptions (options);
    std::vector<Row> rows;
    int menuWidth = 0;
    int y = border;

    for (juce::PopupMenu::MenuItemIterator it (menu); it.next();)
    {
        const auto& item = it.getItem();
        int width = 0, height = 0;
        lookAndFeel.getIdealPopupMenuItemSizeWithOptions (
            item.text, item.isSeparator, noStandardHeight, width, height, options);
        menuWidth = juce::jmax (menuWidth, width);
        rows.push_back ({ item, { border, y, 0, height } });
        y += height;
    }

    while (! rows.empty() && rows.back().item.isSeparator)
        rows.pop_back();

    for (auto& row : rows)
        row.bounds.setWidth (menuWidth);

    return rows;
}

juce::Rectangle<int> sizeOf (const std::vector<Row>& rows, int border)
{
    if (rows.empty())
        return {};

    return { rows.back().bounds.getRight() + border, rows.back().bounds.getBottom() + border };
}
} // namespace

juce::Rectangle<int> menuPictureSize (const juce::PopupMenu& menu, juce::LookAndFeel& lookAndFeel)
{
    return sizeOf (layOut (menu, lookAndFeel), lookAndFeel.getPopupMenuBorderSizeWithOptions ({}));
}

juce::Rectangle<int> drawMenuPicture (juce::Graphics& g,
                                      const juce::PopupMenu& menu,
                                      juce::LookAndFeel& lookAndFeel,
                                      juce::Point<int> topLeft,
                                      const juce::String& highlighted)
{
    const juce::PopupMenu::Options options;
    const auto rows = layOut (menu, lookAndFeel);
    const auto size = sizeOf (rows, lookAndFeel.getPopupMenuBorderSizeWithOptions (options));
    juce::Rectangle<int> highlightedBounds;

    const juce::Graphics::ScopedSaveState saved (g);
    g.setOrigin (topLeft);
    g.reduceClipRegion (size);
    lookAndFeel.drawPopupMenuBackgroundWithOptions (g, size.getWidth(), size.getHeight(), options);

    for (const auto& row : rows)
    {
        const bool isHighlighted = ! row.item.isSeparator && row.item.text == highlighted;

        if (isHighlighted)
            highlightedBounds = row.bounds + topLeft;

        lookAndFeel.drawPopupMenuItemWithOptions (g, row.bounds, isHighlighted, row.item, options);
    }

    return highlightedBounds;
}
