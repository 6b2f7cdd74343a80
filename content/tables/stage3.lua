-- Stage 3. The fleet.
include "waves.lua"

wait(seconds(5))
from_left("crab", 1, 30)
wait(130)
spawn("lance", 30, HEIGHT)
wait(90)
spawn("iris", 160)
wait(110)
spawn("hive", 160)
wait(200)
spawn("fort", 160)
wait(seconds(12))
boss("avenger")
wait(seconds(4))
boss("dreadnought", nil, nil, nil, true, true)
clear()
