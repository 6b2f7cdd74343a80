#include <cmath>

#include "dump_parts.h"
#include "stage/stage_script.h"

const char* const kGroupsText =
    R"(-- Groups of enemies for appearance tables. Each takes a table with the fields of an entry, and
--   n       how many there are
--   dx, dy  how much further each stands than the one before it
--   after   the Counter of the first, if it is not that of the others
local function group(g)
    for i = 0, g.n - 1 do
        entry {
            No = g.No, X = (g.X or 0) + (g.dx or 0) * i, Y = (g.Y or 0) + (g.dy or 0) * i,
            Counter = i == 0 and g.after or g.Counter, Power = g.Power,
        }
    end
end
stream = group -- one after another from the same place
row = group    -- all at once, side by side
stairs = group -- one after another, each further on

-- One after another; X is a list of their places.
function swarm(g)
    for i, x in ipairs(g.X) do
        entry { No = g.No, X = x, Y = g.Y, Counter = i == 1 and g.after or g.Counter, Power = g.Power }
    end
end
)";

namespace {

// Entries that repeat what stands before them `count` times in all, `period` entries each time.
struct Group {
    std::size_t period = 1;
    std::size_t count = 1;
    bool placed = true;  // else X follows no rule

    std::size_t Entries() const { return period * count; }
    // Lines that it makes of them.
    std::size_t Lines() const { return period == 1 ? 1 : period + 2; }
    std::size_t Saved() const { return Entries() - std::min(Entries(), Lines()); }
};

// The places of one enemy of the period.
struct Places {
    std::optional<Progression> x, y;
};

bool IsEnemy(const StageDataType& entry) {
    return entry.No >= 0 && entry.No < kEnemyKinds;
}

bool AreAlike(const StageDataType& a, const StageDataType& b) {
    return a.No == b.No && a.Power == b.Power;
}

class EntryWriter {
  public:
    EntryWriter(std::span<const StageDataType> entries, const Words& words, std::size_t number)
        : entries_(entries), words_(words), number_(number) {
        for (std::size_t i = 0; i < entries.size(); ++i) {
            if (JumpsBack(i)) targets_.insert(JumpTarget(entries[i].X, i));
        }
    }

    std::string Write() {
        for (std::size_t i = 0; i < entries_.size();) {
            if (targets_.contains(static_cast<int>(i))) text_ += TargetName(i) + " = next_entry()\n";
            const Group group = BestAt(i);
            WriteGroup(group, i);
            i += group.Entries();
        }
        return text_;
    }

  private:
    bool JumpsBack(std::size_t i) const { return entries_[i].No == kRepeat && JumpTarget(entries_[i].X, i) >= 0; }

    Places PlacesOf(const Group& group, std::size_t at) const {
        std::vector<Single> x, y;
        for (std::size_t i = 0; i < group.count; ++i) {
            x.push_back(entries_[at + i * group.period].X);
            y.push_back(entries_[at + i * group.period].Y);
        }
        return {ProgressionOf(x), ProgressionOf(y)};
    }

    // Whether entry `at` may be one more after those from `first` on; its place is not looked at.
    bool GoesOn(std::size_t first, std::size_t at, std::size_t period) const {
        const StageDataType &entry = entries_[at], &before = entries_[at - period];
        const bool waits =
            at < first + 2 * period && (at - first) % period == 0;  // the first of all has its own Counter
        return IsEnemy(entry) && AreAlike(entry, before) && (waits || entry.Counter == before.Counter);
    }

    bool IsPlaced(const Group& group, std::size_t first) const {
        for (std::size_t i = 0; i < group.period; ++i) {
            const Places places = PlacesOf(group, first + i);
            const bool numbers = group.period > 1 || IsNumber(first + i);
            if (!places.x || !places.y || !numbers) return false;
        }
        return true;
    }

    // The words of the group count with its place.
    bool IsNumber(std::size_t at) const {
        return LuaText(entries_[at].X).front() != '"' && LuaText(entries_[at].Y).front() != '"';
    }

    bool IsSwarm(const Group& group, std::size_t first) const {
        const Places places = PlacesOf(group, first);
        return group.period == 1 && group.count >= 4 && places.y && places.y->step == "0";
    }

    // Two are a group when they come from one place or at the same time; else it takes three to make a rule.
    bool IsRule(const Group& group, std::size_t first) const {
        if (group.count > 2) return true;
        const Places places = PlacesOf(group, first);
        const bool samePlace = places.x->step == "0" && places.y->step == "0";
        return group.period == 1 && (samePlace || entries_[first + 1].Counter == 0);
    }

