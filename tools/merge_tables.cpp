#include "merge_tables.h"

#include <algorithm>
#include <optional>
#include <set>

#include "merge_edits.h"
#include "merge_workshop.h"

namespace {

std::string LineText(const std::string& source, int line) {
    const std::size_t start = std::min(source.find_first_not_of(' ', LineStart(source, line)), source.size());
    return source.substr(start, std::min(source.find('\n', start), source.size()) - start);
}

class Merger {
  public:
    MergeResult Merge(const Tables& wanted, const std::string& folder);

  private:
    std::optional<Spot> NextSpot() const;
    bool Mend(const Spot& spot);
    void Make(const Edit& edit, BuiltState state);
    std::string WhyLeft(std::size_t sheet, const Origin& origin) const;
    void TellWhatIsLeft(std::size_t sheet);

    Workshop shop_;
    std::set<std::pair<std::size_t, std::pair<int, int>>> givenUp_;  // sheet, and record built and wanted
    MergeResult result_;
};

std::optional<Spot> Merger::NextSpot() const {
    for (std::size_t sheet = 0; sheet < shop_.Wanted().size(); ++sheet) {
        for (const Difference& difference : shop_.Now().differences[sheet]) {
            const bool open = !givenUp_.contains({sheet, {difference.built, difference.wanted}});
            if (open) return Spot{sheet, difference};
        }
    }
    return {};
}

void Merger::Make(const Edit& edit, BuiltState state) {
    const std::string before = shop_.Sources().at(edit.file);
    shop_.Make(edit, std::move(state));
    const std::string& after = shop_.Sources().at(edit.file);
    result_.sources[edit.file] = after;
    const auto start = before.begin() + static_cast<std::ptrdiff_t>(edit.start);
    const int line = 1 + static_cast<int>(std::count(before.begin(), start, '\n'));
    const bool comes = edit.start == edit.end && edit.text.ends_with('\n'), goes = edit.text.empty();
    const std::string now = goes ? "is gone" : "→ " + LineText(after, line);
    result_.done.push_back(edit.file + ":" + std::to_string(line) + ": " +
                           (comes ? "new: " + LineText(after, line) : LineText(before, line) + " " + now));
}

// Makes the edit that leaves the least to be done; false when none is better than nothing.
bool Merger::Mend(const Spot& spot) {
    std::optional<BuiltState> best;
    Edit chosen;
    for (const Edit& edit : EditsFor(shop_, spot)) {
        auto state = shop_.Try(edit);
        if (!state || state->cost >= (best ? best->cost : shop_.Now().cost)) continue;
        best = std::move(state);
        chosen = edit;
    }
    if (best) Make(chosen, std::move(*best));
    return best.has_value();
}

std::string Merger::WhyLeft(std::size_t sheet, const Origin& origin) const {
    const auto origins = OriginsOf(*shop_.Now().built)[sheet].first(shop_.Now().sheets[sheet].rows.size());
    const auto made = std::ranges::count(origins, origin.inner, &Origin::inner);
    if (made > 1) return "this line makes " + std::to_string(made) + " records by one rule";
    return "no single number, name or line gives it";
}

// One line for all that follows each other from one line of a source.
void Merger::TellWhatIsLeft(std::size_t sheet) {
    const auto& differences = shop_.Now().differences[sheet];
    const auto originOf = [&](const Difference& d) { return shop_.OriginAt(sheet, d.built >= 0 ? d.built : d.wanted); };
    for (auto first = differences.begin(); first != differences.end();) {
        const Origin origin = originOf(*first);
        const auto last = std::find_if(first, differences.end(),
                                       [&](const Difference& d) { return originOf(d).inner != origin.inner; });
        std::string text = shop_.Wanted()[sheet].source + ":" + std::to_string(std::max(origin.inner, 1)) + ": " +
                           Describe(*first, shop_.Now().sheets[sheet], shop_.Wanted()[sheet]);
        if (last - first > 1) text += ", and " + std::to_string(last - first - 1) + " more";
        result_.left.push_back(text + ": " + WhyLeft(sheet, origin));
        first = last;
    }
}

MergeResult Merger::Merge(const Tables& wanted, const std::string& folder) {
    result_.fault = shop_.Open(wanted, folder);
    if (!result_.fault.empty()) return std::move(result_);
    while (const auto spot = NextSpot()) {
        if (!Mend(*spot)) givenUp_.insert({spot->sheet, {spot->difference.built, spot->difference.wanted}});
    }
    for (std::size_t sheet = 0; sheet < shop_.Wanted().size(); ++sheet) TellWhatIsLeft(sheet);
    return std::move(result_);
}

}  // namespace

MergeResult MergeTables(const Tables& wanted, const std::string& folder) {
    return Merger().Merge(wanted, folder);
}
