-- Score attack.
include "waves.lua"

wait(seconds(4))
for _ = 1, 4 do
    vee("dart", 3, 160, 44, 6)
    wait(50)
    both("disc", "disc_l", 5, 30, 10)
    wait(70)
    zip("wasp", 8, 60, 260, 12)
    wait(100)
    row("talon", 3, 160, 100)
    wait(80)
end
wait(seconds(4))
clear()
