-- Stage 1. The patrol line: an enemy in good order. Ranks, columns and wedges, mirrored left and right; each new
-- machine shows itself alone before it comes in line.
-- Swarms of scouts over the width call for the spread, tough machines by one or two for the forward shot: the note of
-- each passage says which (S, F).
include "waves.lua"

wait(seconds(1.2)) -- the banner

-- 1 S. Darts: in stairs, in ranks
passage "1 S Darts"
introduce("dart", 96)
stairs("dart", 8, 40, 34, 4)
wait(26)
stairs("dart", 8, 280, -34, 4)
wait(26)
rank("dart", 7)
wait(28)
rank("dart", 8)
wait(28)
swarm("dart", 14, 5)
rest()

-- 2 F. Talons: they stop and aim; kill them before they do
passage "2 F Talons"
introduce("talon", 160)
spawn("talon", 50)
wait(34)
spawn("talon", 270)
wait(34)
row("talon", 2, 160, 220)
wait(16)
rank("dart", 7)
wait(30)

-- 3 S. Wasps: weaving columns
passage "3 S Wasps"
introduce("wasp", 160)
zip("wasp", 10, 90, 230, 5)
wait(30)
swarm("wasp", 14, 5, 190)
wait(50)
rank("dart", 7)
wait(24)
swarm("wasp", 11, 5, 190)
rest()

-- 4 F. The gate: spikes that drift down and burst
passage "4 F The gate"
introduce("spike", 160)
row("spike", 2, 160, 230)
wait(36)
spawn("talon", 270)
wait(40)
row("spike", 2, 160, 140)
wait(20)
zip("wasp", 6, 90, 230, 6)
wait(40)

-- 5 S. Discs, from both sides at once
passage "5 S Discs"
introduce("disc", 40)
both("disc", "disc_l", 7, 50, 7)
wait(44)
both("disc", "disc_l", 6, 90, 7)
wait(36)
rank("dart", 7)
wait(28)
rank("dart", 8)
wait(24)

-- 6 F. Domes on the ground
passage "6 F Domes on the ground"
introduce("dome", 110)
row("dome", 2, 190, 150)
wait(50)
row("dome", 2, 150, 220)
wait(20)
rank("dart", 7)
spawn("talon", 160)
wait(40)

-- 7 S. Sickles: down, round the ship and up again
passage "7 S Sickles"
introduce("sickle", 60)
both("sickle", "sickle_l", 6, 50, 7)
wait(40)
swarm("wasp", 11, 6, 190)
wait(36)
both("sickle", "sickle_l", 5, 90, 7)
wait(40)

-- 8 F. Mantas, wide and tough
passage "8 F Mantas"
introduce("manta", 160)
spawn("manta", 90)
wait(36)
spawn("manta", 230)
wait(36)
row("manta", 2, 160, 140)
wait(40)
rank("dart", 8)
wait(10)

-- 9 S. Kites across, fangs breaking out of the middle
passage "9 S Kites across"
introduce("kite", -16, 70)
from_left("kite", 6, 70, 7)
from_right("kite_l", 6, 110, 7)
wait(20)
rank("dart", 7)
wait(16)
introduce("fang", 144)
both("fang", "fang_r", 7, 134, 6)
wait(44)
swarm("dart", 14, 5)
rest()

-- 10 F. Crosses: they loop, ringed with shots
passage "10 F Crosses"
introduce("cross", 160)
row("cross", 2, 115, 170)
wait(44)
spawn("cross", 60)
wait(30)
spawn("cross", 190)
zip("wasp", 6, 90, 230, 6)
wait(40)

-- 11 S. The line closes up: all scouts
passage "11 S The line closes up"
both("sickle", "sickle_l", 5, 50, 7)
wait(36)
swarm("wasp", 12, 5, 190)
wait(46)
both("disc", "disc_l", 5, 60, 8)
wait(36)
swarm("dart", 16, 5)
wait(60)
rank("dart", 8)
wait(28)
rank("dart", 7)
wait(28)
rank("dart", 8)
rest()

-- 12 F. Beetles, bombers with escorts
passage "12 F Beetles"
introduce("beetle", 160)
spawn("beetle", 80)
wait(46)
spawn("beetle", 240)
wait(50)
row("manta", 2, 160, 60)
wait(50)
spawn("beetle", 160)
wait(36)
both("fang", "fang_r", 6, 134, 6)
wait(30)
swarm("wasp", 11, 6, 190)
rest()

wait(seconds(1)) -- breath
boss "pincer"
clear()
