// What is built into the program: the numbered bitmaps, the pictures of the window's design, the fonts.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/surface.h"

// The bytes of a built-in file, by its name under assets/ ("pictures/101.bmp"). Empty when there is no such file.
std::span<const std::uint8_t> BuiltInFile(std::string_view name);

// The names of all that begin so ("released/").
std::vector<std::string_view> BuiltInNames(std::string_view start);

// Decodes a BMP or GIF image (the first frame). On failure the picture is empty and `reason` says why; images over
// 4096 x 4096 are refused.
Picture DecodePicture(std::span<const std::uint8_t> bytes, std::string& reason);

// Bitmap resource by number (those there are stand in state/bitmaps.h). Decoded once and kept. One that is missing
// or broken is an empty picture and one line in the log.
const Picture& LoadResPicture(int number);

// Picture of the window's design, by file name ("Chr.bmp").
const Picture& DesignPicture(std::string_view fileName);
