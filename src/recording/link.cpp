#include "recording/link.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <span>
#include <vector>

#include "toolkit/base64.h"
#include "toolkit/deflate.h"

namespace {

constexpr char kVersion = 'A';                 // first character of every link of this make
constexpr std::size_t kMostPacked = 1u << 18;  // bytes, inflated
constexpr unsigned kMostYields = 100000;       // in one frame: the staff roll's
constexpr std::size_t kLongestEvent = 64;      // characters of an event that is written out
constexpr std::string_view kEvent = "event ";

// One event is one byte, more for what is rare: frames since the last event above, what happened below.
constexpr unsigned kLongDelta = 15;  // and a number with what is over follows
enum What : unsigned {
    kFirstKey = 0,  // a key of kKeys changes: down if it was up, up if it was down
    kWritten = 13,  // a length and the event as the recording writes it
    kYield = 14,    // a number: so many yields later in the frame come the next ones
    kEnd = 15,
};
constexpr std::array kKeys = {VK_LEFT, VK_UP, VK_RIGHT, VK_DOWN, VK_X, VK_Z, VK_SPACE, VK_ESCAPE};
static_assert(kKeys.size() <= kWritten);
constexpr std::string_view kDown = "key-down ", kUp = "key-up ";

using Bytes = std::vector<std::uint8_t>;
using KeysDown = std::array<bool, kKeys.size()>;

KeysDown HeldAtStart(const Recording& recording) {
    KeysDown down{};
    for (const HeldKey& held : recording.held) {
        const auto key = std::find(kKeys.begin(), kKeys.end(), held.code);
        if (key != kKeys.end()) down[static_cast<std::size_t>(key - kKeys.begin())] = held.down;
    }
    return down;
}

std::string ChangeOf(std::size_t key, bool down) {
    return std::string(down ? kUp : kDown) + std::to_string(kKeys[key]);
}

class Packer {
  public:
    Packer(Bytes& out, KeysDown down) : out_(out), down_(down) {}

    // `text`: what follows the time in the event's line.
    void Add(EventTime time, std::string_view text) {
        if (time.frame != frame_) yield_ = 0;
        if (time.yield != yield_) {
            Put(time.frame, kYield);
            PutNumber(static_cast<unsigned>(time.yield - yield_));
            yield_ = time.yield;
        }
        for (std::size_t key = 0; key < kKeys.size(); ++key) {
            if (text != ChangeOf(key, down_[key])) continue;
            down_[key] = !down_[key];
            return Put(time.frame, kFirstKey + static_cast<unsigned>(key));
        }
        Put(time.frame, kWritten);
        PutNumber(static_cast<unsigned>(text.size()));
        out_.insert(out_.end(), text.begin(), text.end());
    }
    void End() { Put(frame_, kEnd); }

  private:
    void Put(int frame, unsigned what) {
        const auto delta = static_cast<unsigned>(frame - frame_);
        frame_ = frame;
        out_.push_back(static_cast<std::uint8_t>(std::min(delta, kLongDelta) << 4 | what));
        if (delta >= kLongDelta) PutNumber(delta - kLongDelta);
    }
    void PutNumber(unsigned number) {
        for (; number >= 0x80; number >>= 7) out_.push_back(static_cast<std::uint8_t>(number | 0x80));
        out_.push_back(static_cast<std::uint8_t>(number));
    }

    Bytes& out_;
    KeysDown down_;
    int frame_ = 0;
    int yield_ = 0;
};

// The reverse. Anything that is not as a Packer leaves it ends the reading.
class Unpacker {
  public:
    Unpacker(std::span<const std::uint8_t> in, KeysDown down) : in_(in), down_(down) {}

    // The lines of all events; none when the bytes are bad.
    std::optional<std::string> Lines() {
        while (Next()) {
        }
        if (!ended_ || !in_.empty()) return std::nullopt;
        return std::move(lines_);
    }

