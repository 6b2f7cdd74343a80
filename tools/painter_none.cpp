#include "painter.h"

std::optional<Painter> MakePainter(const std::vector<Touched>&, int, int) {
    return {};
}
