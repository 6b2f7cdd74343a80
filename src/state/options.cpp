#include "state/options.h"

#include <algorithm>
#include <cassert>

namespace {

std::size_t RowOf(MenuItem MainFormType::*item) {
    const auto* row = std::ranges::find(kOptions, item, &Option::item);
    assert(row != std::end(kOptions));
    return static_cast<std::size_t>(row - kOptions);
}

}  // namespace

OptionMarks::OptionMarks() {
    static const MainFormType kDesign;
    for (std::size_t i = 0; i < marks_.size(); ++i) marks_[i] = (kDesign.*kOptions[i].item).Checked;
}

bool& OptionMarks::operator[](MenuItem MainFormType::*item) {
    return marks_[RowOf(item)];
}
bool OptionMarks::operator[](MenuItem MainFormType::*item) const {
    return marks_[RowOf(item)];
}

OptionMarks CurrentOptions() {
    OptionMarks marks;
    for (const Option& option : kOptions) marks[option.item] = (MainForm.*option.item).Checked;
    return marks;
}

void SetOptions(const OptionMarks& marks) {
    for (const Option& option : kOptions) (MainForm.*option.item).Checked = marks[option.item];
}
