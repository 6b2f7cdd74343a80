#include "host/desktop/music_deck.h"

#include <algorithm>
#include <utility>

#include "host/files.h"

namespace {

constexpr std::size_t kLargestPiece = 4u << 20;  // bytes
constexpr std::string_view kMagic = "MThd";

bool LooksLikeMidi(const std::vector<std::uint8_t>& file) {
    return file.size() <= kLargestPiece && file.size() > kMagic.size() &&
           std::equal(kMagic.begin(), kMagic.end(), file.begin());
}

void LogUnplayable(const std::string& path, const std::string& reason) {
    LogLine(path + ": no music: " + reason);
}

}  // namespace

MusicDeck::MusicDeck(std::string soundFont, int rate) : soundFont_(std::move(soundFont)), rate_(rate) {
    worker_ = std::thread(&MusicDeck::Work, this);
}

MusicDeck::~MusicDeck() {
    {
        const std::lock_guard lock(mutex_);
        leaving_ = true;
    }
    work_.notify_one();
    worker_.join();
}

bool MusicDeck::Open(const std::string& path) {
    Close();
    FileBytes read = ReadWholeFile(path);
    const bool playable = read.error == FileError::none && LooksLikeMidi(read.bytes);
    if (!playable) LogUnplayable(path, read.reason.empty() ? "not a MIDI file of at most 4 MiB" : read.reason);
    const std::lock_guard lock(mutex_);
    if (!playable || noSynth_) return false;
    path_ = path;
    PutOn(std::make_shared<const std::vector<std::uint8_t>>(std::move(read.bytes)));
    return true;
}

void MusicDeck::Play() {
    const std::lock_guard lock(mutex_);
    if (file_) playing_ = true;
}

void MusicDeck::Stop() {
    const std::lock_guard lock(mutex_);
    if (!std::exchange(playing_, false)) return;
    if (synth_) synth_->Silence();
}

// A piece is read afresh rather than wound back: the player would read its file again in the middle of rendering.
void MusicDeck::Rewind() {
    const std::lock_guard lock(mutex_);
    playing_ = false;
    if (file_ && !atStart_) PutOn(file_);
}

void MusicDeck::Close() {
    const std::lock_guard lock(mutex_);
    TakeOff();
}

std::string_view MusicDeck::Mode() {
    const std::lock_guard lock(mutex_);
    if (!file_) return "";
    return playing_ ? "playing" : "stopped";
}

void MusicDeck::PutOn(File file) {
    TakeOff();
    file_ = std::move(file);
    atStart_ = true;
    unread_ = true;
    work_.notify_one();
}

void MusicDeck::TakeOff() {
    file_.reset();
    playing_ = false;
    unread_ = false;
    ++putOn_;
    if (synth_) synth_->Reset();
    if (!piece_) return;
    old_.push_back(std::move(piece_));
    work_.notify_one();
}

void MusicDeck::Render(std::span<float> stereo) {
    constexpr std::size_t kBlock = 2 * kBlockFrames;
    while (!stereo.empty()) {
        const std::lock_guard lock(mutex_);  // anew for each block, so that the game never waits for a whole buffer
        const auto block = stereo.first(std::min(kBlock, stereo.size()));
        RenderBlock(block);
        stereo = stereo.subspan(block.size());
    }
}

void MusicDeck::RenderBlock(std::span<float> stereo) {
    if (!synth_) {
        std::ranges::fill(stereo, 0.0F);
        return;
    }
    if (playing_ && piece_ && !synth_->Fading()) PlayBlock();
    synth_->Render(stereo);
}

void MusicDeck::PlayBlock() {
    for (const MidiMessage& message : piece_->Advance()) synth_->Send(message);
    atStart_ = false;
    if (!piece_->Ended()) return;
    playing_ = false;
    synth_->ReleaseAll();
}

void MusicDeck::Work() {
    LoadSynth();
    Job job;
    while (TakeJob(job)) DoJob(job);
}

void MusicDeck::LoadSynth() {
    std::unique_ptr<Synth> synth = Synth::Load(soundFont_, rate_);
    if (!synth) LogLine(soundFont_ + ": no music: the SoundFont cannot be loaded");
    const std::lock_guard lock(mutex_);
    synth_ = std::move(synth);
    noSynth_ = !synth_;
    if (noSynth_) TakeOff();
}

// False when the deck goes away.
bool MusicDeck::TakeJob(Job& job) {
    std::unique_lock lock(mutex_);
    work_.wait(lock, [this] { return leaving_ || unread_ || !old_.empty(); });
    job = {std::exchange(unread_, false) ? file_ : nullptr, path_, putOn_, std::exchange(old_, {})};
    return !leaving_;
}

void MusicDeck::DoJob(Job& job) {
    job.old.clear();
    if (!job.file) return;
    std::unique_ptr<MidiPiece> piece = MidiPiece::Read(*job.file, rate_);
    if (!piece) LogUnplayable(job.path, "not a MIDI file that can be read");
    const std::lock_guard lock(mutex_);
    if (job.number != putOn_) return;
    piece_ = std::move(piece);
    if (!piece_) TakeOff();
}