  private:
    bool Next() {
        unsigned first = 0;
        if (!TakeByte(first) || !TakeTime(first >> 4)) return false;
        const unsigned what = first & 0xF;
        if (what < kKeys.size()) return AddKey(what);
        if (what == kWritten) return AddWritten();
        if (what == kYield) return AddYields();
        ended_ = what == kEnd;
        return false;
    }
    bool TakeTime(unsigned delta) {
        unsigned over = 0;
        if (delta == kLongDelta && !TakeNumber(over)) return false;
        if (delta != 0) yield_ = 0;
        frame_ += delta + over;
        return frame_ <= kMostLinkFrames;
    }
    bool AddYields() {
        unsigned more = 0;
        if (!TakeNumber(more)) return false;
        yield_ += more;
        return yield_ <= kMostYields;
    }
    bool AddKey(std::size_t key) {
        AddLine(ChangeOf(key, down_[key]));
        down_[key] = !down_[key];
        return true;
    }
    bool AddWritten() {
        unsigned length = 0;
        if (!TakeNumber(length) || length > std::min(in_.size(), kLongestEvent)) return false;
        const std::string_view text(reinterpret_cast<const char*>(in_.data()), length);
        if (text.find('\n') != std::string_view::npos) return false;
        AddLine(text);
        in_ = in_.subspan(length);
        return true;
    }
    void AddLine(std::string_view text) {
        lines_.append(kEvent).append(std::to_string(frame_)).append(" ").append(std::to_string(yield_)).append(" ");
        lines_.append(text).append("\n");
    }
    bool TakeByte(unsigned& byte) {
        if (in_.empty()) return false;
        byte = in_.front();
        in_ = in_.subspan(1);
        return true;
    }
    bool TakeNumber(unsigned& number) {
        number = 0;
        for (unsigned shift = 0, byte = 0x80; byte >= 0x80; shift += 7) {
            constexpr unsigned kLastShift = 21;  // numbers of up to 28 bits
            if (shift > kLastShift || !TakeByte(byte)) return false;
            number |= (byte & 0x7F) << shift;
        }
        return true;
    }

    std::span<const std::uint8_t> in_;
    KeysDown down_;
    unsigned frame_ = 0;
    unsigned yield_ = 0;
    bool ended_ = false;
    std::string lines_;
};

// The recording's text without events and frames, a zero byte, the events.
Bytes Pack(const Recording& recording) {
    Recording head = recording;
    head.events.clear();
    head.frames.clear();
    head.checks.clear();
    const std::string text = FormatRecording(head);
    Bytes packed(text.begin(), text.end());
    packed.push_back(0);
    Packer packer(packed, HeldAtStart(recording));
    for (const RecordedEvent& event : recording.events) packer.Add(event.time, FormatEvent(event.event));
    packer.End();
    return packed;
}

std::string Unpack(const Bytes& packed, Recording& recording) {
    constexpr const char* kDamaged = "the link is damaged";
    const auto zero = std::find(packed.begin(), packed.end(), 0);
    if (zero == packed.end()) return kDamaged;
    std::string text(packed.begin(), zero);
    Recording head;
    std::string error = ParseRecording(text, head);
    if (!error.empty()) return error;
    const auto packedEvents = std::span(packed).subspan(text.size() + 1);
    const std::optional<std::string> events = Unpacker(packedEvents, HeldAtStart(head)).Lines();
    if (!events || head.endFrames > kMostLinkFrames || !head.events.empty() || !head.checks.empty() ||
        !head.frames.empty())
        return kDamaged;
    return ParseRecording(text.insert(text.rfind("end "), *events), recording);
}

}  // namespace

std::string LinkOf(const Recording& recording) {
    const std::string link = kVersion + Base64Url(Deflate(Pack(recording)));
    return link.size() > kLongestLink || recording.endFrames > kMostLinkFrames ? "" : link;
}

std::string ParseLink(std::string_view link, Recording& recording) {
    const auto mark = link.rfind('=');
    if (mark != std::string_view::npos) link.remove_prefix(mark + 1);
    if (link.size() > kLongestLink) return "the link is too long to be a game";
    if (link.empty() || link.front() != kVersion) return "the link holds no game that this version knows";
    const std::optional<Bytes> deflated = FromBase64Url(link.substr(1));
    const std::optional<Bytes> packed = deflated ? Inflate(*deflated, kMostPacked) : std::nullopt;
    return packed ? Unpack(*packed, recording) : "the link is damaged";
}

bool LooksLikeLink(std::string_view text) {
    return text.find('#') != std::string_view::npos && text.find("run=") != std::string_view::npos;
}
