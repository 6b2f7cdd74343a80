#include "combat/aim.h"

#include <cmath>

void AimAtShip(EneShotType& shot, int speed, int offsetX, int offsetY) {
    const double dx = static_cast<double>(game.MyX + kShipCentre + offsetX) - shot.X;
    const double dy = static_cast<double>(game.MyY + kShipCentre + offsetY) - shot.Y;
    const double d = std::sqrt(dx * dx + dy * dy);
    shot.VX = static_cast<Single>((dx + 0.5) * speed / (d + 0.1));
    shot.VY = static_cast<Single>((dy + 0.5) * speed / (d + 0.1));
}
