// A drawing as data: what the bench's pictures show, in the order in which it is drawn. Places are pixels of the
// playfield, (0, 0) its upper left corner; whoever shows it chooses scale and window or file.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "state/state.h"
#include "toolkit/surface.h"

struct DrawnPoint {
    float x;
    float y;
};

// How strongly something is seen: 1 covers what lies under it.
struct Ink {
    Color color = kWhite;
    float strength = 1;
};

// A line from point to point.
struct DrawnLine {
    std::vector<DrawnPoint> points;
    Ink ink;
    float width = 1;  // pixels of the screen, whatever the scale
    bool dashed = false;
};

struct DrawnBox {
    DrawnPoint corner;
    float width;
    float height;
    Ink fill{kBlack, 0};
    Ink edge{kWhite, 0};
    bool dashed = false;
};

struct DrawnDot {
    DrawnPoint middle;
    float radius;  // pixels of the screen, whatever the scale
    Ink ink;
    bool hollow = false;
};

// Text of a fixed size beside a point.
struct DrawnText {
    DrawnPoint place;  // of the text's left end, half its height up
    std::string text;
    Ink ink;
    bool small = false;
};

// A kind's picture in one of its animation frames.
struct DrawnSprite {
    DrawnPoint corner;
    EnemyDataType kind;
    int number;  // the kind's
    int frame;
    float strength = 1;
};

using Shape = std::variant<DrawnLine, DrawnBox, DrawnDot, DrawnText, DrawnSprite>;

struct Drawing {
    DrawnPoint corner;  // of the part of the plane that is shown
    float width;
    float height;
    std::vector<Shape> shapes;
};
