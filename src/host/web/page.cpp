#include "host/web/page.h"

#include <emscripten.h>

// The one import that suspends the program.
EM_ASYNC_JS(void, GivePage, (int turn, double time), { await Module["page"].give(turn, time); });

const emscripten::val& web::Page() {
    static const emscripten::val page = emscripten::val::module_property("page");
    return page;
}

void web::Give(Turn turn, double time) {
    GivePage(static_cast<int>(turn), time);
}
