// The fields and buttons of the bench.
#include <algorithm>
#include <utility>

#include "author/desk.h"
#include "author/names.h"
#include "author/new_path.h"
#include "editors/tips.h"
#include "state/options.h"
#include "toolkit/numbers.h"

namespace {

// In the order of FieldsOf.
constexpr const char* kEntryTips[] = {tips::kEntryX, tips::kEntryY, tips::kEntryNo, tips::kEntryCounter,
                                      tips::kEntryPower};
constexpr const char* kKindTips[] = {tips::kKindSX,      tips::kKindSY,     tips::kKindWidth, tips::kKindHeight,
                                     tips::kKindBomType, tips::kKindMoveNo, tips::kKindScore};
constexpr const char* kStepTips[] = {tips::kStepDX, tips::kStepDY, tips::kStepAnime, tips::kStepFlag};

template <typename Number>
std::string Wanted(const std::string& name) {
    if constexpr (std::is_same_v<Number, Single>) return name + ": a number is wanted";
    using Limits = std::numeric_limits<Number>;
    return name + ": a whole number from " + TextOf(static_cast<int>(Limits::min())) + " to " +
           TextOf(static_cast<int>(Limits::max())) + " is wanted";
}

template <typename Number>
std::optional<Number> ValueOf(const std::string& text) {
    const auto number = NumberOf(text);
    if (!number) return std::nullopt;
    if constexpr (std::is_same_v<Number, Single>) {
        const auto single = SingleOf(*number);
        return single ? std::optional(AsShown(*single)) : std::nullopt;
    } else {
        return WholeOf<Number>(*number);
    }
}

template <typename Number>
std::string Read(const std::string& name, const std::string& text, Number& target) {
    const auto value = ValueOf<Number>(text);
    if (!value) return Wanted<Number>(name);
    target = *value;
    return {};
}

std::string ReadInto(const Field& field, const std::string& text) {
    const auto named = field.names ? field.names->find(text) : Names::const_iterator{};
    const bool isName = field.names && named != field.names->end();
    const std::string number = isName ? std::to_string(named->second) : text;
    return std::visit([&](auto* target) { return Read(std::string(field.name), number, *target); }, field.value);
}

std::string TextIn(const Field& field) {
    return std::visit(
        [&](auto* value) {
            std::string name = field.names ? NameOf(*field.names, static_cast<int>(*value)) : "";
            if (!name.empty()) return name;
            if constexpr (std::is_same_v<decltype(value), Single*>) return TextOf(*value);
            return TextOf(static_cast<int>(*value));
        },
        field.value);
}

// A field of the bench's own.
template <typename Number>
DeskField Setting(DeskPlace place, const char* name, const char* tip, Number& value, Number least, Number most) {
    const auto show = [&value] {
        if constexpr (std::is_same_v<Number, Single>) return TextOf(value);
        return TextOf(static_cast<int>(value));
    };
    const auto store = [=, &value](const std::string& text) -> std::string {
        const auto read = NumberOf(text);
        const bool fits = read && *read >= static_cast<double>(least) && *read <= static_cast<double>(most);
        if (!fits) {
            return std::string(name) + ": from " + TextOf(static_cast<Single>(least)) + " to " +
                   TextOf(static_cast<Single>(most));
        }
        value = static_cast<Number>(*read);
        return {};
    };
    return {place, name, tip, show, store};
}

}  // namespace

