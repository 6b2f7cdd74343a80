// Tables as pictures: one pattern, one kind, a whole stage.
#pragma once

#include "author/drawing.h"
#include "author/tables.h"

// All take the kinds and patterns from `game`, which must have those of the tables. Called between two frames only.

// The way of the first kind that flies the pattern, from where it first comes in a stage; from above the middle of the
// field when it never does.
Drawing DrawPattern(const Tables& tables, int pattern);

// The frames that its pattern shows, where shots hit it, how large it explodes, its numbers.
Drawing DrawKind(const Tables& tables, int number);

// The time line of an appearance table, in rows of half a minute: above the field's width from its left edge
// downwards, with every enemy where it comes; below how long each is in sight and when it fires. Bosses count as
// beaten at once.
Drawing DrawStage(const Tables& tables, int table);
