// Where the player's runs come together on the desktop: their list (F2), films of them, races against them. All of it
// happens in the yields of the title.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/desktop/desktop.h"
#include "runs_window/race.h"
#include "runs_window/runs_window.h"

namespace runs_window {

class RunDesk {
  public:
    // Gives the host its key. After what records games, before Main; one at a time.
    explicit RunDesk(desktop::Host& host);
    ~RunDesk();
    RunDesk(const RunDesk&) = delete;
    RunDesk& operator=(const RunDesk&) = delete;

    // Does it at the next yield of the title, when the list is closed by then.
    void Ask(Deed deed, const std::string& path);

  private:
    struct Wish {
        Deed deed;
        std::string path;
    };

    static void Tap(std::vector<InputEvent>& events);
    void OpenList();
    void Do(const Wish& wish);

    desktop::Host& host_;
    std::unique_ptr<RunsWindow> list_;  // from the first time on
    std::optional<Wish> wish_;
    std::optional<Race> race_;
    class FilmShow* film_ = nullptr;
};

}  // namespace runs_window
