#include "lua_text.h"

#include <algorithm>
#include <bit>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "toolkit/numbers.h"

namespace {

bool IsShown(Single value) {
    return std::isfinite(value) && SameBits(AsShown(value), value);
}

// What Lua reads in the text.
double NumberIn(const std::string& text) {
    return std::strtod(text.c_str(), nullptr);
}

std::string ManyDigits(double number) {
    char text[40];
    snprintf(text, sizeof text, "%.9g", number);
    return text;
}

// Intercept and slope of the line that comes nearest to all of them.
std::pair<double, double> LineThrough(std::span<const Single> values) {
    const auto n = static_cast<double>(values.size());
    double sum = 0, moment = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        sum += NumberIn(TextOf(values[i]));
        moment += NumberIn(TextOf(values[i])) * (static_cast<double>(i) - (n - 1) / 2);
    }
    const double slope = moment * 12 / (n * (n * n - 1));
    return {sum / n - slope * (n - 1) / 2, slope};
}

bool Fits(const Progression& progression, std::span<const Single> values) {
    const double first = NumberIn(progression.first), step = NumberIn(progression.step);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto built = static_cast<Single>(first + step * static_cast<double>(i));
        if (!SameBits(AsShown(built), values[i])) return false;
    }
    return true;
}

}  // namespace

bool SameBits(Single a, Single b) {
    return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}

Words WordsOf(const Names& names) {
    Words words;
    for (const auto& [name, number] : names) words.emplace(number, Quoted(name));
    return words;
}

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        char escape[8];
        const bool plain = std::isprint(static_cast<unsigned char>(c)) != 0 && c != '"' && c != '\\';
        snprintf(escape, sizeof escape, plain ? "%c" : "\\%03d", plain ? c : static_cast<unsigned char>(c));
        quoted += escape;
    }
    return quoted + '"';
}

std::string LuaText(Single value) {
    if (IsShown(value)) return TextOf(value);
    char text[40];
    snprintf(text, sizeof text, "\"#%08X\" --[[%.9g]]", std::bit_cast<std::uint32_t>(value),
             static_cast<double>(value));
    return text;
}

Cells CellsOf(std::span<const Field> fields, const Words& words) {
    Cells cells;
    for (const Field& field : fields) {
        const auto text = [&](const auto* value) {
            if constexpr (std::is_same_v<decltype(value), const Single*>) {
                return LuaText(*value);
            } else {
                const auto word = field.names ? words.find(*value) : words.end();
                return word == words.end() ? std::to_string(*value) : word->second;
            }
        };
        cells.push_back({field.name, std::visit(text, field.value)});
    }
    return cells;
}

std::string ListOf(const Cells& cells) {
    std::string list;
    for (const Cell& cell : cells) {
        if (cell.text == "0") continue;
        if (!list.empty()) list += ", ";
        list += std::string(cell.name) + " = " + cell.text;
    }
    return list;
}

std::string Progression::Text() const {
    if (step == "0") return first;
    const bool down = step.front() == '-';
    return first + (down ? " - " : " + ") + (down ? step.substr(1) : step) + " * i";
}

std::optional<Progression> ProgressionOf(std::span<const Single> values) {
    const auto differs = [&](Single value) { return !SameBits(value, values.front()); };
    if (std::ranges::none_of(values, differs)) return Progression{LuaText(values.front()), "0"};
    if (!std::ranges::all_of(values, IsShown)) return {};
    const auto [first, step] = LineThrough(values);
    const double ends = NumberIn(TextOf(values.back())) - NumberIn(TextOf(values.front()));
    const Progression plain{TextOf(values.front()), ManyDigits(ends / static_cast<double>(values.size() - 1))};
    if (Fits(plain, values)) return plain;
    const Progression fitted{ManyDigits(first), ManyDigits(step)};
    return Fits(fitted, values) ? std::optional(fitted) : std::nullopt;
}
