-- Stage 1. The patrol line: scouts in ranks, learnt one by one.
include "waves.lua"

wait(seconds(5)) -- the banner

-- Darts alone, then in ranks.
stream("dart", 3, 160, 16)
wait(70)
stairs("dart", 5, 60, 50, 8)
wait(60)
stairs("dart", 5, 260, -50, 8)
wait(65)
vee("dart", 2, 160, 50, 8)
wait(70)

-- The wasp: it weaves and shoots.
spawn("wasp", 160)
wait(60)
zip("wasp", 6, 80, 240, 18)
wait(110)

-- The disc: in at one side, out at the other.
spawn("disc", 40)
wait(60)
stream("disc", 5, 40, 10)
wait(70)
stream("disc_l", 5, 280, 10)
stream("dart", 3, 160, 20)
wait(80)
both("disc", "disc_l", 4, 30, 12)
wait(100)

-- The talon stops and aims.
spawn("talon", 160)
wait(75)
row("talon", 2, 160, 160)
stream("dart", 4, 160, 14)
wait(90)

-- Swoops.
spawn("sickle", 60)
wait(60)
stream("sickle", 4, 50, 12)
wait(60)
stream("sickle_l", 4, 270, 12)
wait(80)

-- The spike drifts and bursts.
spawn("spike", 160)
wait(80)
row("spike", 2, 160, 180)
zip("wasp", 6, 100, 220, 14)
wait(100)

-- The kite crosses.
from_left("kite", 1, 70)
wait(60)
from_left("kite", 3, 70, 18)
from_right("kite_l", 3, 110, 18)
wait(100)

-- Formations that split.
both("fang", "fang_r", 1, 144, 10)
wait(60)
both("fang", "fang_r", 4, 144, 9)
wait(80)

-- The beetle, then everything.
spawn("beetle", 160)
wait(110)
row("talon", 2, 160, 200)
stream("dart", 6, 160, 10)
wait(60)
both("disc", "disc_l", 5, 30, 10)
wait(60)
row("beetle", 2, 160, 150)
zip("wasp", 8, 60, 260, 12)
wait(110)
vee("dart", 3, 160, 44, 6)
both("sickle", "sickle_l", 4, 40, 12)
wait(100)

wait(seconds(4)) -- breather
boss("pincer", nil, nil, nil, true)
clear()
