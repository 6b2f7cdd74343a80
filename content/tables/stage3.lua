-- Stage 3. The fleet: great ships with escorts, and aces from every side, also from behind.
include "waves.lua"

wait(seconds(1.5)) -- the banner

-- The screen of the fleet -------------------------------------------------------------------------------------------

introduce("wasp_ace", 60, HEIGHT)
stream("wasp_ace", 3, 60, 14, HEIGHT)
stream("wasp_ace", 3, 260, 14, HEIGHT)
wait(60)

introduce("talon_ace", 110)
row("talon_ace", 2, 130, 150)
wait(40)
vee("dart", 3, 160, 44, 6)
wait(46)

introduce("lance", 30, HEIGHT)
both("lance", "lance_r", 2, 30, 24, HEIGHT)
wait(70)

introduce("manta_ace", 70)
stream("manta_ace", 3, 70, 26)
wait(90)

-- Gun ships ---------------------------------------------------------------------------------------------------------

introduce("iris", 160)
row("iris", 2, 160, 170)
wait(44)
both("sickle", "sickle_l", 3, 40, 10)
wait(56)

introduce("crab", -24, 30)
from_left("crab", 2, 30, 40)
wait(36)
stream("needle", 5, 160, 10)
wait(60)

introduce("barge", 160, nil, 70)
stream("dart", 4, 50, 10)
stream("dart", 4, 270, 10)
wait(40)
both("disc", "disc_l", 5, 30, 9)
wait(56)

introduce("hive", 100, nil, 60)
both("fang", "fang_r", 4, 144, 8)
wait(60)
stream("halberd", 3, 240, 14)
wait(50)

-- The flag ships ----------------------------------------------------------------------------------------------------

introduce("fort", 110, nil, 90)
both("lance", "lance_r", 1, 30, 0, HEIGHT)
wait(60)
zip("dart", 6, 60, 260, 10)
wait(80)

introduce("citadel", 220, nil, 130)
zip("wasp", 4, 60, 260, 16)
wait(90)
row("talon_ace", 2, 130, 200)
wait(90)

-- Everything that still flies ---------------------------------------------------------------------------------------

spawn("barge", 90)
wait(60)
stream("wasp_ace", 4, 250, 14, HEIGHT)
wait(60)
spawn("barge", 230)
wait(70)
spawn("iris", 70)
both("fang", "fang_r", 4, 144, 9)
wait(70)
row("quad", 2, 160, 180)
wait(30)
from_left("kite", 3, 60, 16)
from_right("kite_l", 3, 100, 16)
wait(76)
both("sickle", "sickle_l", 4, 40, 11)
wait(76)
spawn("manta_ace", 70)
spawn("iris", 250)
wait(70)
both("lance", "lance_r", 2, 30, 26, HEIGHT)
wait(56)
row("cross", 3, 160, 90)
wait(50)
vee("dart", 3, 160, 44, 6)
rest()

wait(seconds(4)) -- breather
first_boss "avenger"
wait(seconds(3))
last_boss "dreadnought"
clear()
