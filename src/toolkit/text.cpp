#include "toolkit/text.h"

#include <algorithm>
#include <sstream>
#include <string>

#include "host/files.h"
#include "toolkit/resources.h"

namespace {

constexpr int kWidestGlyph = 32;  // bits of a glyph row

Glyph CutGlyph(const Picture& sheet, At corner, int width, int height) {
    Glyph glyph;
    glyph.width = width;
    for (int y = corner.y; y < corner.y + height; ++y) {
        std::uint32_t bits = 0;
        for (int x = 0; x < width; ++x) {
            const std::size_t at = static_cast<std::size_t>(y) * static_cast<std::size_t>(sheet.width) +
                                   static_cast<std::size_t>(corner.x + x);
            if (sheet.pixels[at] != kBlack) bits |= 1u << x;
        }
        glyph.rows.push_back(bits);
    }
    return glyph;
}

bool InsideSheet(const Picture& sheet, int x, int y, int width, int height) {
    return x >= 0 && y >= 0 && width >= 0 && width <= kWidestGlyph && height > 0 && x + width <= sheet.width &&
           y + height <= sheet.height;
}

// Shown for a character the font does not have.
Glyph EmptyBox(int height) {
    Glyph box;
    box.width = std::max(height / 2, 3);
    box.advance = box.width + 1;
    const std::uint32_t full = (1u << box.width) - 1u, sides = 1u | 1u << (box.width - 1);
    for (int y = 0; y < height; ++y) {
        const bool edge = y == 1 || y == height - 2;
        box.rows.push_back(y < 1 || y > height - 2 ? 0u : edge ? full : sides);
    }
    return box;
}

// fonts/NAME.bmp holds the glyphs; fonts/NAME.txt says "height H", then "HEXCODE x y width advance" per line.
Font ReadFont(const std::string& name) {
    Font font;
    std::string reason;
    const auto table = BuiltInFile("fonts/" + name + ".txt");
    const Picture sheet = DecodePicture(BuiltInFile("fonts/" + name + ".bmp"), reason);
    std::istringstream lines(std::string(table.begin(), table.end()));
    std::string word;
    lines >> word >> font.height;
    std::uint32_t code = 0;
    int x = 0, y = 0, width = 0, advance = 0;
    while (lines >> std::hex >> code >> std::dec >> x >> y >> width >> advance) {
        if (!InsideSheet(sheet, x, y, width, font.height)) continue;
        Glyph glyph = CutGlyph(sheet, {x, y}, width, font.height);
        glyph.advance = advance;
        font.glyphs.emplace(static_cast<char32_t>(code), std::move(glyph));
    }
    font.missing = EmptyBox(std::max(font.height, 4));
    if (font.glyphs.empty()) LogLine("font " + name + ": no glyphs " + reason);
    return font;
}

// Decodes one character and moves on; a broken byte counts as one unknown character.
char32_t NextCharacter(std::string_view& text) {
    const auto first = static_cast<unsigned char>(text.front());
    const int length = first < 0x80 ? 1 : first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC0 ? 2 : 1;
    if (length == 1 || text.size() < static_cast<std::size_t>(length)) {
        text.remove_prefix(1);
        return first < 0x80 ? first : U'\uFFFD';
    }
    char32_t code = first & (0xFFu >> (length + 1));
    for (int i = 1; i < length; ++i)
        code = code << 6 | (static_cast<unsigned char>(text[static_cast<std::size_t>(i)]) & 0x3Fu);
    text.remove_prefix(static_cast<std::size_t>(length));
    return code;
}

void DrawGlyph(Surface& surface, int x, int y, const Glyph& glyph) {
    for (std::size_t row = 0; row < glyph.rows.size(); ++row) {
        std::uint32_t bits = glyph.rows[row];
        for (int column = 0; bits != 0; ++column, bits >>= 1) {
            if (bits & 1u) SetPixelV(surface, x + column, y + static_cast<int>(row), surface.ForeColor);
        }
    }
}

}  // namespace

const Font& StatusFont() {
    static const Font font = ReadFont("status");
    return font;
}

const Font& StaffFont() {
    static const Font font = ReadFont("staff");
    return font;
}

void PrintText(Surface& surface, int x, int y, std::string_view utf8) {
    const Font& font = surface.TextFont ? *surface.TextFont : StatusFont();
    while (!utf8.empty()) {
        const auto found = font.glyphs.find(NextCharacter(utf8));
        const Glyph& glyph = found == font.glyphs.end() ? font.missing : found->second;
        DrawGlyph(surface, x, y, glyph);
        x += glyph.advance;
    }
}
