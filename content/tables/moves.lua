-- The movement patterns, in the order of roster.lua.
include "flight.lua"

-- Scouts ------------------------------------------------------------------------------------------------------------

flight("dive", "scout_dart")
ease(20, 0, 3, 0, 6)
fly(72, 0, 6)
leave()

flight("weave", "scout_wasp", 2)
arm(1, 20, 46, 72)
weave(146, 0, 3.5, 44, 48)
leave()

local function arc()
    arm(1, 12, 28, 44)
    fly(20, 0, 5.5)
    turn(38, 5.5, 90, 0)
    fly(46, 5.5, 0)
    leave()
end
flight("arc_right", "scout_disc")
arc()

-- Down, through the turn in the lower half, and up again on the other side.
local function swoop()
    arm(5, 14, 32, 50)
    head(40, 6.5, 75)
    turn(34, 6, 75, -75)
    head(62, 6.5, -75)
    leave()
end
flight("swoop_right", "scout_sickle")
swoop()

flight("hover_dive", "scout_needle", 2)
ease(20, 0, 6, 0, 1)
hold(18)
fire(2)
ease(12, 0, -1, 0, 13)
fly(30, 0, 13)
leave()

-- Fighters ----------------------------------------------------------------------------------------------------------

flight("stop_shoot", "fighter_talon")
ease(26, 0, 8, 0, 1)
hold(8)
burst(1, 3, 11)
ease(45, 0, -0.5, 0, -9)
leave()

flight("wide_weave", "fighter_manta", 4)
arm(5, 14, 38, 62)
weave(128, 0, 4, 84, 72)
leave()

flight("loop", "fighter_cross", 2)
fly(34, 0, 5)
arm(1, 2, 12, 24, 36)
turn(48, 6, 90, -270)
fly(60, 0, 6)
leave()

local function crossing()
    arm(2, 14, 30, 46, 62, 78)
    weave(92, 4, 0, 16, 46, true)
    leave()
end
flight("cross_right", "fighter_kite")
crossing()

local function split()
    fly(26, 0, 6)
    arm(1, 2, 16)
    turn(24, 6, 90, 165)
    head(46, 6, 165)
    leave()
end
flight("split_left", "fighter_fang")
split()

-- Mines and turrets -------------------------------------------------------------------------------------------------

flight("drift_ring", "mine_spike", 5)
arm(3, 40, 100)
fly(227, 0, 2.25)
leave()

flight("zigzag", "mine_orb", 4)
arm(1, 20, 36, 52, 68, 84)
arm(4, 104) -- whoever lets it live that long
for _ = 1, 4 do
    fly(22, 3, 2.6)
    fly(22, -3, 2.6)
end
fly(24, 0, 2.6)
leave()

flight("star_fall", "mine_star", 2)
arm(3, 48, 96)
fly(205, 0, 2.5)
leave()

-- Fixed to the ground: the background comes down by 2 a frame.
flight("ground_aim", "turret_dome", 8)
arm(1, 24, 44, 64, 84, 104, 124, 144)
fly(254, 0, 2)
leave()

flight("spiral", "mine_gyre", 2)
arm(3, 75, 135)
for _ = 1, 6 do turn(36, 5, 0, 360, 0, 2.35) end
leave()

-- Bombers -----------------------------------------------------------------------------------------------------------

flight("bomb_run", "bomber_rack", 4)
arm(2, 20, 36, 52, 68, 84, 100)
fly(122, 3, 0.4)
leave()

flight("hover_sway", "bomber_beetle", 4)
ease(30, 0, 6, 0, 0.5)
local place = mark()
arm(5, 8, 16, 24, 56, 64, 72)
arm(2, 32, 80)
weave(96, 0, 0, 60, 96)
again(place, 1)
ease(60, 0, 0.5, 0, 13)
leave()

flight("flutter", "bomber_moth", 2)
arm(1, 16, 26, 46, 76, 86)
arm(6, 60)
weave(150, 0, 3.6, 60, 40)
leave()

flight("ground_ring", "turret_quad", 8)
arm(3, 60, 140)
arm(5, 30, 100)
arm(10, 50, 84, 120)
fly(254, 0, 2.1)
leave()

flight("anchor", "mine_ring", 4)
ease(32, 0, 8, 0, 0.5)
burst(5, 3, 6)
hold(10)
fire(3)
hold(20)
burst(5, 3, 6)
hold(20)
fire(4) -- the same here
hold(24)
ease(40, 0, -0.5, 0, -10)
leave()

-- From below, along the edge, over the top and down on the ship.
local function rear()
    fly(62, 0, -6.5)
    arm(10, 32, 44)
    turn(30, 6, -90, 90)
    fly(72, 0, 6)
    leave()
end
flight("rear_left", "fighter_lance")
rear()

flight("stop_volley", "turret_iris", 4)
ease(30, 0, 6, 0, 0.5)
hold(12)
burst(10, 5, 12)
ease(45, 0, -0.5, 0, -8)
leave()

flight("carpet", "bomber_slug", 6)
arm(2, 30, 44, 58, 72, 100, 114, 128, 142)
arm(10, 60)
weave(212, 0, 2.5, 50, 106)
leave()

-- Carriers and the heavy ones ---------------------------------------------------------------------------------------

flight("sidle", "carrier_crab", 5)
for _, code in ipairs { 5, 9, 5 } do
    fly(22, 4, 0)
    hold(6)
    burst(code, code == 9 and 1 or 4, 3)
    hold(4)
end
fly(32, 4, 0)
leave()

