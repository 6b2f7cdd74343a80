-- Words for appearance tables. A stage is written along a time line: `wait` moves the time on, everything else is put
-- down at the time reached, so two groups without a wait between them come together. Frames: 25.6 a second.
local ROSTER = include "roster.lua"
local SPRITES = {}
for _, sprite in ipairs(include "../art/sheet.lua") do SPRITES[sprite.name] = sprite end

local kinds = {} -- by name: size and hit points
for _, enemy in ipairs(ROSTER) do
    local sprite = SPRITES[enemy.sprite]
    kinds[enemy.name] = { w = sprite.w, h = sprite.h, hp = enemy.hp }
end

WIDTH, HEIGHT = 320, 480
RANDOM = 700 -- as an X: anywhere

local now, written = 0, 0 -- the time reached, and the time of the last entry
local pending = {}        -- what comes between the two

local function kind_of(name) return kinds[name] or error("no kind " .. tostring(name), 3) end

-- Into the table, in the order of time.
local function flush()
    table.sort(pending, function(a, b)
        if a.time ~= b.time then return a.time < b.time end
        return a.order < b.order
    end)
    for _, s in ipairs(pending) do
        entry { X = s.x, Y = s.y, No = s.kind, Counter = s.time - written, Power = s.hp, from = s.from }
        written = s.time
    end
    pending = {}
end

-- Everything so far, and a pause for the rest of the time: commands take no account of their own Counter.
local function settle()
    flush()
    if now > written then entry { No = "pass", Counter = now - written } end
    written = now
end

local function command(name)
    settle()
    entry { No = name }
end

function wait(n) now = now + n end

-- Names what comes from here on, for charts.
local before = 0 -- frames that repeats have added to the time line
function passage(name) name_passage(now + before, name) end

-- Waits until the last enemy put down so far has come.
function rest()
    for _, s in ipairs(pending) do now = math.max(now, s.time) end
end

function seconds(s) return math.floor(s * 25.6 + 0.5) end

-- One enemy by the middle of its sprite; above the field if no y (of its top edge) is given. `later` frames from now.
function spawn(name, x, y, later, hp)
    local kind = kind_of(name)
    local left = x == RANDOM and RANDOM or x - kind.w // 2
    pending[#pending + 1] = {
        time = now + (later or 0), order = #pending, kind = name,
        x = left, y = y or -kind.h, hp = hp or kind.hp, from = here(),
    }
end

-- A new kind, by itself: what came before has entered a while ago, and the next comes a while later.
function introduce(name, x, y, after)
    rest()
    wait(26)
    spawn(name, x, y)
    wait(after or 28)
end

-- One after another from the same place.
function stream(name, n, x, gap, y)
    for i = 0, n - 1 do spawn(name, x, y, i * (gap or 0)) end
end

-- One after another, each `dx` further on.
function stairs(name, n, x, dx, gap, y)
    for i = 0, n - 1 do spawn(name, x + i * dx, y, i * (gap or 0)) end
end

-- All at once, side by side, about the middle `x`.
function row(name, n, x, dx, y)
    for i = 0, n - 1 do spawn(name, x + (i - (n - 1) / 2) * dx, y) end
end

-- A rank over the whole width.
function rank(name, n) row(name, n, WIDTH / 2, 280 / (n - 1)) end

-- One at either edge: the posts of a gate.
function posts(name) row(name, 2, WIDTH / 2, 276) end

-- A wedge: the leader, then a pair every `gap` frames.
function vee(name, pairs_behind, x, dx, gap)
    spawn(name, x)
    for i = 1, pairs_behind do
        spawn(name, x - i * dx, nil, i * (gap or 0))
        spawn(name, x + i * dx, nil, i * (gap or 0))
    end
end

-- Left and right in turn.
function zip(name, n, left, right, gap, y)
    for i = 0, n - 1 do spawn(name, i % 2 == 0 and left or right, y, i * (gap or 0)) end
end

-- A kind and its mirror image from both sides at once: `x` is the distance from either edge.
function both(left, right, n, x, gap, y)
    stream(left, n, x, gap, y)
    stream(right, n, WIDTH - x, gap, y)
end

-- A barrier across the field with one gap about `gap_x`, wide enough for the ship.
function wall(name, gap_x)
    local step = kind_of(name).w + 4
    for x = step // 2, WIDTH - step // 2, step do
        if math.abs(x - gap_x) > 44 then spawn(name, x) end
    end
end

-- A swarm: `n` one after another over the width (of 270 pixels), so that no two in a row come down the same lane.
local LANES = { 0, -40, 36, -20, 20, -50, 48, -8, 12, -30, 42, -44, 28, -14, 6, 50, -36, 16 } -- hundredths
function swarm(name, n, gap, width)
    for i = 0, n - 1 do
        spawn(name, (WIDTH + LANES[i % #LANES + 1] * (width or 270) / 50) // 2, nil, i * gap)
    end
end

-- From anywhere.
function rain(name, n, gap)
    for i = 0, n - 1 do spawn(name, RANDOM, nil, i * (gap or 0)) end
end

-- From the sides: the left edge is just outside the field.
function from_left(name, n, y, gap)
    for i = 0, n - 1 do spawn(name, -kind_of(name).w // 2, y, i * (gap or 0)) end
end
function from_right(name, n, y, gap)
    for i = 0, n - 1 do spawn(name, WIDTH + kind_of(name).w // 2, y, i * (gap or 0)) end
end

-- What `write` puts down, `n` times in all. The table holds it once, so long stages fit; it must begin with an enemy,
-- because a command that is jumped to is passed over.
function repeated(n, write)
    settle()
    local first, begun = next_entry(), now
    write()
    settle()
    entry { No = "repeat", X = first, Y = n - 1, Power = n - 1 }
    before = before + (n - 1) * (now - begun)
end

-- Boss music, the boss, and the wait for its end, with which the music ends.
function boss(name)
    command "boss_entry"
    last_boss(name, "boss_wait_stop")
end
-- A boss with another one to follow, under the same music.
function first_boss(name)
    command "boss_entry"
    last_boss(name, "boss_wait")
end
function last_boss(name, command_after)
    spawn(name, WIDTH / 2, nil, 20)
    wait(20)
    command(command_after or "boss_wait_stop")
end

-- The end of a stage: the smoke clears, the clear music is heard, the next stage comes.
function clear()
    wait(60)
    command "clear"
    wait(seconds(6))
    command "next_stage"
end
