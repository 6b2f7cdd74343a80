// What each field of the tables holds, with its unit and range: one home for the tool tips of all windows.
#pragma once

namespace tips {

inline constexpr const char* kEntryX =
    "left edge in pixels of the field, 0 to 320; 700: a random place; repeat: the entry to go back to";
inline constexpr const char* kEntryY =
    "top edge in pixels of the field, 0 to 480, above it below 0; repeat: how many times more";
inline constexpr const char* kEntryNo =
    "kind of enemy, 0 to 49, or a command: 247 clear, 248 next_stage, 249 boss_wait_stop, 250 boss_entry, "
    "251 boss_wait, 254 pass, 255 restart, 256 repeat";
inline constexpr const char* kEntryCounter =
    "frames since the entry before it was taken, 0 to 32767; 25.6 frames are a second";
inline constexpr const char* kEntryPower = "hit points, 0 to 255; repeat: the count for the next round";

inline constexpr const char* kKindSX = "left edge of the first frame on the sheet, pixels";
inline constexpr const char* kKindSY =
    "top edge of the frames on the sheet, pixels; the masks lie a sprite's height below";
inline constexpr const char* kKindWidth = "width of the sprite, pixels; also the step from frame to frame";
inline constexpr const char* kKindHeight = "height of the sprite, pixels";
inline constexpr const char* kKindBomType = "explosion: 0 of 32 pixels, 1 of 64, 2 of 128; 3 to 255: none";
inline constexpr const char* kKindMoveNo = "movement pattern, 0 to 49";
inline constexpr const char* kKindScore = "points, 0 to 255";

inline constexpr const char* kStepDX = "pixels to the right in this frame; jump and repeat: the step to go to";
inline constexpr const char* kStepDY = "pixels down in this frame; repeat: how many times";
inline constexpr const char* kStepAnime = "animation frame that a move shows, 0 to 255";
inline constexpr const char* kStepFlag =
    "what the step does: 0 move, 1 to 11 fire that code, 253 jump, 254 repeat, 255 end";

}  // namespace tips
