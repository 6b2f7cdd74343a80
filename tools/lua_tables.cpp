#include "lua_tables.h"

#include <algorithm>
#include <cstdio>
#include <lua.hpp>
#include <memory>
#include <optional>
#include <span>

#include "author/names.h"
#include "host/file_sets.h"
#include "lua_fields.h"
#include "lua_script.h"

// The functions that scripts call return their fault instead of raising it: Lua raises errors by longjmp, which passes
// over destructors. `Guarded` raises it once everything is cleaned up.

namespace {

struct Builder {
    explicit Builder(BuiltTables& built) : tables(built.tables), passages(built.passages), all(built) {}

    Tables& tables;
    Passages& passages;
    BuiltTables& all;
    std::string source{};  // the file that runs
    Names patterns{};
    Names kinds = kCommandNames;
    bool patternGiven[kMovePatterns] = {};
    bool kindGiven[kEnemyKinds] = {};
    int pattern = -1;  // the one under construction
    int nextPattern = 0;
    int nextKind = 0;
    int nextStep = 0;
    std::size_t stage = 0;
    int nextEntry = 0;
    std::string fault;  // of the call that has just failed; lives here so that raising it leaks nothing
};

using Call = std::string (*)(lua_State*, Builder&);

// Calls one of the functions below. It leaves one result on the stack or tells its fault.
template <Call call>
int Guarded(lua_State* state) {
    auto& builder = *static_cast<Builder*>(SelfOf(state));
    builder.fault = call(state, builder);
    if (builder.fault.empty()) return 1;
    luaL_where(state, 1);
    lua_pushstring(state, builder.fault.c_str());
    lua_concat(state, 2);
    return lua_error(state);
}

std::string Numbered(std::string what, int number) {
    return what += std::to_string(number);
}

std::string Result(lua_State* state, int number) {
    lua_pushinteger(state, number);
    return {};
}

std::string KeyText(lua_State* state, int index) {
    if (lua_type(state, index) == LUA_TSTRING) {
        return std::string(std::string_view(lua_tostring(state, index)).substr(0, kLongestName));
    }
    if (lua_isinteger(state, index)) return std::string("number ") += std::to_string(lua_tointeger(state, index));
    return luaL_typename(state, index);
}

// Fills the record from the table that is the call's only argument. `extra` fields are left to the caller.
std::string FillRecord(lua_State* state, const std::string& what, std::span<const Field> fields,
                       std::span<const std::string_view> extra = {}) {
    if (lua_gettop(state) != 1 || !lua_istable(state, 1)) return what + ": one table is wanted: {field = value, ...}";
    for (lua_pushnil(state); lua_next(state, 1) != 0; lua_pop(state, 1)) {
        const std::string key = KeyText(state, -2);
        if (std::ranges::find(extra, key) != extra.end()) continue;
        const auto field = std::ranges::find(fields, key, &Field::name);
        if (field == fields.end()) return what + ": there is no field " + key;
        const std::string reason = SetField(state, -1, *field);
        if (!reason.empty()) return what + ", " + key + ": " + reason;
    }
    return {};
}

struct Heading {
    std::optional<std::string> name;
    int number;
};

// Reads the name and number at the two stack places; both may be nil.
std::string ReadHeading(lua_State* state, int nameAt, int numberAt, int count, Heading& heading) {
    if (lua_type(state, nameAt) == LUA_TSTRING) {
        if (lua_rawlen(state, nameAt) > kLongestName) return "the name is longer than 100 letters";
        heading.name = lua_tostring(state, nameAt);
    } else if (!lua_isnoneornil(state, nameAt)) {
        return "the name must be text";
    }
    if (!lua_isnoneornil(state, numberAt)) {
        Integer number = 0;
        const std::string reason = SetField(state, numberAt, {"number", &number});
        if (!reason.empty()) return "number: " + reason;
        heading.number = number;
    }
    if (heading.number >= 0 && heading.number < count) return {};
    return Numbered("number ", heading.number) + Numbered(" is not within 0..", count - 1);
}

std::string Register(const Heading& heading, Names& names, bool& given) {
    if (given) return Numbered("number ", heading.number) + " is given twice";
    given = true;
    if (!heading.name) return {};
    const bool added = names.emplace(*heading.name, static_cast<Integer>(heading.number)).second;
    return added ? "" : "the name " + *heading.name + " is taken";
}

std::string BeginPattern(lua_State* state, Builder& builder) {
    Heading heading{{}, builder.nextPattern};
    std::string reason = ReadHeading(state, 1, 2, kMovePatterns, heading);
    if (reason.empty()) reason = Register(heading, builder.patterns, builder.patternGiven[heading.number]);
    if (!reason.empty()) return "pattern: " + reason;
    builder.pattern = heading.number;
    builder.nextPattern = heading.number + 1;
    builder.nextStep = 0;
    return Result(state, heading.number);
}

std::string AddStep(lua_State* state, Builder& builder) {
    if (builder.pattern < 0) return "step: no pattern has begun";
    const std::string what = Numbered("pattern ", builder.pattern) + Numbered(", step ", builder.nextStep);
    if (builder.nextStep >= kMoveSteps) return what + ": a pattern has room for 256 steps";
    EneMoveType step{};
    std::string fault = FillRecord(state, what, FieldsOf(step, &kStepNames));
    if (!fault.empty()) return fault;
    builder.tables.EneMove[builder.pattern][builder.nextStep] = step;
    builder.all.stepOrigins[builder.pattern][builder.nextStep] = OriginIn(state, builder.source);
    return Result(state, builder.nextStep++);
}

std::string AddKind(lua_State* state, Builder& builder) {
    constexpr std::string_view kExtra[] = {"name", "number"};
    EnemyDataType kind{};
    const std::string what = Numbered("kind ", builder.nextKind);
    std::string fault = FillRecord(state, what, FieldsOf(kind, &builder.patterns), kExtra);
    if (!fault.empty()) return fault;
    lua_getfield(state, 1, "name");
    lua_getfield(state, 1, "number");
    Heading heading{{}, builder.nextKind};
    std::string reason = ReadHeading(state, 2, 3, kEnemyKinds, heading);
    if (reason.empty()) reason = Register(heading, builder.kinds, builder.kindGiven[heading.number]);
    if (!reason.empty()) return what + ": " + reason;
    builder.tables.EnemyData[heading.number] = kind;
    builder.all.kindOrigins[heading.number] = OriginIn(state, builder.source);
    builder.nextKind = heading.number + 1;
    return Result(state, heading.number);
}

constexpr int kLineRange = 100'000;  // of each of the two lines that here() makes one number of

std::string Here(lua_State* state, Builder& builder) {
    const Origin origin = OriginIn(state, builder.source);
    lua_pushinteger(state,
                    static_cast<lua_Integer>(origin.inner % kLineRange) * kLineRange + origin.outer % kLineRange);
    return {};
}

// What here() told the caller, or the line that is at work now.
Origin EntryOrigin(lua_State* state, const Builder& builder) {
    lua_getfield(state, 1, "from");
    const lua_Integer given = lua_isinteger(state, -1) ? lua_tointeger(state, -1) : 0;
    lua_pop(state, 1);
    if (given <= 0) return OriginIn(state, builder.source);
    return {static_cast<int>(given / kLineRange % kLineRange), static_cast<int>(given % kLineRange)};
}

std::string AddEntry(lua_State* state, Builder& builder) {
    constexpr std::string_view kExtra[] = {"from"};
    const std::string what = Numbered("entry ", builder.nextEntry);
    if (builder.nextEntry >= kStageEntries) return what + ": a table has room for 513 entries";
    StageDataType entry{};
    std::string fault = FillRecord(state, what, FieldsOf(entry, &builder.kinds), kExtra);
    if (!fault.empty()) return fault;
    builder.tables.Stages[builder.stage][builder.nextEntry] = entry;
    builder.all.entryOrigins[builder.stage][builder.nextEntry] = EntryOrigin(state, builder);
    return Result(state, builder.nextEntry++);
}

std::string NextStep(lua_State* state, Builder& builder) {
    return Result(state, builder.nextStep);
}
std::string NextEntry(lua_State* state, Builder& builder) {
    return Result(state, builder.nextEntry);
}

std::string NamePassage(lua_State* state, Builder& builder) {
    const bool good = lua_isinteger(state, 1) && lua_type(state, 2) == LUA_TSTRING;
    if (!good) return "name_passage: a frame and a name are wanted";
    if (builder.passages.count == kMostPassages)
        return "name_passage: " + std::to_string(kMostPassages) + " are the most";
    Passage& passage = builder.passages.list[builder.passages.count++];
    passage.stage = static_cast<int>(builder.stage);
    passage.frame = static_cast<int>(lua_tointeger(state, 1));
    snprintf(passage.name, sizeof passage.name, "%s", lua_tostring(state, 2));
    return Result(state, builder.passages.count);
}

std::string RunSource(const SourceReader& read, const std::string& source, Builder& builder,
                      std::initializer_list<std::pair<const char*, lua_CFunction>> functions) {
    builder.source = source;
    LuaScript script(read, source);
    for (const auto& [name, function] : functions) script.Define(name, function, &builder);
    return script.Run();
}

std::string RunStage(const SourceReader& read, std::size_t stage, Builder& builder) {
    builder.stage = stage;
    builder.nextEntry = 0;
    return RunSource(read, StageTable(stage).source, builder,
                     {{"entry", Guarded<AddEntry>},
                      {"next_entry", Guarded<NextEntry>},
                      {"here", Guarded<Here>},
                      {"name_passage", Guarded<NamePassage>}});
}

template <std::size_t count>
void KeepNames(const Names& names, GivenName (&given)[count]) {
    for (const auto& [name, number] : names) {
        if (number < static_cast<Integer>(count)) snprintf(given[number], sizeof given[number], "%s", name.c_str());
    }
}

std::string RunSources(const SourceReader& read, BuiltTables& built) {
    Builder builder(built);
    std::string fault =
        RunSource(read, kMoveTable.source, builder,
                  {{"pattern", Guarded<BeginPattern>}, {"step", Guarded<AddStep>}, {"next_step", Guarded<NextStep>}});
    if (!fault.empty()) return fault;
    fault = RunSource(read, kEnemyTable.source, builder, {{"kind", Guarded<AddKind>}});
    KeepNames(builder.patterns, built.patternNames);
    KeepNames(builder.kinds, built.kindNames);
    for (std::size_t i = 0; i < kStageTables && fault.empty(); ++i) fault = RunStage(read, i, builder);
    return fault;
}

}  // namespace

std::string BuildTables(const SourceReader& read, BuiltTables& built) {
    built = {};
    const auto work = [&](WorkPlace& place) {
        scriptPlace = &place;
        return RunSources(read, built);
    };
    return RunLimited(work, std::as_writable_bytes(std::span(&built, 1)));
}

std::string BuildTables(const std::string& folder, BuiltTables& built) {
    std::string fault = CompleteFileSet(folder);
    if (!fault.empty()) return fault;
    return BuildTables([&](const std::string& name) { return ReadWholeFile(folder + "/" + name); }, built);
}

std::string BuildTables(const std::string& folder, Tables& tables) {
    const auto built = std::make_unique<BuiltTables>();
    std::string fault = BuildTables(folder, *built);
    tables = built->tables;
    return fault;
}
