// Fingerprints of the state, to compare two runs frame by frame. Left out: the clock's figures (FrameStart .. FpsNow),
// which differ from machine to machine, and the tables, which DataDigest covers.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "state/state.h"

enum class StateGroup { flow, score, script, background, ship, myShots, enemies, enemyShots, random, count };
inline constexpr int kStateGroups = static_cast<int>(StateGroup::count);

const char* GroupName(StateGroup group);

// One 8-bit fingerprint per group: small enough to store for every frame. A difference that stays shows within a frame
// or two.
using FrameDigest = std::array<std::uint8_t, kStateGroups>;
FrameDigest DigestFrame(const GameState& state);

// One fingerprint of all groups.
std::uint64_t DigestState(const GameState& state);

// The group's fields with their values, for messages: "MyX=130 MyY=426 ...".
std::string DescribeGroup(const GameState& state, StateGroup group);

// Fingerprint of all data tables in the program's folder.
std::uint64_t DataDigest();
