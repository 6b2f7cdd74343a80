// How play goes on when nobody watches it live: recorded games on their way to a moment, or at another pace.
#pragma once

// Nothing is shown or heard and no wait takes time; events come from the tap alone.
inline bool unseen = false;

// Nothing is heard.
inline bool unheard = false;

// Frames follow each other so many times as fast as the game's own. Above 0.
inline double pace = 1;
