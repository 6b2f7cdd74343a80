-- Every kind of enemy in one place. The number is its place in the list; a kind flies the pattern of its own flight.
--   sprite  its picture on the sheet        bom    explosion: 0 = 32, 1 = 64, 2 = 128 pixels
--   flight  its movement pattern            score  points, at most 255
--   hp      hit points where a stage gives none; the forward shot takes up to 2 every 3 frames
return {
    -- scouts: light, quick, in numbers
    { name = "dart",    sprite = "scout_dart",    flight = "dive",          bom = 0, score = 10, hp = 0 },
    { name = "wasp",    sprite = "scout_wasp",    flight = "weave",         bom = 0, score = 15, hp = 0 },
    { name = "disc",    sprite = "scout_disc",    flight = "arc_right",     bom = 0, score = 15, hp = 0 },
    { name = "sickle",  sprite = "scout_sickle",  flight = "swoop_right",   bom = 0, score = 20, hp = 0 },
    { name = "needle",  sprite = "scout_needle",  flight = "hover_dive",    bom = 0, score = 20, hp = 0 },
    -- fighters: they aim
    { name = "talon",   sprite = "fighter_talon", flight = "stop_shoot",    bom = 0, score = 30, hp = 8 },
    { name = "manta",   sprite = "fighter_manta", flight = "wide_weave",    bom = 0, score = 30, hp = 10 },
    { name = "cross",   sprite = "fighter_cross", flight = "loop",          bom = 0, score = 35, hp = 9 },
    { name = "kite",    sprite = "fighter_kite",  flight = "cross_right",   bom = 0, score = 30, hp = 0 },
    { name = "fang",    sprite = "fighter_fang",  flight = "split_left",    bom = 0, score = 25, hp = 0 },
    -- mines and turrets: they hold ground
    { name = "spike",   sprite = "mine_spike",    flight = "drift_ring",    bom = 0, score = 40, hp = 7 },
    { name = "orb",     sprite = "mine_orb",      flight = "zigzag",        bom = 0, score = 40, hp = 9 },
    { name = "star",    sprite = "mine_star",     flight = "star_fall",     bom = 0, score = 45, hp = 0 },
    { name = "dome",    sprite = "turret_dome",   flight = "ground_aim",    bom = 0, score = 50, hp = 10 },
    { name = "gyre",    sprite = "mine_gyre",     flight = "spiral",        bom = 0, score = 50, hp = 0 },
    -- bombers
    { name = "rack",    sprite = "bomber_rack",   flight = "bomb_run",      bom = 0, score = 40, hp = 7 },
    { name = "beetle",  sprite = "bomber_beetle", flight = "hover_sway",    bom = 1, score = 80, hp = 15 },
    { name = "moth",    sprite = "bomber_moth",   flight = "flutter",       bom = 1, score = 70, hp = 10 },
    { name = "quad",    sprite = "turret_quad",   flight = "ground_ring",   bom = 1, score = 90, hp = 11 },
    { name = "ring",    sprite = "mine_ring",     flight = "anchor",        bom = 1, score = 80, hp = 10 },
    { name = "lance",   sprite = "fighter_lance", flight = "rear_left",     bom = 1, score = 70, hp = 5 },
    { name = "iris",    sprite = "turret_iris",   flight = "stop_volley",   bom = 1, score = 90, hp = 9 },
    { name = "slug",    sprite = "bomber_slug",   flight = "carpet",        bom = 1, score = 90, hp = 12 },
    -- carriers and the heavy ones
    { name = "crab",    sprite = "carrier_crab",  flight = "sidle",         bom = 1, score = 100, hp = 11 },
    { name = "barge",   sprite = "carrier_barge", flight = "barge",         bom = 1, score = 150, hp = 17 },
    { name = "hive",    sprite = "carrier_hive",  flight = "swarm",         bom = 1, score = 150, hp = 17 },
    { name = "fort",    sprite = "bomber_fortress", flight = "patrol",      bom = 2, score = 220, hp = 28 },
    { name = "citadel", sprite = "turret_citadel", flight = "bastion",      bom = 2, score = 250, hp = 28 },
    -- the same machines flown otherwise: from the other side, or as aces
    { name = "disc_l",   sprite = "scout_disc",    flight = "arc_left",     bom = 0, score = 15, hp = 0 },
    { name = "sickle_l", sprite = "scout_sickle",  flight = "swoop_left",   bom = 0, score = 20, hp = 0 },
    { name = "kite_l",   sprite = "fighter_kite",  flight = "cross_left",   bom = 0, score = 30, hp = 0 },
    { name = "fang_r",   sprite = "fighter_fang",  flight = "split_right",  bom = 0, score = 25, hp = 0 },
    { name = "lance_r",  sprite = "fighter_lance", flight = "rear_right",   bom = 1, score = 70, hp = 5 },
    { name = "halberd",  sprite = "scout_halberd", flight = "feint",        bom = 1, score = 60, hp = 7 },
    { name = "wasp_ace", sprite = "scout_wasp",    flight = "climb",        bom = 0, score = 30, hp = 0 },
    { name = "talon_ace", sprite = "fighter_talon", flight = "two_stops",   bom = 0, score = 50, hp = 8 },
    { name = "manta_ace", sprite = "fighter_manta", flight = "orbit",       bom = 0, score = 50, hp = 7 },
    -- bosses; destroying one scores nothing, the energy left at the end of the stage does
    { name = "pincer",   sprite = "boss_pincer",   flight = "pincer",       bom = 2, score = 0, hp = 196 },
    { name = "eye",      sprite = "boss_eye",      flight = "eye",          bom = 2, score = 0, hp = 232 },
    { name = "dreadnought", sprite = "boss_dreadnought", flight = "dreadnought", bom = 2, score = 0, hp = 138 },
    { name = "avenger",  sprite = "boss_pincer",   flight = "avenger",      bom = 2, score = 0, hp = 175 },
}
