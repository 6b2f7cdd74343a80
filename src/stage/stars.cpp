#include "stage/stars.h"

#include "state/main_form.h"
#include "state/random.h"
#include "state/state.h"
#include "toolkit/surface.h"

namespace {

constexpr int kBottomRow = 480;  // one row below the drawing area, like column 320: clipped by the surface

void Wrap(StarType& star, int row) {
    star.Y = static_cast<Integer>(row);
    star.X = static_cast<Integer>(RndInt(321));
}

void MoveStar(StarType& star) {
    if (game.StarReverse == True) {
        star.Y = static_cast<Integer>(star.Y - star.Speed);
        if (star.Y < 0) Wrap(star, kBottomRow);
    } else {
        star.Y = static_cast<Integer>(star.Y + star.Speed);
        if (star.Y > kBottomRow) Wrap(star, 0);
    }
}

}  // namespace

void MoveStars() {
    for (int i = 0; i <= game.StarMax; ++i) {
        StarType& star = game.Star[i];
        SetPixelV(MainForm.Crt, star.X, star.Y, kWhite);
        MoveStar(star);
    }
}
