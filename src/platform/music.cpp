#include "platform/music.h"

#include <algorithm>
#include <cctype>
#include <string>

#include "host/audio.h"
#include "state/main_form.h"
#include "toolkit/folder.h"

namespace {

constexpr std::string_view kClose = "close MIDI notify";
constexpr std::string_view kPlay = "play MIDI notify";
constexpr std::string_view kStop = "stop MIDI notify";
constexpr std::string_view kStatus = "status MIDI mode";
constexpr std::string_view kRewind = "seek MIDI to start";
constexpr std::string_view kReplay = "play MIDI from 0";

bool StartsWithStopped(std::string_view reply) {
    constexpr std::string_view kWord = "STOPPED";
    return reply.size() >= kWord.size() && std::equal(kWord.begin(), kWord.end(), reply.begin(), [](char a, char b) {
               return a == std::toupper(static_cast<unsigned char>(b));
           });
}

void OpenQuoted(std::string_view command) {
    const auto first = command.find('"');
    const auto last = command.rfind('"');
    if (first == last) return;
    MusicOpen(std::string(command.substr(first + 1, last - first - 1)));
}

}  // namespace

std::string_view mciSendStringA(std::string_view command) {
    if (command.starts_with("open ")) {
        OpenQuoted(command);
    } else if (command == kClose) {
        MusicClose();
    } else if (command == kPlay) {
        MusicPlay();
    } else if (command == kStop) {
        MusicStop();
    } else if (command == kRewind) {
        MusicRewind();
    } else if (command == kReplay) {
        MusicRewind();
        MusicPlay();
    } else if (command == kStatus) {
        return MusicMode();
    }
    return {};
}

void OpenMidi(std::string_view fileName) {
    game.BgmLoop = False;
    mciSendStringA(kClose);
    mciSendStringA("open \"" + FolderPath(fileName) + "\" alias MIDI");
}

void CloseMidi() {
    game.BgmLoop = False;
    mciSendStringA(kClose);
}

void StopMidi() {
    game.BgmLoop = False;
    mciSendStringA(kStop);
}

void PlayMidi(Integer loopIt) {
    if (!MainForm.Menu006.Checked) return;
    if (loopIt != False) game.BgmLoop = True;
    mciSendStringA(kPlay);
}

void Bgm_Check_Timer() {
    if (!StartsWithStopped(mciSendStringA(kStatus)) || game.BgmLoop == False) return;
    mciSendStringA(kRewind);
    mciSendStringA(kReplay);
}

void PlayEffect(const std::vector<Byte>& wave) {
    if (MainForm.Menu004.Checked) PlayWave(wave);
}