flight("barge", "carrier_barge", 6)
ease(40, 0, 7, 0, 0.5)
place = mark()
arm(10, 24, 72)
arm(2, 8, 40, 56, 88)
weave(96, 0, 0, 66, 96)
again(place, 3)
ease(60, 0, 0.5, 0, 12)
leave()

flight("swarm", "carrier_hive", 6)
ease(40, 0, 7, 0, 0.5)
place = mark()
hold(16)
burst(1, 5, 3)
hold(16)
burst(5, 5, 3)
hold(16)
fire(6)
hold(16)
again(place, 2)
ease(60, 0, -0.5, 0, -8)
leave()

flight("patrol", "bomber_fortress", 8)
ease(40, 0, 7, 0, 0.5)
place = mark()
arm(10, 14, 62, 110)
arm(5, 30, 38, 46, 78, 86, 94)
arm(3, 120)
weave(128, 0, 0, 60, 128)
again(place, 2)
ease(60, 0, -0.5, 0, -8)
leave()

flight("bastion", "turret_citadel", 8)
ease(40, 0, 8, 0, 0.5)
place = mark()
hold(20)
burst(3, 3, 14)
weave(48, 0, 0, 50, 48)
fire(7)
hold(10)
again(place, 2)
ease(60, 0, -0.5, 0, -8)
leave()

-- From the other side -----------------------------------------------------------------------------------------------

flight("arc_left", "scout_disc")
mirrored(arc)
flight("swoop_left", "scout_sickle")
mirrored(swoop)
flight("cross_left", "fighter_kite")
mirrored(crossing)
flight("split_right", "fighter_fang")
mirrored(split)
flight("rear_right", "fighter_lance")
mirrored(rear)

-- Aces --------------------------------------------------------------------------------------------------------------

-- Dives, breaks off, and dives again.
flight("feint", "scout_halberd")
fly(30, 0, 7)
turn(24, 5, 90, -90)
arm(1, 10)
turn(24, 5, -90, -270)
fly(60, 0, 9)
leave()

-- From below, weaving.
flight("climb", "scout_wasp", 2)
arm(5, 84)
weave(104, 0, -5, 36, 52)
leave()

flight("two_stops", "fighter_talon")
ease(22, 0, 7, 0, 1)
burst(1, 2, 8)
turn(26, 5, 20, -20)
burst(5, 2, 8)
ease(50, 0, 1, 0, 11)
leave()

-- A wide circle about the middle of the field.
flight("orbit", "fighter_manta", 4)
fly(30, 0, 6)
place = mark()
arm(5, 40, 60)
turn(88, 6, 90, -270)
again(place, 1)
fly(56, 0, 6)
leave()

-- Bosses ------------------------------------------------------------------------------------------------------------

-- Claws open (frame 1) means fire.
flight("pincer", "boss_pincer")
show(0)
ease(40, 0, 7, 0, 0)
place = mark()
local sway = mark()
for at = 6, 96, 15 do arm(5, at) end -- sways twice and aims
arm(2, 34, 70)
weave(100, 0, 0, 90, 100)
again(sway, 1)
stand(16)
show(1)                              -- stands and bursts
salvo(3, 3, 16)
show(0)
stand(12)
salvo(1, 10, 2)                      -- a stream of aimed shots
stand(20)
ease(18, 0, 0, 0, 9)                 -- lunges
show(1)
fire(9)
stand(14)
show(0)
ease(36, 0, -4.5, 0, 0)
stand(12)
for_ever(place)

-- Stares and sprays, swings round, lets seekers out, blinks rings.
flight("eye", "boss_eye")
cruise(34, 0, 5)
ease(10, 0, 5, 0, 0)
place = mark()
for at = 6, 76, 7 do arm(1, at) end
weave(80, 0, 0, 70, 80)
stand(10)
salvo(8, 2, 30)
arm(2, 6, 14, 22, 30, 38, 46, 54)
turn(60, 5, 0, 360)
stand(10)
salvo(5, 10, 2)
stand(10)
fire(6)
stand(30)
salvo(10, 2, 16)
stand(12)
salvo(3, 4, 13)
stand(26)
for_ever(place)

-- As wide as the field: it hardly moves, its guns do. Trails from port and starboard, bow guns, rings, a ram with
-- everything the small guns have, and mines left behind.
flight("dreadnought", "boss_dreadnought")
show(0)
cruise(44, 0, 4)
ease(12, 0, 4, 0, 0)
place = mark()
salvo(9, 1, 18)
salvo(11, 1, 18)
stand(24)
show(1)
sway = mark()
arm(10, 12, 24, 36, 48, 60)
weave(60, 0, 0, 9, 30)
again(sway, 1)
show(0)
stand(20)
salvo(3, 7, 14)
stand(20)
arm(1, 4, 8, 12, 16)
ease(20, 0, 0, 0, 4)
salvo(5, 12, 3)
fire(4)
ease(20, 0, -4, 0, 0)
salvo(1, 12, 2)
stand(36)
for_ever(place)

-- The pincer again, faster: a curtain of drops, trails from open claws, and a dive out of the sky.
flight("avenger", "boss_pincer")
show(0)
ease(40, 0, 8, 0, 0)
place = mark()
sway = mark()
for at = 2, 54, 4 do arm(2, at) end
weave(56, 0, 0, 104, 56)
again(sway, 1)
show(1)
stand(8)
salvo(9, 2, 16)
show(0)
stand(10)
salvo(10, 3, 10)
ease(24, 0, 0, 0, -18)         -- away
stand(68)
ease(24, 0, 18, 0, 0)          -- and back
show(1)
salvo(3, 2, 14)
show(0)
stand(16)
for_ever(place)
