// hostile_digests GAMES FRAMES: plays hostile games of at most so many frames each and prints a line for each: its
// frames and a fingerprint of the state after every one of them. Any two builds print the same, the browser's too.
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "hostile.h"
#include "hostile_folder.h"
#include "recording/digest.h"
#include "state/state.h"

namespace {

std::uint64_t digest = 0;

void AddFrame() {
    digest = (digest ^ DigestState(game)) * 0x100000001B3u;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return std::fputs("usage: hostile_digests GAMES FRAMES\n", stderr), 2;
    const int games = std::atoi(argv[1]), frames = std::atoi(argv[2]);
    const std::string folder = hostile::MakeFolder();
    for (int i = 0; i < games; ++i) {
        const std::string name = "game " + std::to_string(i);
        digest = 0;
        const HostileReport report = PlayHostileGame({reinterpret_cast<const std::uint8_t*>(name.data()), name.size()},
                                                     folder, frames, AddFrame);
        std::printf("%s: %d frames %016" PRIx64 "\n", name.c_str(), report.frames, digest);
    }
    hostile::RemoveFolder(folder);
    return 0;
}
