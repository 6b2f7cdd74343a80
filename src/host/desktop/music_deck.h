// The music device: at most one piece, playing or stopped at some place. A background thread does what takes long: it
// loads the SoundFont, reads pieces and throws old ones away. The game's calls and the sound device's call of Render
// hold the lock only briefly.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "host/desktop/midi_piece.h"
#include "host/desktop/synth.h"

class MusicDeck {
  public:
    // `rate` in Hz. Begins to load the SoundFont.
    MusicDeck(std::string soundFont, int rate);
    ~MusicDeck();
    MusicDeck(const MusicDeck&) = delete;
    MusicDeck& operator=(const MusicDeck&) = delete;

    // As in host/audio.h. A file that turns out unreadable after Open closes by itself.
    bool Open(const std::string& path);
    void Play();
    void Stop();
    void Rewind();
    void Close();
    std::string_view Mode();

    // The next frames, left and right in turn; silence while nothing plays. For the sound device's thread.
    void Render(std::span<float> stereo);

  private:
    using File = std::shared_ptr<const std::vector<std::uint8_t>>;

    struct Job {
        File file;  // to be read; null: nothing
        std::string path;
        unsigned number;                              // putOn_ when it was taken
        std::vector<std::unique_ptr<MidiPiece>> old;  // to be thrown away
    };

    // All of these are called with the lock held.
    void PutOn(File file);
    void TakeOff();
    void RenderBlock(std::span<float> stereo);
    void PlayBlock();

    // The background thread.
    void Work();
    void LoadSynth();
    bool TakeJob(Job& job);
    void DoJob(Job& job);

    const std::string soundFont_;
    const int rate_;

    std::mutex mutex_;  // guards everything below
    std::condition_variable work_;
    std::unique_ptr<Synth> synth_;
    bool noSynth_ = false;              // the SoundFont cannot be loaded
    File file_;                         // null: nothing is open
    std::string path_;                  // of file_
    std::unique_ptr<MidiPiece> piece_;  // file_ at its place; null while it is being read
    bool playing_ = false;
    bool atStart_ = false;
    bool unread_ = false;  // file_ waits to be read
    unsigned putOn_ = 0;   // counts PutOn and TakeOff, so that a piece that was read too late is not taken for the next
    std::vector<std::unique_ptr<MidiPiece>> old_;
    bool leaving_ = false;

    std::thread worker_;  // last: it uses all of the above
};