// `record` finds the record that is shown; entries are stored into the whole range that is chosen.
template <typename Record>
void Desk::AddRecordFields(DeskPlace place, const char* const* tips, std::function<Record&(Tables&, int)> record) {
    constexpr const Names* kWords = std::is_same_v<Record, StageDataType> ? &kCommandNames
                                    : std::is_same_v<Record, EneMoveType> ? &kStepNames
                                                                          : nullptr;
    Record sample{};
    const std::size_t count = FieldsOf(sample).size();
    for (std::size_t i = 0; i < count; ++i) {
        const Names* words = std::is_same_v<Record, EnemyDataType> ? nullptr : kWords;
        const auto show = [=, this] {
            Record shown = record(const_cast<Tables&>(bench_.Working()), range_.first);
            return TextIn(FieldsOf(shown, words)[i]);
        };
        const auto store = [=, this](const std::string& text) {
            const int last = place == DeskPlace::entry ? range_.last : range_.first;
            return Do([&](Tables& tables) {
                std::string problem;
                for (int row = range_.first; row <= last && problem.empty(); ++row) {
                    problem = ReadInto(FieldsOf(record(tables, row), words)[i], text);
                }
                return problem;
            });
        };
        fields_.push_back({place, std::string(FieldsOf(sample)[i].name), tips[i], show, store});
    }
}

void Desk::AddFields() {
    using enum DeskPlace;
    AddRecordFields<StageDataType>(
        entry, kEntryTips, [this](Tables & t, int row) -> auto& { return t.Stages[range_.table][row]; });
    AddRecordFields<EnemyDataType>(
        DeskPlace::kind, kKindTips, [this](Tables & t, int) -> auto& { return t.EnemyData[kind_]; });
    AddRecordFields<EneMoveType>(
        DeskPlace::step,
        kStepTips, [this](Tables & t, int) -> auto& { return t.EneMove[std::max(PatternOfKind(), 0)][step_]; });
    fields_.push_back(
        Setting(range, "Copies", "how many more of the range the wave has, 1 to 512", wave_.copies, 1, 512));
    fields_.push_back(Setting(range, "Every", "frames from one copy to the next, 0 to 32767", wave_.frames, 0, 32767));
    fields_.push_back(Setting(range, "Across", "pixels to the right from copy to copy", wave_.across, -320.0F, 320.0F));
    fields_.push_back(Setting(range, "Shift by", "frames to add to each Counter of the range", shift_, -32767, 32767));
    fields_.push_back(
        Setting(DeskPlace::step, "Speed", "pixels a frame, of a path that is drawn", speed_, 0.1F, 32.0F));
    fields_.push_back(
        Setting(start, "Energy", "with which play from here begins, up to 10", start_.energy, 0.1F, 10.0F));
    fields_.push_back(Setting<Byte>(start, "Weapon", "0 forward, 1 spread", start_.shotMode, 0, 1));
    fields_.push_back({start, "Level", "1 Easy, 2 Nomal, 5 Hard",
                       [this] { return TextOf(static_cast<int>(start_.level)); },
                       [this](const std::string& text) -> std::string {
                           for (const Difficulty& d : kDifficulties) {
                               if (std::to_string(d.level) == text) return start_.level = d.level, "";
                           }
                           return "Level: 1, 2 or 5";
                       }});
    fields_.push_back({start, "Seed", "of the random numbers; empty: another one each time",
                       [this] { return start_.seed ? std::to_string(*start_.seed) : ""; },
                       [this](const std::string& text) -> std::string {
                           const auto seed = NumberOf(text);
                           start_.seed.reset();
                           if (seed && *seed >= 0 && *seed < 1e15) start_.seed = static_cast<std::uint64_t>(*seed);
                           return seed || text.empty() ? "" : "Seed: a whole number is wanted";
                       }});
    fields_.push_back(Setting<bool>(start, "Invincible", "1: the ship is not hit", start_.invincible, false, true));
}

// An action on the chosen range; afterwards `chooseLength` entries from `chooseFrom` on are chosen.
std::string Desk::OnRange(const std::function<std::string(Tables&, const EntryRange&)>& action, int chooseFrom,
                          int chooseLength) {
    const EntryRange range = range_;
    std::string problem = Do([&](Tables& tables) { return action(tables, range); });
    if (problem.empty()) Choose(chooseFrom, chooseFrom + chooseLength - 1);
    return problem;
}

