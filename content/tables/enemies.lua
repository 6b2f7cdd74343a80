-- The kinds: picture, explosion, flight and worth, from roster.lua and the sheet.
local sprites = {}
for _, sprite in ipairs(include "../art/sheet.lua") do sprites[sprite.name] = sprite end

for _, enemy in ipairs(include "roster.lua") do
    local sprite = sprites[enemy.sprite] or error("no sprite " .. enemy.sprite)
    kind {
        name = enemy.name,
        SX = sprite.sx, SY = sprite.sy, Width = sprite.w, Height = sprite.h,
        BomType = enemy.bom, MoveNo = enemy.flight, Score = enemy.score,
    }
end
