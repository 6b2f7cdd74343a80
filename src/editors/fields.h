// What the editors share: the text fields of a window as views of a record, and the refusal of what was typed into
// them. A refusal changes nothing but the focus: a record is stored whole or not at all.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "state/state.h"
#include "toolkit/forms.h"
#include "toolkit/numbers.h"

// A text field and the record's field that it edits. The label stands beside the text field; its caption names the
// field in refusals, since it is what the author reads on the window.
template <typename Record>
struct Field {
    const char* Text;
    const char* Label;
    std::variant<Single Record::*, Integer Record::*, Byte Record::*> Member;
    const char* Tip;
};

// Tells the author which field is refused and what it wants ("a number from 0 to 255"), and gives it the keyboard.
void Refuse(Form& form, const char* field, const char* label, const std::string& wanted);

// The value in the text field, rounded as its type needs. When it is none of the type's range the field is refused.
template <typename Value>
std::optional<Value> ReadField(Form& form, const char* field, const char* label);

// Shows a message, unless it is empty, under the window's caption.
void Report(const Form& form, const std::string& message);

template <typename Record, std::size_t Count>
void ShowFields(Form& form, const Field<Record> (&fields)[Count], const Record& record) {
    for (const auto& field : fields) {
        std::visit([&](auto member) { form[field.Text].Text = TextOf(record.*member); }, field.Member);
    }
}

// The record as typed, or none after the first field, in the table's order, that was refused.
template <typename Record, std::size_t Count>
std::optional<Record> ReadFields(Form& form, const Field<Record> (&fields)[Count]) {
    Record record{};
    const auto read = [&]<typename Value>(const Field<Record>& field, Value Record::*member) {
        const auto value = ReadField<Value>(form, field.Text, field.Label);
        if (value) record.*member = *value;
        return value.has_value();
    };
    for (const auto& field : fields) {
        if (!std::visit([&](auto member) { return read(field, member); }, field.Member)) return std::nullopt;
    }
    return record;
}

template <typename Record, std::size_t Count>
void SetTips(Form& form, const Field<Record> (&fields)[Count]) {
    for (const auto& field : fields) form[field.Text].Tip = field.Tip;
}

// Enter has stored the fields: the keyboard goes to the next one, and from the last one to the first of the next
// record.
template <typename Record, std::size_t Count>
void GoOn(Form& form, const Field<Record> (&fields)[Count], std::string_view bar) {
    std::size_t at = 0;
    while (at < Count && form.Focus != fields[at].Text) ++at;
    if (at == Count) return;
    if (at + 1 == Count) SetScrollValue(form, bar, form[bar].Value + 1);
    form.Focus = fields[(at + 1) % Count].Text;
}
