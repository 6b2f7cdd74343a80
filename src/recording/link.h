// A recorded game as a short word that can stand in the fragment of a web address: the recording's text without the
// fingerprints of its frames, the events packed into about a byte each, deflated, in base64url. Whoever plays it again
// compares the end of the game only: its frames, score and fingerprint.
#pragma once

#include <string>
#include <string_view>

#include "recording/recording.h"

// What a link may hold. A won game takes about 11,000 frames and 2,500 characters.
inline constexpr std::size_t kLongestLink = 16384;  // characters
inline constexpr int kMostLinkFrames = 100000;      // over an hour

// The word, or empty when the game is too long for one.
std::string LinkOf(const Recording& recording);

// Reads a word, or an address with one behind the last "=" of its fragment. Empty when done, else what is wrong; takes
// little memory and time whatever the word is.
std::string ParseLink(std::string_view link, Recording& recording);

// Whether the text is meant as a link rather than as a file's name: an address with a fragment.
bool LooksLikeLink(std::string_view text);
