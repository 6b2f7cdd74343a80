// Which keys are down right now, as far as the window system can say. Key events tell it only while the window has the
// keyboard, and one that is lost on the way would leave its key down for ever.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace desktop {

// The places (scan codes) of the keys that are down. Nothing: the window system does not say.
std::optional<std::vector<std::uint32_t>> PlacesDown();

// The symbol that the key at this place writes without shift; 0: none.
std::uint32_t SymbolAt(std::uint32_t place);

}  // namespace desktop
