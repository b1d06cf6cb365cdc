#!/usr/bin/python3
# SPDX-FileCopyrightText: The WideLoom authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the editor's two faces from Noto Sans Display, as Debian 12 packages it.

    apt-get install python3-fonttools fonts-noto-extra
    resources/fonts/make-faces.py

The captions have to stand in one line on buttons whose size the layout fixes, down to the smallest
window. The narrowest cuts of the family are too wide for that, so the faces are narrowed further, from
a bolder weight, as that makes the stems thinner; and cut down to the letters that a caption or a name
can have. The result has a name of its own.
"""

import pathlib

from fontTools.pens.recordingPen import DecomposingRecordingPen
from fontTools.pens.transformPen import TransformPen
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.subset import Options, Subsetter
from fontTools.ttLib import TTFont

SOURCE_FOLDER = pathlib.Path("/usr/share/fonts/truetype/noto")
FACES = {
    "kenyan_coffee_rg.ttf": ("NotoSansDisplay-ExtraCondensedSemiBold.ttf", "Regular"),
    "kenyan_coffee_rg_it.ttf": ("NotoSansDisplay-ExtraCondensedSemiBoldItalic.ttf", "Italic"),
}
FAMILY = "WideLoom Display"
WIDTH = 0.7

# Latin, Greek, Cyrillic, Vietnamese, punctuation, currency and letter-like signs.
RANGES = [(0x20, 0x7E), (0xA0, 0x52F), (0x1E00, 0x1EFF), (0x2000, 0x206F), (0x20A0, 0x20BF),
          (0x2100, 0x214F)]

# The rows of a font's table of names.
COPYRIGHT, FAMILY_NAME, STYLE_NAME, UNIQUE_NAME, FULL_NAME, VERSION, POSTSCRIPT_NAME = range(7)
LICENCE, LICENCE_URL = 13, 14


def cut_down(font):
    options = Options()
    options.hinting = False
    options.layout_features = []
    options.drop_tables += ["GPOS", "GSUB", "GDEF"]
    options.notdef_outline = True
    options.name_IDs = ["*"]
    subsetter = Subsetter(options)
    subsetter.populate(unicodes=[c for low, high in RANGES for c in range(low, high + 1)])
    subsetter.subset(font)


def narrow(font):
    glyphs, outlines = font.getGlyphSet(), {}
    for name in font.getGlyphOrder():
        recording, pen = DecomposingRecordingPen(glyphs), TTGlyphPen(None)
        glyphs[name].draw(recording)
        recording.replay(TransformPen(pen, (WIDTH, 0, 0, 1, 0, 0)))
        outlines[name] = pen.glyph()
    for name, outline in outlines.items():
        font["glyf"][name] = outline
        outline.recalcBounds(font["glyf"])
        advance = round(font["hmtx"][name][0] * WIDTH)
        font["hmtx"][name] = (advance, getattr(outline, "xMin", 0))
    font["OS/2"].xAvgCharWidth = round(font["OS/2"].xAvgCharWidth * WIDTH)


def rename(font, style):
    names = font["name"]
    kept = {i: str(names.getName(i, 3, 1, 0x409)) for i in (COPYRIGHT, VERSION, LICENCE, LICENCE_URL)}
    names.names = []
    postscript = FAMILY.replace(" ", "") + "-" + style
    for i, text in {**kept, FAMILY_NAME: FAMILY, STYLE_NAME: style, FULL_NAME: f"{FAMILY} {style}",
                    UNIQUE_NAME: postscript, POSTSCRIPT_NAME: postscript}.items():
        names.setName(text, i, 3, 1, 0x409)


def main():
    for target, (source, style) in FACES.items():
        font = TTFont(SOURCE_FOLDER / source, recalcTimestamp=False)
        cut_down(font)
        narrow(font)
        rename(font, style)
        font.save(pathlib.Path(__file__).parent / target)


if __name__ == "__main__":
    main()
