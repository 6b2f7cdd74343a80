// The pictures of the enemy kinds, for the bench's window.
#pragma once

#include <QtGui/QImage>

#include "state/state.h"

namespace bench_window {

// The sheet that the kind is drawn from.
const QImage& SheetOf(int number);

// The kind's sprite in that frame, cut out of its sheet by its mask. Null where there is none.
QImage SpriteOf(const EnemyDataType& kind, int number, int frame);

// Frame 0 to 5 of the explosion of that type; null where there is none.
QImage ExplosionOf(int bomType, int frame);

}  // namespace bench_window
