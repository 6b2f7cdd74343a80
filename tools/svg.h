// Drawings as SVG.
#pragma once

#include <string>

#include "author/drawing.h"

// `scale` in pixels of the picture for one of the drawing; lines and letters keep their size.
std::string SvgOf(const Drawing& drawing, float scale);
