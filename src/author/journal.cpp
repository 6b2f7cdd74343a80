#include "author/journal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>
#include <optional>
#include <span>
#include <utility>

#include "author/fields.h"
#include "toolkit/folder.h"

namespace {

constexpr std::string_view kJournalFile = "\\Bench.journal";
constexpr std::string_view kHeader = "tarnveil-bench 1";

// The shortest text that reads back as the same bits; "nan" and "inf" too.
template <typename Number>
std::string Exact(Number value) {
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    return {text.data(), end};
}

template <typename Record>
std::string Values(Record record) {
    std::string line;
    for (const Field& field : FieldsOf(record)) {
        line += ' ';
        line += std::visit(
            [](auto* value) {
                if constexpr (std::is_same_v<decltype(value), Single*>) {
                    return Exact(*value);
                } else {
                    return Exact(static_cast<int>(*value));
                }
            },
            field.value);
    }
    return line;
}

std::string Line(const RecordChange<StageDataType>& c) {
    return "entry " + Exact(c.table) + ' ' + Exact(c.index) + Values(c.after);
}
std::string Line(const RecordChange<EnemyDataType>& c) {
    return "kind " + Exact(c.index) + Values(c.after);
}
std::string Line(const RecordChange<EneMoveType>& c) {
    return "step " + Exact(c.table) + ' ' + Exact(c.index) + Values(c.after);
}

std::vector<std::string_view> Words(std::string_view line) {
    std::vector<std::string_view> words;
    while (!line.empty()) {
        const auto blank = std::min(line.find(' '), line.size());
        if (blank > 0) words.push_back(line.substr(0, blank));
        line.remove_prefix(std::min(blank + 1, line.size()));
    }
    return words;
}

template <typename Number>
bool Read(std::string_view word, Number& value) {
    const auto result = std::from_chars(word.data(), word.data() + word.size(), value);
    return result.ec == std::errc{} && result.ptr == word.data() + word.size();
}

// Whole numbers must fit their field.
template <typename Number>
bool ReadInto(std::string_view word, Number* field) {
    if constexpr (std::is_same_v<Number, Single>) {
        return Read(word, *field);
    } else {
        int whole = 0;
        if (!Read(word, whole) || !std::in_range<Number>(whole)) return false;
        *field = static_cast<Number>(whole);
        return true;
    }
}

template <typename Record>
bool ReadRecord(std::span<const std::string_view> words, Record& record) {
    Record read{};
    const auto fields = FieldsOf(read);
    if (words.size() != fields.size()) return false;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (!std::visit([&](auto* field) { return ReadInto(words[i], field); }, fields[i].value)) return false;
    }
    record = read;
    return true;
}

// The numbers before the record's own: each below its bound.
template <std::size_t count>
bool ReadPlaces(std::span<const std::string_view> words, const int (&bounds)[count], int (&places)[count]) {
    if (words.size() < count) return false;
    for (std::size_t i = 0; i < count; ++i) {
        if (!Read(words[i], places[i]) || places[i] < 0 || places[i] >= bounds[i]) return false;
    }
    return true;
}

bool TakeLine(std::span<const std::string_view> words, Tables& tables) {
    const std::string_view what = words[0];
    words = words.subspan(1);
    if (what == "kind") {
        int at[1];
        return ReadPlaces(words, {kEnemyKinds}, at) && ReadRecord(words.subspan(1), tables.EnemyData[at[0]]);
    }
    int at[2];
    if (what == "entry") {
        return ReadPlaces(words, {kStageTables, kStageEntries}, at) &&
               ReadRecord(words.subspan(2), tables.Stages[at[0]][at[1]]);
    }
    return what == "step" && ReadPlaces(words, {kMovePatterns, kMoveSteps}, at) &&
           ReadRecord(words.subspan(2), tables.EneMove[at[0]][at[1]]);
}

std::vector<std::string_view> LinesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

std::string Wrong(std::size_t line, const std::string& reason) {
    return "Bench.journal, line " + std::to_string(line) + ": " + reason;
}

}  // namespace

std::string FormatJournal(const std::vector<TableChange>& changes) {
    std::string text(kHeader);
    text += '\n';
    for (const TableChange& change : changes) {
        text += std::visit([](const auto& c) { return Line(c); }, change) + '\n';
    }
    return text + "end " + std::to_string(changes.size()) + '\n';
}

std::string ParseJournal(std::string_view text, Tables& tables) {
    const auto lines = LinesOf(text);
    if (lines.empty() || lines[0] != kHeader) return Wrong(1, "this is no journal of the bench");
    auto read = std::make_unique<Tables>(tables);
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const auto words = Words(lines[i]);
        if (words.size() == 2 && words[0] == "end") {
            if (words[1] != std::to_string(i - 1)) return Wrong(i + 1, "lines are missing before it");
            tables = *read;
            return {};
        }
        if (words.empty() || !TakeLine(words, *read)) return Wrong(i + 1, "not a record of the tables");
    }
    return Wrong(lines.size(), "the end is missing");
}

void WriteJournal(const std::vector<TableChange>& changes) {
    if (changes.empty() && ReadFolderFile(kJournalFile).error == FileError::missing) return;
    const std::string text = FormatJournal(changes);
    const std::string reason =
        WriteFolderFile(kJournalFile, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    if (!reason.empty()) LogLine("Bench.journal: " + reason);
}

LeftOver ReadJournal(const Tables& files) {
    const FileBytes file = ReadFolderFile(kJournalFile);
    if (file.error == FileError::missing) return {};
    auto tables = std::make_unique<Tables>(files);
    LeftOver left;
    left.problem = ParseJournal({reinterpret_cast<const char*>(file.bytes.data()), file.bytes.size()}, *tables);
    left.changes = Differences(files, *tables);
    return left;
}
