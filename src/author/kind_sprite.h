// The pictures of the kinds, as they lie on their sheets.
#pragma once

#include "state/state.h"
#include "toolkit/surface.h"

// The numbered bitmap that the kind is drawn from; 0 for kinds that are never drawn. The last drawn kind has no sheet
// of its own, it is shown from the first boss's.
int SheetBitmapOf(int kind);

// One frame as 0xAARRGGBB, through its mask: where the mask is white nothing of it is seen. Empty when the frame does
// not lie on the sheet.
Picture KindSprite(const EnemyDataType& kind, int number, int frame);
