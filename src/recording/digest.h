// Fingerprints of the state, to compare two runs frame by frame. Left out: the clock's figures (FrameStart .. FpsNow),
// which differ from machine to machine, and the tables, which DataDigest covers.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

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

// A field of the state that setting up a game does not touch and in which an earlier game has left something other than
// zero: its place among all fields, and its bits.
struct LeftField {
    int field;
    std::uint64_t bits;

    bool operator==(const LeftField&) const = default;
};
// What earlier games have left, in the order of the fields; and the way back, which puts zero everywhere else. Fields
// out of order, or that no game leaves, are passed over.
std::vector<LeftField> FindLeftovers(const GameState& state);
void PutLeftovers(const std::vector<LeftField>& left, GameState& state);

// Whether that helps in the next game: shots in flight, or a boss that counts as defeated.
bool LeftAnAdvantage(const std::vector<LeftField>& left);

// Fingerprint of all data tables in the program's folder.
std::uint64_t DataDigest();
