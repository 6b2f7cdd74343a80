-- Score attack: a little over four minutes in four movements, each broader than the one before. What pays best is
-- hardest to reach: the great ships pay the most, come last in each movement under the fire of their escorts, and do not
-- stay; swarms pay little, but come for as long as one can keep up with them.
include "waves.lua"

wait(seconds(1.5)) -- the banner

-- First movement: swarms --------------------------------------------------------------------------------------------

passage "darts"
repeated(4, function()
    vee("dart", 3, 160, 44, 5)
    wait(34)
    stairs("dart", 8, 40, 34, 4)
    wait(34)
    swarm("dart", 12, 5)
    wait(56)
end)

passage "wasps and discs"
repeated(3, function()
    zip("wasp", 8, 90, 230, 7)
    wait(40)
    both("disc", "disc_l", 6, 50, 8)
    wait(50)
    swarm("wasp", 12, 6, 190)
    wait(70)
end)

passage "talons: three volleys or nothing"
repeated(3, function()
    row("talon", 2, 160, 180)
    wait(40)
    both("sickle", "sickle_l", 5, 50, 8)
    wait(60)
end)
spawn("beetle", 160)
wait(60)

-- Second movement: mines --------------------------------------------------------------------------------------------

passage "stars"
repeated(3, function()
    posts "spike"
    swarm("star", 12, 6)
    wait(50)
    rank("needle", 7)
    wait(50)
end)

passage "gyres and orbs"
repeated(3, function()
    swarm("gyre", 10, 6, 220)
    wait(50)
    row("orb", 2, 130, 180)
    wait(60)
end)

passage "the wrecks"
repeated(3, function()
    row("quad", 2, 160, 220)
    wait(40)
    from_left("kite", 5, 60, 9)
    from_right("kite_l", 5, 100, 9)
    wait(60)
    row("dome", 2, 160, 150)
    zip("dart", 8, 60, 260, 6)
    wait(60)
end)
spawn("ring", 160)
wait(70)

-- Third movement: hunters -------------------------------------------------------------------------------------------

passage "from behind"
repeated(3, function()
    stream("wasp_ace", 5, 60, 9, HEIGHT)
    stream("wasp_ace", 5, 260, 9, HEIGHT)
    wait(50)
    both("lance", "lance_r", 1, 30, 0, HEIGHT)
    vee("dart", 3, 160, 44, 5)
    wait(70)
end)

passage "aces"
repeated(3, function()
    spawn("manta_ace", 70)
    both("fang", "fang_r", 6, 144, 8)
    wait(60)
    row("talon_ace", 2, 90, 120)
    wait(50)
    stream("halberd", 2, 200, 24)
    swarm("wasp", 10, 6, 190)
    wait(60)
end)

passage "bombers"
repeated(3, function()
    row("beetle", 2, 160, 170)
    wait(40)
    swarm("dart", 10, 6)
    wait(50)
    spawn("slug", 160)
    both("disc", "disc_l", 5, 50, 8)
    wait(60)
end)
row("moth", 2, 160, 120)
wait(80)

-- Fourth movement: the fleet ----------------------------------------------------------------------------------------

passage "gun ships"
repeated(4, function()
    row("iris", 2, 160, 200)
    wait(40)
    stairs("dart", 8, 280, -34, 5)
    wait(46)
    from_left("crab", 1, 30, 0)
    both("sickle", "sickle_l", 5, 50, 8)
    wait(60)
end)

passage "carriers"
repeated(4, function()
    spawn("barge", 160)
    wait(40)
    both("disc", "disc_l", 6, 50, 8)
    wait(50)
    spawn("hive", 160)
    both("fang", "fang_r", 5, 144, 8)
    wait(60)
end)

passage "flag ships: they do not wait"
spawn("fort", 90)
wait(40)
swarm("wasp", 12, 6, 190)
wait(90)
spawn("citadel", 230)
wait(40)
both("sickle", "sickle_l", 6, 50, 8)
wait(100)
spawn("fort", 90)
spawn("citadel", 230)
wait(50)
swarm("dart", 16, 7)
wait(60)
rank("needle", 8)
wait(60)

passage "all that still flies"
repeated(4, function()
    swarm("dart", 14, 5)
    wait(30)
    both("disc", "disc_l", 5, 50, 8)
    wait(40)
    swarm("wasp", 10, 6, 190)
    wait(50)
end)
rest()

wait(seconds(2)) -- what is left flies home
clear()
