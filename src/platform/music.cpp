#include "platform/music.h"

#include <algorithm>
#include <cctype>
#include <string>

#include "host/audio.h"
#include "platform/unseen.h"
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

MusicNow musicNow;

bool Heard() {
    return !unseen && !unheard;
}

void Open(const std::string& path) {
    musicNow = {path, false};
    if (Heard()) MusicOpen(path);
}

void OpenQuoted(std::string_view command) {
    const auto first = command.find('"');
    const auto last = command.rfind('"');
    if (first == last) return;
    Open(std::string(command.substr(first + 1, last - first - 1)));
}

void Close() {
    musicNow = {};
    if (Heard()) MusicClose();
}

void Play(bool playing) {
    musicNow.playing = playing && !musicNow.path.empty();
    if (!Heard()) return;
    if (playing) MusicPlay();
    if (!playing) MusicStop();
}

void Rewind() {
    musicNow.playing = false;
    if (Heard()) MusicRewind();
}

}  // namespace

const MusicNow& TheMusic() {
    return musicNow;
}

void SetMusic(const MusicNow& wanted) {
    const MusicNow music = wanted;  // it may be TheMusic
    Close();
    if (!music.path.empty()) Open(music.path);
    if (music.playing) Play(true);
}

std::string_view mciSendStringA(std::string_view command) {
    if (command.starts_with("open ")) {
        OpenQuoted(command);
    } else if (command == kClose) {
        Close();
    } else if (command == kPlay) {
        Play(true);
    } else if (command == kStop) {
        Play(false);
    } else if (command == kRewind) {
        Rewind();
    } else if (command == kReplay) {
        Rewind();
        Play(true);
    } else if (command == kStatus) {
        return Heard() ? MusicMode() : "";
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
    if (MainForm.Menu004.Checked && Heard()) PlayWave(wave);
}
