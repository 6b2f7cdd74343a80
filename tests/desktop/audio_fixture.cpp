#include "audio_fixture.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>

#include "host/desktop/audio_setup.h"
#include "platform/music.h"
#include "state/main_form.h"
#include "state/state.h"
#include "toolkit/folder.h"

AudioTest::AudioTest() : tape((folder / "tape.raw").string(), kSpeed) {
    game = GameState{};
    MainForm = MainFormType{};
    MainForm.Bgm_Check.Event = Bgm_Check_Timer;
    SetProgramFolder(folder.string());
    SetSoundFont("");
    unsetenv("TARNVEIL_SOUNDFONT");
    testing::internal::CaptureStderr();
}

AudioTest::~AudioTest() {
    StopAudio();
    const std::string output = testing::internal::GetCapturedStderr();
    if (HasFailure()) std::fputs(output.c_str(), stderr);
    SetProgramFolder(".");
}

void AudioTest::Put(const std::string& name, const Bytes& bytes) {
    WriteBytes((folder / name).string(), bytes);
}

// The program's own lines only: SDL's disk driver announces itself loudly.
std::vector<std::string> AudioTest::TakeLog() {
    std::vector<std::string> lines;
    std::istringstream output(testing::internal::GetCapturedStderr());
    testing::internal::CaptureStderr();
    for (std::string line; std::getline(output, line);) {
        if (line.starts_with("tarnveil: ")) lines.push_back(line);
    }
    return lines;
}

void AudioTest::RunWithTimer(double seconds) {
    tape.Run(seconds, [this] { RunTimer(MainForm.Bgm_Check, static_cast<unsigned>(tape.Now() * 1000)); });
}

void SoundTest::SetUp() {
    if (!std::filesystem::exists(kSoundFont)) GTEST_SKIP() << kSoundFont << " is not installed";
    StartAudio();
}

std::vector<int> WithoutRepeats(std::vector<int> keys) {
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    return keys;
}
