#include "host/web/menus.h"

#include <emscripten/val.h>

#include <string>

#include "host/web/page.h"
#include "state/main_form.h"

using emscripten::val;

namespace {

// One character for each item of the bar: bit 0 checked, bit 1 available.
std::string StateOfMenus() {
    std::string state;
    for (const auto member : kMenuBar) {
        const MenuItem& item = MainForm.*member;
        state += static_cast<char>('0' + (item.Checked ? 1 : 0) + (item.Enabled ? 2 : 0));
    }
    return state;
}

}  // namespace

void web::BuildMenus() {
    val items = val::array();
    for (const auto member : kMenuBar) {
        const MenuItem& item = MainForm.*member;
        val told = val::object();
        told.set("name", std::string(item.Name));
        told.set("caption", std::string(item.Caption));
        told.set("popup", item.IsPopup);
        told.set("separator", item.IsSeparator());
        items.call<void>("push", told);
    }
    Page().call<void>("buildMenus", items);
}

void web::SyncMenus() {
    static std::string told;
    std::string now = StateOfMenus();
    if (now == told) return;
    told = std::move(now);
    Page().call<void>("syncMenus", told);
}
