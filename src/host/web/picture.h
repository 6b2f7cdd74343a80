// The game screen as the page shows it.
#pragma once

struct Surface;

namespace web {

// Gives the drawing area to the page, unless it shows just that.
void ShowPicture(const Surface& surface);

}  // namespace web
