-- Stage 2. The minefield: black sky, and nothing marches. Things drift, spin and burst; the way through is between
-- them, and hunters wait behind the walls.
-- S: swarms that call for the spread; F: tough ones by one or two that call for the forward shot.
include "waves.lua"

wait(seconds(1.2)) -- the banner

-- 1 S. Star mines, first a few, then a shower
passage "1 S Star mines"
introduce("star", 96)
swarm("star", 10, 8)
wait(70)
posts "spike"
swarm("star", 14, 6)
wait(60)
swarm("star", 8, 7)
wait(50)

-- 2 F. Orbs: they zigzag, aim, and bounce shots about if they live
passage "2 F Orbs"
introduce("orb", 120)
row("orb", 2, 127, 190)
wait(26)
spawn("orb", 160)
wait(36)
spawn("orb", 40)
spawn("orb", 220)
wait(50)
spawn("orb", 130)
wait(40)

-- 3 S. Needles: they hang in the air before they drop
passage "3 S Needles"
introduce("needle", 160)
rank("needle", 7)
wait(26)
swarm("needle", 12, 5)
posts "spike"
wait(40)
swarm("star", 8, 5)
rank("needle", 8)
wait(40)

-- 4 F. A gate of spikes
passage "4 F A gate of spikes"
rest()
wait(26)
row("spike", 3, 160, 110)
wait(40)
row("spike", 2, 110, 130)
wait(26)
row("spike", 2, 220, 130)
wait(24)
spawn("orb", 40)
wait(50)

-- 5 S. Gyres: they come down in rings
passage "5 S Gyres"
introduce("gyre", 160)
posts "spike"
swarm("gyre", 11, 5, 220)
wait(30)
rank("needle", 7)
wait(26)
swarm("gyre", 11, 6, 220)
wait(30)
rank("needle", 7)
wait(40)

-- 6 F. Moths
passage "6 F Moths"
introduce("moth", 160)
spawn("moth", 90)
wait(34)
spawn("moth", 230)
wait(34)
spawn("moth", 90)
wait(26)
spawn("moth", 200)
wait(40)

-- 7 S. Between the wrecks: stars and needles together
passage "7 S Between the wrecks"
posts "spike"
swarm("star", 12, 6)
wait(40)
rank("needle", 8)
wait(30)
swarm("gyre", 12, 5, 220)
wait(40)
swarm("needle", 12, 4)
wait(40)

-- 8 F. The wrecks: guns on the ground
passage "8 F The wrecks"
introduce("quad", 160)
row("quad", 2, 160, 220)
wait(70)
introduce("rack", -16, 40)
from_left("rack", 3, 40, 34)
wait(34)
spawn("moth", 200)
wait(50)

-- 9 F. Rings at anchor
passage "9 F Rings at anchor"
introduce("ring", 160)
spawn("ring", 70)
wait(36)
spawn("ring", 250)
wait(40)
spawn("moth", 160)
wait(36)

-- 10 S. Everything that drifts
passage "10 S Everything that drifts"
posts "spike"
swarm("star", 14, 6)
wait(56)
swarm("gyre", 9, 6, 220)
wait(50)
rank("needle", 7)
wait(40)
rank("needle", 7)
wait(30)
swarm("star", 11, 6)
wait(50)

-- 11 F. Halberds: they feint and come back
passage "11 F Halberds"
introduce("halberd", 120)
spawn("halberd", 230)
wait(34)
row("halberd", 2, 160, 180)
wait(34)
spawn("ring", 160)
wait(46)

-- 12 S. The thick of it
passage "12 S The thick of it"
posts "spike"
swarm("gyre", 11, 6, 220)
wait(54)
swarm("star", 12, 6)
wait(64)
swarm("needle", 12, 5)
wait(56)
swarm("gyre", 9, 7, 220)
wait(46)

-- 13 F. Slugs and their carpets
passage "13 F Slugs and their carpets"
introduce("slug", 160)
row("slug", 2, 160, 170)
wait(60)
row("moth", 2, 160, 130)
wait(36)
swarm("star", 14, 6)
rest()

wait(seconds(1)) -- breath
boss "eye"
clear()