void Desk::AddButtons() {
    using enum DeskPlace;
    const auto add = [this](DeskPlace place, const char* caption, const char* key, const char* tip,
                            std::function<std::string()> press) {
        buttons_.push_back({place, caption, tip, key, std::move(press)});
    };
    const auto length = [this] { return range_.last - range_.first + 1; };
    add(range, "Insert", "Ctrl+Ins", "an entry before the chosen one", [this] {
        return OnRange([](Tables& t, const EntryRange& r) { return InsertEntry(t, r.table, r.first); }, range_.first,
                       1);
    });
    add(range, "Delete", "Ctrl+Del", "the chosen entries", [this] {
        return OnRange([](Tables& t, const EntryRange& r) { return DeleteEntries(t, r); }, range_.first, 1);
    });
    add(range, "Duplicate", "Ctrl+D", "the chosen entries, behind themselves", [this, length] {
        return OnRange([](Tables& t, const EntryRange& r) { return DuplicateEntries(t, r); }, range_.last + 1,
                       length());
    });
    add(range, "Up", "Ctrl+Up", "the chosen entries before the one above", [this, length] {
        if (range_.first == 0) return std::string("it is the first one");
        return OnRange([](Tables& t, const EntryRange& r) { return MoveEntries(t, r, r.first - 1); }, range_.first - 1,
                       length());
    });
    add(range, "Down", "Ctrl+Down", "the chosen entries behind the one below", [this, length] {
        if (range_.last + 1 >= EntriesInUse(bench_.Working(), range_.table)) return std::string("it is the last one");
        return OnRange([](Tables& t, const EntryRange& r) { return MoveEntries(t, r, r.last + 2); }, range_.first + 1,
                       length());
    });
    add(range, "Mirror X", "Ctrl+M", "the places of the chosen enemies, left to right",
        [this, length] { return OnRange(MirrorX, range_.first, length()); });
    add(range, "Wave", "Ctrl+W",
        "copies of the chosen entries behind them: how many, every how many frames, how far across", [this, length] {
            return OnRange([this](Tables& t, const EntryRange& r) { return RepeatEntries(t, r, wave_); }, range_.first,
                           length() * (wave_.copies + 1));
        });
    add(range, "Shift", "", "adds frames to each Counter of the range", [this, length] {
        return OnRange([this](Tables& t, const EntryRange& r) { return ShiftCounters(t, r, shift_); }, range_.first,
                       length());
    });
    add(DeskPlace::entry, "New kind", "Ctrl+K",
        "the chosen entries get a kind and a path of their own, at first a copy", [this] {
            int made = -1;
            std::string problem = Do(
                [&](Tables& t) {
                    std::string why = NewKind(t, kind_, made);
                    for (int i = range_.first; i <= range_.last && why.empty(); ++i) {
                        t.Stages[range_.table][i].No = static_cast<Integer>(made);
                    }
                    return why;
                },
                "a new kind like " + std::to_string(kind_));
            if (problem.empty()) ChooseKind(made);
            return problem;
        });
    add(DeskPlace::step, "Draw path", "Ctrl+P", "then draw the way of the kind into the field", [this] {
        drawing_ = !drawing_;
        return std::string(drawing_ ? "draw the way of kind " + std::to_string(kind_) + " into the field" : "");
    });
    add(history, "Back", "F7", "takes the last action back (Ctrl+Z)", [this] {
        const bool any = bench_.Done() > 0;
        GoTo(any ? bench_.Done() - 1 : 0);
        return any ? "back: " + bench_.History()[bench_.Done()].label : std::string("this is the beginning");
    });
    add(history, "Forward", "F8", "does it again (Ctrl+Shift+Z)", [this] {
        const bool any = bench_.Done() < bench_.History().size();
        GoTo(bench_.Done() + 1);
        return any ? "again: " + bench_.History()[bench_.Done() - 1].label
                   : std::string("there is nothing to do again");
    });
    add(history, "Save", "Ctrl+S", "the changed tables to the disk; what was there stays as .bak", [this] {
        const auto unsaved = bench_.Unsaved();
        std::string problem = bench_.Save();
        if (!problem.empty()) return problem;
        std::string saved;
        for (const std::string& file : unsaved) saved += (saved.empty() ? "saved: " : ", ") + file;
        return saved.empty() ? std::string("everything is saved") : saved;
    });
}
