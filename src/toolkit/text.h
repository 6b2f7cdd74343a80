// Text on surfaces, from glyphs that are part of the program, so that it looks the same everywhere.
#pragma once

#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

#include "toolkit/surface.h"

struct Glyph {
    int width = 0;
    int advance = 0;
    std::vector<std::uint32_t> rows;  // bit 0 = leftmost pixel
};

struct Font {
    int height = 0;
    std::map<char32_t, Glyph> glyphs;
    Glyph missing;  // an empty box, shown for a character the font does not have
};

// The font of the game screen and that of the staff roll. Built once, at first use.
const Font& StatusFont();
const Font& StaffFont();

// Draws UTF-8 text with its top-left corner at (x, y), in the surface's text colour and font; the pixels between the
// letters stay. Clipped to the surface. A character the font does not have shows as an empty box.
void PrintText(Surface& surface, int x, int y, std::string_view utf8);
