// One appearance table, played through without enemies: every boss is taken for beaten as soon as it is waited for.
#pragma once

#include <array>
#include <bitset>
#include <span>
#include <string>
#include <vector>

#include "state/state.h"

struct StageFindings {
    std::vector<std::string> lines;  // "entry 12: reason", each once
    // The frame, from 1 at the start of the stage, in which the entry is first taken or its command performed; 0:
    // never. Fights with bosses count as none.
    std::array<int, kStageEntries> frames{};
    std::bitset<kEnemyKinds> spawned;
    int lastBoss = -1;  // the first entry that sends in the last boss; -1: none
};

// `follows`: the stage is entered from another one, so a command at entry 0 is passed over.
StageFindings CheckStage(std::span<const StageDataType, kStageEntries> table, bool follows);

// "40..52, 60": the numbers of the bits that are set.
template <std::size_t size>
std::string RangesOf(const std::bitset<size>& bits) {
    std::string text;
    for (std::size_t i = 0; i < size; ++i) {
        if (!bits[i]) continue;
        const std::size_t first = i;
        while (i + 1 < size && bits[i + 1]) ++i;
        text += (text.empty() ? "" : ", ") + std::to_string(first);
        if (i > first) text += ".." + std::to_string(i);
    }
    return text;
}