    Group BestWith(std::size_t period, std::size_t first) const {
        Group placed, swarm, group{period, 1, true};
        const std::size_t end = EndOfStretch(targets_, first, entries_.size());
        for (std::size_t at = first + period; at < end && GoesOn(first, at, period); ++at) {
            if ((at - first) % period != period - 1) continue;
            ++group.count;
            group.placed = IsPlaced(group, first);
            if (group.placed && IsRule(group, first)) placed = group;
            if (!group.placed && IsSwarm(group, first)) swarm = group;
        }
        constexpr std::size_t kWorthAList = 3;  // a rule says more than a list of places
        return swarm.Saved() >= placed.Saved() + kWorthAList ? swarm : placed;
    }

    Group BestAt(std::size_t first) const {
        constexpr std::size_t kLongestPeriod = 4;
        Group best;
        if (!IsEnemy(entries_[first])) return best;
        for (std::size_t period = 1; period <= kLongestPeriod && first + period <= entries_.size(); ++period) {
            const Group group = BestWith(period, first);
            if (group.Saved() > best.Saved()) best = group;
        }
        return best;
    }

    void WriteGroup(const Group& group, std::size_t first) {
        std::string text;
        if (group.count == 1) {
            text = WrittenEntry(first);
        } else if (group.period > 1) {
            text = WrittenLoop(group, first);
        } else {
            text = WrittenWord(group, first);
        }
        const std::size_t last = first + group.Entries() - 1;
        text_ += text + " -- " + std::to_string(number_ + first) +
                 (last > first ? ".." + std::to_string(number_ + last) : "") + "\n";
    }

    std::string WrittenEntry(std::size_t at) const {
        Cells cells = CellsOf(entries_[at], words_);
        if (JumpsBack(at)) cells[0].text = TargetName(static_cast<std::size_t>(entries_[at].X));
        std::swap(cells[0], cells[2]);  // the kind comes first
        std::swap(cells[1], cells[2]);
        return "entry { " + ListOf(cells) + " }";
    }

    std::string WrittenLoop(const Group& group, std::size_t first) const {
        std::string text = "for i = 0, " + std::to_string(group.count - 1) + " do\n";
        for (std::size_t i = 0; i < group.period; ++i) {
            const std::size_t at = first + i;
            Cells cells = CellsOf(entries_[at], words_);
            const Places places = PlacesOf(group, at);
            cells[0].text = places.x->Text();
            cells[1].text = places.y->Text();
            const std::string own = cells[3].text, later = std::to_string(entries_[at + group.period].Counter);
            if (own != later) cells[3].text = "i == 0 and " + own + " or " + later;
            std::swap(cells[0], cells[2]);
            std::swap(cells[1], cells[2]);
            text += "    entry { " + ListOf(cells) + " }\n";
        }
        return text + "end";
    }

    std::string WrittenWord(const Group& group, std::size_t first) const {
        const Places places = PlacesOf(group, first);
        Cells cells = CellsOf(entries_[first], words_);
        const std::string own = cells[3].text, later = std::to_string(entries_[first + 1].Counter);
        Cells list = {{"n", group.placed ? std::to_string(group.count) : "0"}, cells[2]};
        if (group.placed) {
            list.insert(list.end(), {cells[0], {"dx", places.x->step}});
        } else {
            list.push_back({"X", ListOfPlaces(group, first)});
        }
        list.insert(list.end(), {cells[1], {"dy", places.y->step}, {"Counter", later}, cells[4]});
        const std::string after = own == later ? "" : ", after = " + own;
        return WordOf(group, places, later) + " { " + ListOf(list) + after + " }";
    }

    static std::string WordOf(const Group& group, const Places& places, const std::string& later) {
        if (!group.placed) return "swarm";
        if (places.x->step == "0" && places.y->step == "0") return "stream";
        return later == "0" ? "row" : "stairs";
    }

    std::string ListOfPlaces(const Group& group, std::size_t first) const {
        std::string list;
        for (std::size_t i = 0; i < group.count; ++i) {
            list += (list.empty() ? "{ " : ", ") + LuaText(entries_[first + i].X);
        }
        return list + " }";
    }

    std::span<const StageDataType> entries_;
    const Words& words_;
    std::size_t number_;  // of the first entry
    std::set<int> targets_;
    std::string text_;
};

}  // namespace

std::string DumpEntries(std::span<const StageDataType> entries, const Words& words, std::size_t first) {
    return EntryWriter(entries, words, first).Write();
}
