-- Stage 1. The patrol line: an enemy in good order. Ranks, columns and wedges, mirrored left and right; each new
-- machine shows itself alone before it comes in line.
include "waves.lua"

wait(seconds(1.5)) -- the banner

-- Scouts ------------------------------------------------------------------------------------------------------------

introduce("dart", 160)
stairs("dart", 5, 60, 50, 7)
wait(48)
stairs("dart", 5, 260, -50, 7)
wait(52)
vee("dart", 2, 160, 50, 7)

introduce("wasp", 160)
zip("wasp", 6, 90, 230, 14)
wait(52)
stream("dart", 4, 40, 9)
stream("dart", 4, 280, 9)

introduce("disc", 40)
stream("disc", 5, 40, 9)
wait(52)
stream("disc_l", 5, 280, 9)
wait(28)

-- Fighters ----------------------------------------------------------------------------------------------------------

introduce("talon", 160)
row("talon", 2, 160, 150)
wait(30)
zip("wasp", 4, 120, 200, 12)
wait(40)

introduce("sickle", 60)
both("sickle", "sickle_l", 3, 50, 12)
wait(64)
row("talon", 3, 160, 100)
stream("dart", 5, 160, 10)
wait(52)

introduce("kite", -16, 70)
from_left("kite", 3, 70, 16)
from_right("kite_l", 3, 110, 16)
wait(64)

introduce("fang", 144)
both("fang", "fang_r", 4, 144, 9)
wait(56)

-- Heavier ones ------------------------------------------------------------------------------------------------------

introduce("spike", 160)
row("spike", 2, 160, 190)
wait(44)

introduce("dome", 110)
row("dome", 2, 190, 120)
wait(30)
both("disc", "disc_l", 4, 30, 10)
wait(60)

introduce("manta", 160)
row("manta", 2, 160, 60)
wait(36)
stream("dart", 6, 160, 9)
wait(56)

introduce("cross", 160)
row("cross", 3, 160, 90)
wait(60)

introduce("beetle", 160, nil, 70)

-- The line closes up ------------------------------------------------------------------------------------------------

row("talon", 2, 160, 220)
vee("dart", 3, 160, 44, 6)
wait(50)
both("sickle", "sickle_l", 3, 40, 12)
wait(50)
row("beetle", 2, 160, 160)
wait(40)
both("fang", "fang_r", 4, 144, 9)
wait(46)
both("disc", "disc_l", 5, 30, 10)
row("manta", 2, 160, 80)
wait(70)
row("cross", 3, 160, 90)
wait(40)
zip("wasp", 4, 60, 260, 12)
rest()

wait(seconds(4)) -- breather
boss "pincer"
clear()
