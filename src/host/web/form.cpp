#include "host/web/form.h"

#include <string>

#include "host/web/page.h"
#include "toolkit/forms.h"

using emscripten::val;

namespace {

Form* top = nullptr;

const char* NameOf(ControlKind kind) {
    switch (kind) {
        case ControlKind::label:
            return "label";
        case ControlKind::textField:
            return "textField";
        case ControlKind::button:
            return "button";
        case ControlKind::hScroll:
            return "hScroll";
        case ControlKind::vScroll:
            return "vScroll";
        case ControlKind::frame:
            return "frame";
        case ControlKind::line:
            return "line";
    }
    return "";
}

// What handlers change.
val StateOf(const Control& control) {
    val told = val::object();
    told.set("name", control.Name);
    told.set("caption", control.Caption);
    told.set("text", control.Text);
    told.set("value", control.Value);
    return told;
}

val DesignOf(const Control& control) {
    val told = StateOf(control);
    told.set("kind", std::string(NameOf(control.Kind)));
    told.set("left", control.At.Left);
    told.set("top", control.At.Top);
    told.set("width", control.At.Width);
    told.set("height", control.At.Height);
    told.set("container", control.Container);
    told.set("rightAligned", control.RightAligned);
    told.set("tabIndex", control.TabIndex);
    told.set("min", control.Min);
    told.set("max", control.Max);
    told.set("smallChange", control.SmallChange);
    told.set("largeChange", control.LargeChange);
    return told;
}

template <typename Tell>
val ListOf(const Form& form, Tell tell) {
    val list = val::array();
    for (const Control& control : form.Controls) list.call<void>("push", tell(control));
    return list;
}

val DesignOf(const Form& form) {
    val told = val::object();
    told.set("name", form.Name);
    told.set("caption", form.Caption);
    told.set("width", form.ClientWidth);
    told.set("height", form.ClientHeight);
    told.set("controls", ListOf(form, [](const Control& control) { return DesignOf(control); }));
    told.set("focus", form.Focus);
    return told;
}

}  // namespace

web::FormOnPage::FormOnPage(Form& form) : form_(form), below_(top) {
    form.Shown = true;
    top = &form;
    Page().call<void>("openForm", DesignOf(form));
}

web::FormOnPage::~FormOnPage() {
    form_.Shown = false;
    top = below_;
    Page().call<void>("closeForm");
}

void web::FormOnPage::SyncTop() {
    if (top) Page().call<void>("syncForm", ListOf(*top, StateOf), top->Focus);
}

void web::FormOnPage::CarryOut() const {
    const val acts = Page().call<val>("takeActs");
    const auto count = acts["length"].as<unsigned>();
    for (unsigned i = 0; i < count && form_.Shown; ++i) CarryOut(acts[i]);
    if (count > 0 && form_.Shown) SyncTop();
}

void web::FormOnPage::CarryOut(const val& act) const {
    const auto what = act["act"].as<std::string>(), name = act["name"].as<std::string>();
    if (what == "focus") {
        form_.Focus = name;
    } else if (what == "type") {
        TypeText(form_, name, act["text"].as<std::string>());
    } else if (what == "click") {
        ClickButton(form_, name);
    } else if (what == "scroll") {
        SetScrollValue(form_, name, act["value"].as<int>());
    } else if (what == "close") {
        form_.Shown = false;
    }
}
