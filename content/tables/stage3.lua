-- Stage 3. The fleet: great ships with escorts, and aces from every side, also from behind.
-- S: swarms that call for the spread; F: great ships and aces, by one or two, that call for the forward shot.
include "waves.lua"

wait(seconds(1.2)) -- the banner

-- 1 S. The screen of the fleet: climbers from behind
passage "1 S The screen of the fleet"
introduce("wasp_ace", 60, HEIGHT)
stream("wasp_ace", 5, 60, 8, HEIGHT)
stream("wasp_ace", 5, 260, 8, HEIGHT)
wait(40)
swarm("dart", 16, 5)
wait(46)

-- 2 F. Aces
passage "2 F Aces"
introduce("talon_ace", 110)
row("talon_ace", 2, 90, 120)
wait(30)
spawn("talon_ace", 110)
wait(30)
introduce("lance", 30, HEIGHT)
both("lance", "lance_r", 1, 30, 0, HEIGHT)
wait(60)

-- 3 S. Sickles and darts with climbers behind them
passage "3 S Sickles and darts"
both("sickle", "sickle_l", 6, 50, 7)
wait(36)
swarm("dart", 14, 5)
wait(40)
stream("wasp_ace", 5, 160, 8, HEIGHT)
rank("needle", 7)
wait(40)

-- 4 F. Mantas in wide circles
passage "4 F Mantas in wide circles"
introduce("manta_ace", 70)
stream("manta_ace", 3, 70, 36)
wait(90)

-- 5 F. Gun ships
passage "5 F Gun ships"
introduce("iris", 160)
row("iris", 2, 160, 220)
wait(40)
spawn("iris", 160)
wait(26)
introduce("crab", -24, 30)
from_left("crab", 3, 30, 40)
wait(60)

-- 6 S. Their escorts
passage "6 S Their escorts"
swarm("needle", 14, 4)
wait(30)
both("disc", "disc_l", 7, 50, 7)
wait(40)
swarm("wasp", 14, 5, 190)
wait(46)
from_left("kite", 5, 60, 8)
from_right("kite_l", 5, 100, 8)
wait(46)

-- 7 F. A barge
passage "7 F A barge"
introduce("barge", 160)
wait(30)
both("fang", "fang_r", 7, 134, 6)
wait(40)
row("talon_ace", 2, 90, 120)
wait(30)

-- 8 S. Scouts of three kinds
passage "8 S Scouts of three kinds"
swarm("dart", 16, 5)
wait(30)
both("sickle", "sickle_l", 6, 50, 7)
wait(40)
stream("wasp_ace", 5, 60, 8, HEIGHT)
stream("wasp_ace", 5, 260, 8, HEIGHT)
wait(36)
swarm("needle", 10, 5)
wait(36)

-- 9 F. A hive and its guard
passage "9 F A hive and its guard"
introduce("hive", 100)
wait(20)
stream("halberd", 4, 240, 22)
wait(60)

-- 10 S. The gap in the line
passage "10 S The gap in the line"
rank("needle", 8)
wait(24)
swarm("wasp", 14, 5, 190)
wait(36)
both("disc", "disc_l", 6, 60, 7)
wait(36)
swarm("dart", 9, 5)
wait(30)
swarm("needle", 7, 6)
wait(50)

-- 11 F. The flag ships
passage "11 F The flag ships"
introduce("fort", 110)
wait(40)
zip("dart", 10, 60, 260, 5)
wait(36)
spawn("lance_r", 290, HEIGHT)
rank("needle", 7)
wait(36)
introduce("citadel", 220)
wait(50)
both("lance", "lance_r", 1, 30, 0, HEIGHT)
wait(60)

-- 12 S. Boarders from both sides
passage "12 S Boarders from both sides"
both("fang", "fang_r", 6, 134, 6)
wait(36)
from_left("kite", 5, 60, 8)
from_right("kite_l", 5, 100, 8)
swarm("dart", 8, 6)
wait(56)
rank("needle", 6)
wait(36)
stream("wasp_ace", 5, 60, 8, HEIGHT)
stream("wasp_ace", 5, 260, 8, HEIGHT)
wait(40)

-- 13 F. The second line
passage "13 F The second line"
row("quad", 2, 160, 220)
wait(56)
row("iris", 2, 160, 220)
wait(50)
stream("manta_ace", 2, 70, 36)
wait(40)
from_left("crab", 2, 30, 40)
wait(50)

-- 14 S. Everything that still flies
passage "14 S Everything that still flies"
swarm("wasp", 12, 5, 190)
wait(54)
both("sickle", "sickle_l", 6, 50, 7)
wait(50)
rank("needle", 7)
wait(28)
swarm("dart", 11, 5)
wait(40)
both("disc", "disc_l", 5, 50, 7)
wait(76)

-- 15 F. The last line
passage "15 F The last line"
spawn("hive", 220)
wait(50)
row("talon_ace", 2, 90, 120)
wait(46)
both("lance", "lance_r", 1, 30, 0, HEIGHT)
spawn("barge", 160)
wait(50)
swarm("dart", 10, 7)
rest()

wait(seconds(1)) -- breath
first_boss "avenger"
wait(seconds(2))
last_boss "dreadnought"
clear()
