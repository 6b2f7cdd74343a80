#include "editors/fields.h"

#include <limits>
#include <type_traits>

#include "host/window.h"

namespace {

template <typename Value>
std::optional<Value> Convert(double number) {
    if constexpr (std::is_same_v<Value, Single>) {
        return SingleOf(number);
    } else {
        return WholeOf<Value>(number);
    }
}

template <typename Value>
std::string Range() {
    using Limits = std::numeric_limits<Value>;
    return "a number from " + TextOf(Limits::lowest()) + " to " + TextOf(Limits::max());
}

}  // namespace

void Refuse(Form& form, const char* field, const char* label, const std::string& wanted) {
    form.Focus = field;
    Report(form, form[label].Caption + ": \"" + form[field].Text + "\" is not " + wanted + ".");
}

template <typename Value>
std::optional<Value> ReadField(Form& form, const char* field, const char* label) {
    const std::optional<double> number = NumberOf(form[field].Text);
    const std::optional<Value> value = number ? Convert<Value>(*number) : std::nullopt;
    if (!value) Refuse(form, field, label, Range<Value>());
    return value;
}

template std::optional<Single> ReadField<Single>(Form&, const char*, const char*);
template std::optional<Integer> ReadField<Integer>(Form&, const char*, const char*);
template std::optional<Byte> ReadField<Byte>(Form&, const char*, const char*);

void Report(const Form& form, const std::string& message) {
    if (!message.empty()) MsgBox(message, form.Caption);
}
