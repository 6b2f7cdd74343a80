-- Stage 2. The minefield: black sky, and nothing marches. Things drift, spin and burst; the way through is between
-- them, and hunters wait behind the walls.
include "waves.lua"

wait(seconds(1.5)) -- the banner

-- First mines -------------------------------------------------------------------------------------------------------

introduce("star", 160)
rain("star", 4, 16)
wait(66)
stream("star", 3, 60, 14)
stream("star", 3, 260, 14)
wait(50)

introduce("orb", 120)
row("orb", 2, 160, 170)
wait(30)
rain("star", 3, 14)
wait(40)

introduce("needle", 160)
stairs("needle", 6, 45, 46, 8)
wait(60)
stairs("needle", 6, 275, -46, 8)
wait(56)

-- The walls ---------------------------------------------------------------------------------------------------------

wall("spike", 250)
wait(56)
stream("needle", 4, 240, 10)
wait(40)
wall("spike", 70)
wait(56)
stream("needle", 4, 80, 10)
rain("star", 3, 16)
wait(40)

introduce("gyre", 160)
row("gyre", 2, 160, 140)
wait(56)
zip("gyre", 4, 70, 230, 22)
wait(80)

introduce("moth", 160)
row("moth", 2, 160, 130)
wait(36)
rain("star", 4, 12)
wait(50)

-- The wrecks --------------------------------------------------------------------------------------------------------

introduce("quad", 160)
row("quad", 2, 160, 190)
rain("star", 4, 14)
wait(40)
stairs("needle", 5, 80, 40, 8)
wait(60)

introduce("rack", -16, 40)
from_left("rack", 3, 40, 18)
row("spike", 2, 160, 240)
wait(60)

introduce("ring", 160)
spawn("ring", 80)
wait(44)
spawn("ring", 240)
rain("star", 4, 14)
wait(50)
stream("gyre", 2, 160, 30)
wait(60)

introduce("halberd", 120)
stream("halberd", 3, 90, 16)
wait(50)
stream("halberd", 3, 230, 16)
row("gyre", 2, 120, 120)
wait(50)

introduce("slug", 160)
row("slug", 2, 160, 150)
rain("star", 4, 14)
wait(70)

-- The thick of it ---------------------------------------------------------------------------------------------------

wall("spike", 160)
wait(56)
spawn("moth", 160)
wait(60)
wall("spike", 60)
wait(50)
stream("halberd", 3, 260, 18)
wait(66)
row("orb", 2, 160, 200)
zip("gyre", 3, 70, 230, 20)
wait(76)
spawn("ring", 160)
wait(50)
rain("star", 6, 10)
wait(40)
stairs("needle", 6, 45, 46, 8)
wait(70)
spawn("slug", 90)
wait(30)
spawn("slug", 230)
wait(60)
row("quad", 2, 160, 220)
wait(36)
row("gyre", 2, 160, 120)
wait(30)
spawn("moth", 160)
rest()

wait(seconds(5)) -- breather
boss "eye"
clear()
