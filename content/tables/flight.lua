-- Words for movement patterns. A pattern is written as it is flown: one call after another, in frames (25.6 a second),
-- pixels per frame, and headings in degrees: 0 right, 90 down, 180 left, 270 up.
local frames = {}
for _, sprite in ipairs(include "../art/sheet.lua") do frames[sprite.name] = sprite.frames end

local pictures, pace, fixed -- the frames of the sprite, how long each is shown, the one that is held
local tick                  -- steps flown so far
local shots                 -- fire code by tick
local side = 1              -- -1 while a mirrored pattern is written

-- Begins a pattern for a sprite, whose frames follow one another every `every` steps (3).
function flight(name, sprite, every)
    pattern(name)
    pictures, pace, fixed = frames[sprite] or error("no sprite " .. sprite, 2), every or 3, nil
    tick, shots = 0, {}
end

-- The same pattern, left and right exchanged.
function mirrored(write)
    side = -1
    write()
    side = 1
end

-- Shows one frame from here on; without a number the frames run again.
function show(frame) fixed = frame end

-- Fires `code` in the given frames, counted from here, whatever is being flown then.
function arm(code, ...)
    for _, at in ipairs { ... } do shots[tick + at] = code end
end

-- One frame.
local function move(dx, dy)
    local frame = fixed or tick // pace % pictures
    step { DX = side * dx, DY = dy, Anime = frame, Flag = shots[tick] or "move" }
    tick = tick + 1
end

function fly(n, dx, dy)
    for _ = 1, n do move(dx, dy) end
end

function hold(n) fly(n, 0, 0) end

-- A straight line along a heading.
function head(n, speed, heading)
    local a = math.rad(heading)
    fly(n, speed * math.cos(a), speed * math.sin(a))
end

-- From one velocity to another, evenly.
function ease(n, dx0, dy0, dx1, dy1)
    for i = 1, n do
        local t = (i - 0.5) / n
        move(dx0 + (dx1 - dx0) * t, dy0 + (dy1 - dy0) * t)
    end
end

-- An arc: the heading turns evenly. The radius is n * speed / the angle in radians.
function turn(n, speed, from, to, driftX, driftY)
    for i = 1, n do
        local a = math.rad(from + (to - from) * (i - 0.5) / n)
        move(speed * math.cos(a) + (driftX or 0), speed * math.sin(a) + (driftY or 0))
    end
end

-- Waves about a straight line: `width` pixels to either side, `period` frames from crest to crest.
function weave(n, dx, dy, width, period, upright)
    local function offset(i) return width * math.sin(2 * math.pi * i / period) end
    for i = 1, n do
        local swing = offset(i) - offset(i - 1)
        if upright then move(dx, dy + swing) else move(dx + swing, dy) end
    end
end

-- Fires in one frame of its own.
function fire(code, dx, dy)
    step { DX = side * (dx or 0), DY = dy or 0, Flag = code }
    tick = tick + 1
end

-- `times` shots, `gap` still frames after each.
function burst(code, times, gap)
    for _ = 1, times do
        fire(code)
        hold(gap)
    end
end

-- A place to come back to, and the way back. The first step after the place gives only its movement then: no shot
-- there. `again` does not nest.
function mark() return next_step() end
function again(place, times) step { DX = place, DY = times, Flag = "repeat" } end
function for_ever(place) step { DX = place, Flag = "jump" } end

-- `n` frames of straight flight, or of standing still, in two steps; and `times` shots with `gap` still frames before
-- each in gap + 2 steps. All are built on `again`: they cannot stand between a `mark` and its `again`, only in patterns
-- that go round `for_ever`. Nothing that was armed goes off in them.
function cruise(n, dx, dy)
    local place = mark()
    fly(1, dx, dy)
    again(place, n - 1) -- and one frame without movement, when the repeat is used up
end
function stand(n) cruise(n - 1, 0, 0) end
function salvo(code, times, gap)
    local place = mark()
    hold(gap)
    fire(code)
    again(place, times - 1)
end

function leave() step { Flag = "end" } end
