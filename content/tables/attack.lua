-- Score attack: three minutes in eleven rounds, dense and generous. Every round comes twice at least, so what one
-- learns the first time pays the next. No boss; the two flag ships are the dearest targets of the game.
include "waves.lua"

wait(seconds(2)) -- the banner

-- Swarms
repeated(3, function()
    vee("dart", 3, 160, 44, 5)
    wait(34)
    zip("wasp", 8, 60, 260, 8)
    wait(50)
    both("disc", "disc_l", 5, 30, 8)
    wait(50)
    stairs("dart", 6, 40, 48, 5)
    stairs("dart", 6, 280, -48, 5)
    wait(60)
end)

-- Fighters
repeated(2, function()
    row("talon", 3, 160, 100)
    wait(30)
    both("sickle", "sickle_l", 4, 40, 9)
    wait(56)
    both("fang", "fang_r", 4, 144, 8)
    row("manta", 2, 160, 120)
    wait(56)
    row("cross", 3, 160, 90)
    wait(60)
end)

-- Mines
repeated(2, function()
    wall("spike", 160)
    wait(46)
    rain("star", 6, 8)
    wait(50)
    row("gyre", 2, 160, 150)
    row("orb", 2, 160, 230)
    wait(70)
end)

-- Across the field
repeated(3, function()
    from_left("kite", 5, 60, 11)
    from_right("kite_l", 5, 100, 11)
    wait(50)
    from_left("rack", 3, 30, 16)
    stairs("needle", 6, 45, 46, 7)
    wait(80)
end)

-- From behind
repeated(2, function()
    stream("wasp_ace", 4, 50, 9, HEIGHT)
    stream("wasp_ace", 4, 270, 9, HEIGHT)
    wait(60)
    both("lance", "lance_r", 2, 30, 22, HEIGHT)
    vee("dart", 3, 160, 44, 5)
    wait(80)
end)

-- Turrets
repeated(2, function()
    row("dome", 3, 160, 110)
    wait(40)
    row("quad", 2, 160, 150)
    vee("dart", 3, 160, 44, 5)
    wait(50)
    both("disc", "disc_l", 5, 30, 8)
    wait(70)
end)

-- Aces
repeated(2, function()
    stream("manta_ace", 2, 70, 22)
    stream("halberd", 2, 240, 22)
    wait(60)
    both("sickle", "sickle_l", 4, 40, 9)
    wait(50)
    row("talon_ace", 2, 130, 180)
    zip("wasp", 6, 60, 260, 9)
    wait(70)
end)

-- Bombers
repeated(2, function()
    row("beetle", 2, 160, 150)
    wait(50)
    row("moth", 2, 160, 200)
    stream("halberd", 3, 90, 14)
    wait(60)
    spawn("slug", 160)
    zip("wasp", 6, 60, 260, 9)
    wait(70)
end)

-- Gun ships
repeated(2, function()
    row("iris", 2, 160, 180)
    stream("dart", 5, 160, 8)
    wait(56)
    from_left("crab", 2, 30, 30)
    row("talon_ace", 2, 130, 140)
    wait(80)
end)

-- Carriers
repeated(2, function()
    row("barge", 2, 160, 170)
    wait(60)
    both("disc", "disc_l", 5, 30, 8)
    wait(50)
    spawn("hive", 160)
    both("fang", "fang_r", 4, 144, 8)
    wait(70)
end)

-- Flag ships
spawn("fort", 90)
wait(60)
both("disc", "disc_l", 6, 30, 8)
wait(90)
spawn("citadel", 230)
wait(60)
both("sickle", "sickle_l", 5, 40, 9)
wait(80)
spawn("fort", 100)
spawn("citadel", 230)
wait(60)
rain("dart", 20, 9)
rest()

wait(seconds(5)) -- what is left flies home
clear()
