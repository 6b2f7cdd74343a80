#include "recording/recording.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <map>
#include <set>
#include <sstream>

#include "host/files.h"
#include "recording/link.h"
#include "recording/run.h"
#include "stage/plays.h"
#include "state/main_form.h"
#include "state/options.h"

namespace {

constexpr const char* kFirstLine = "tarnveil-recording 1";
constexpr int kFramesPerLine = 8;

using Kind = InputEvent::Kind;
const std::map<Kind, std::string> kEventNames = {
    {Kind::keyDown, "key-down"},         {Kind::keyUp, "key-up"}, {Kind::allKeysUp, "all-keys-up"},
    {Kind::joystick, "joystick"},        {Kind::menu, "menu"},    {Kind::joystickOff, "joystick-off"},
    {Kind::closeWindow, "close-window"},
};

std::string Hex(std::uint64_t value, int digits) {
    char text[17];
    std::snprintf(text, sizeof text, "%0*llx", digits, static_cast<unsigned long long>(value));
    return text;
}

std::string HexOf(const FrameDigest& digest) {
    std::string text;
    for (const std::uint8_t byte : digest) text += Hex(byte, 2);
    return text;
}

}  // namespace

std::string FormatEvent(const InputEvent& event) {
    std::ostringstream line;
    line << kEventNames.at(event.kind);
    if (event.kind == Kind::menu) {
        line << ' ' << event.item;
    } else if (event.kind != Kind::allKeysUp && event.kind != Kind::closeWindow) {
        line << ' ' << event.code;
    }
    if (event.kind == Kind::joystick) line << ' ' << event.x << ' ' << event.y << ' ' << event.buttons;
    return line.str();
}

namespace {

// The energy as it is read back, bit for bit.
std::string ExactText(float value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.9g", static_cast<double>(value));
    return text;
}

std::string From(const GameStart& start) {
    if (start.entry == 0) return {};
    return "from " + std::to_string(start.entry) + ' ' + ExactText(start.energy) + ' ' +
           std::to_string(start.shotMode) + '\n';
}

void FormatOrigin(std::ostream& out, const Recording& r) {
    if (!r.program.empty()) out << "program " << r.program << '\n' << "rules " << r.rules << '\n';
    if (r.parent) out << "parent " << Hex(r.parent->digest, 16) << ' ' << r.parent->frame << '\n';
}

void FormatLeft(std::ostream& out, const std::vector<LeftField>& left) {
    constexpr std::size_t kPerLine = 12;
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (i % kPerLine == 0) out << (i == 0 ? "" : "\n") << "left";
        out << ' ' << left[i].field << ':' << Hex(left[i].bits, 0);
    }
    if (!left.empty()) out << '\n';
}

void FormatHeader(std::ostream& out, const Recording& r) {
    out << kFirstLine << '\n';
    FormatOrigin(out, r);
    out << "seed " << r.seed << '\n' << "level " << r.level << '\n' << "play " << r.play << '\n' << From(r.start);
    if (!r.pilot.empty()) out << "pilot " << r.pilot << '\n';
    out << "options";
    for (const Option& option : kOptions) out << ' ' << option.word << '=' << r.options[option.item];
    out << '\n';
    if (r.options[&MainFormType::Menu008])
        out << "joystick " << r.joyId << ' ' << r.joyCenterX << ' ' << r.joyCenterY << '\n';
    out << "scroll " << r.scroll << '\n' << "hiscore " << r.hiScore << '\n' << "data " << Hex(r.dataDigest, 16) << '\n';
    FormatLeft(out, r.left);
    for (const InputEvent& stick : r.sticks) {
        out << "stick " << stick.code << ' ' << stick.x << ' ' << stick.y << ' ' << stick.buttons << '\n';
    }
    for (const HeldKey& key : r.held) out << "held " << key.code << ' ' << key.down << ' ' << key.pressedSince << '\n';
}

// Reads one line's words; any that is missing or malformed makes it bad.
class Words {
  public:
    explicit Words(const std::string& line) : in_(line) {}

    std::string Text() {
        std::string word;
        if (!(in_ >> word)) bad_ = true;
        return word;
    }
    std::string Rest() {
        std::string rest;
        if (!std::getline(in_ >> std::ws, rest)) bad_ = true;
        return rest;
    }
    bool More() { return !(in_ >> std::ws).eof(); }
    template <typename T>
    void Number(T& value, int base = 10) {
        const std::string word = Text();
        const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value, base);
        if (error != std::errc() || end != word.data() + word.size()) bad_ = true;
    }
    // A frame, or "+" and the frames since `last`.
    void Frame(int& frame, int last) {
        constexpr int kMost = 1 << 30;
        in_ >> std::ws;
        const bool since = in_.peek() == '+';
        if (since) in_.get();
        Number(frame);
        if (!since) return;
        if (frame < 0 || frame > kMost || last < 0 || last > kMost) return Bad();
        frame += last;
    }
    void Decimal(float& value) {
        const std::string word = Text();
        const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
        if (error != std::errc() || end != word.data() + word.size()) bad_ = true;
    }
    // The number of one of the rows.
    void OneOf(int& value, const auto& rows, auto number) {
        Number(value);
        if (std::ranges::find(rows, value, number) == std::end(rows)) bad_ = true;
    }
    void Flag(bool& value) {
        int number = -1;
        Number(number);
        if (number != 0 && number != 1) bad_ = true;
        value = number == 1;
    }
    // NAME=value
    template <typename T>
    void Named(const std::string& name, T& value, int base = 10) {
        const std::string word = Text();
        const std::size_t start = name.size() + 1;
        if (!word.starts_with(name + "=")) {
            bad_ = true;
            return;
        }
        const char* end = word.data() + word.size();
        std::from_chars_result result{};
        if constexpr (std::is_floating_point_v<T>) {
            result = std::from_chars(word.data() + start, end, value);
        } else {
            result = std::from_chars(word.data() + start, end, value, base);
        }
        if (result.ec != std::errc() || result.ptr != end) bad_ = true;
    }
    void Bad() { bad_ = true; }
    bool Good() { return !bad_ && !More(); }

  private:
    std::istringstream in_;
    bool bad_ = false;
};

void ParseEvent(Words& words, Recording& r) {
    RecordedEvent recorded{};
    InputEvent& event = recorded.event;
    words.Frame(recorded.time.frame, r.events.empty() ? 0 : r.events.back().time.frame);
    words.Number(recorded.time.yield);
    const std::string name = words.Text();
    bool known = false;
    for (const auto& [kind, kindName] : kEventNames) {
        if (kindName != name) continue;
        event.kind = kind;
        known = true;
    }
    if (!known) words.Bad();
    if (event.kind == Kind::menu) {
        event.item = words.Text();
    } else if (event.kind != Kind::allKeysUp && event.kind != Kind::closeWindow) {
        words.Number(event.code);
    }
    if (event.kind == Kind::joystick) words.Number(event.x), words.Number(event.y), words.Number(event.buttons);
    r.events.push_back(recorded);
}

void ParseFrames(Words& words, Recording& r) {
    int first = 0;
    words.Number(first);
    if (first != static_cast<int>(r.frames.size()) + 1) words.Bad();
    while (words.More()) {
        const std::string text = words.Text();
        FrameDigest digest{};
        if (text.size() != 2 * digest.size()) return words.Bad();
        for (std::size_t i = 0; i < digest.size(); ++i) {
            const char* at = text.data() + 2 * i;
            if (std::from_chars(at, at + 2, digest[i], 16).ptr != at + 2) return words.Bad();
        }
        r.frames.push_back(digest);
    }
}

void ParseEnd(Words& words, Recording& r) {
    words.Named("frames", r.endFrames);
    words.Named("score", r.endScore);
    words.Named("energy", r.endEnergy);
    words.Named("digest", r.endDigest, 16);
    const bool complete = r.endFrames == static_cast<int>(r.frames.size());
    if (r.endFrames < 0 || !(complete || r.frames.empty())) words.Bad();
    const auto checked = static_cast<std::size_t>(std::max(0, r.endFrames) / kCheckInterval);
    if (!r.checks.empty() && r.checks.size() != checked) words.Bad();
}

void ParseStart(Words& words, GameStart& start) {
    words.Number(start.entry);
    words.Decimal(start.energy);
    words.Number(start.shotMode);
    const bool possible = start.entry > 0 && start.entry < kStageEntries && start.energy > 0 && start.energy <= 10;
    if (!possible || start.shotMode > 1) words.Bad();
}

void ParseOptions(Words& words, Recording& r) {
    std::set<std::string_view> given;
    while (words.More()) {
        const std::string word = words.Text();
        const auto equals = std::min(word.find('='), word.size());
        const auto* option = std::ranges::find(kOptions, std::string_view(word).substr(0, equals), &Option::word);
        const bool mark = word.substr(equals) == "=1";
        if (option == std::end(kOptions) || !(mark || word.substr(equals) == "=0")) return words.Bad();
        if (!given.insert(option->word).second) return words.Bad();
        r.options[option->item] = mark;
    }
}

void ParseParent(Words& words, Recording& r) {
    Parent parent;
    words.Number(parent.digest, 16);
    words.Number(parent.frame);
    if (parent.frame < 0) words.Bad();
    r.parent = parent;
}

void ParseLeft(Words& words, Recording& r) {
    while (words.More()) {
        const std::string word = words.Text();
        const auto colon = std::min(word.find(':'), word.size());
        LeftField left{};
        const char *start = word.data(), *end = start + word.size();
        const bool place = std::from_chars(start, start + colon, left.field).ptr == start + colon;
        if (!place || colon + 1 >= word.size() || std::from_chars(start + colon + 1, end, left.bits, 16).ptr != end)
            return words.Bad();
        r.left.push_back(left);
    }
}

void ParseCheck(Words& words, Recording& r) {
    int frame = 0;
    std::uint64_t digest = 0;
    words.Number(frame);
    words.Number(digest, 16);
    r.checks.push_back(digest);
    if (frame != static_cast<int>(r.checks.size()) * kCheckInterval) words.Bad();
}

void ParseResult(Words& words, Recording& r) {
    const std::string name = words.Text();
    for (int i = 0; i < static_cast<int>(Outcome::count); ++i) {
        if (name == OutcomeName(static_cast<Outcome>(i))) r.result.how = static_cast<Outcome>(i);
    }
    if (r.result.how == Outcome::unknown) words.Bad();
    words.Number(r.result.stage);
    words.Number(r.result.spread);
}

void ParseHeld(Words& words, Recording& r) {
    HeldKey key{};
    words.Number(key.code);
    words.Flag(key.down);
    words.Flag(key.pressedSince);
    r.held.push_back(key);
}

void ParseStick(Words& words, Recording& r) {
    InputEvent stick{Kind::joystick};
    words.Number(stick.code);
    words.Number(stick.x), words.Number(stick.y), words.Number(stick.buttons);
    r.sticks.push_back(stick);
}

bool ParseLine(const std::string& line, Recording& r, bool& ended) {
    Words words(line);
    const std::string first = words.Text();
    if (ended) return false;
    if (first == "program")
        r.program = words.Rest();
    else if (first == "rules")
        words.Number(r.rules);
    else if (first == "parent")
        ParseParent(words, r);
    else if (first == "left")
        ParseLeft(words, r);
    else if (first == "check")
        ParseCheck(words, r);
    else if (first == "result")
        ParseResult(words, r);
    else if (first == "seed")
        words.Number(r.seed);
    else if (first == "level")
        words.OneOf(r.level, kDifficulties, &Difficulty::level);
    else if (first == "play")
        words.OneOf(r.play, kPlays, &Play::number);
    else if (first == "pilot")
        r.pilot = words.Rest();
    else if (first == "from")
        ParseStart(words, r.start);
    else if (first == "options")
        ParseOptions(words, r);
    else if (first == "joystick")
        words.Number(r.joyId), words.Number(r.joyCenterX), words.Number(r.joyCenterY);
    else if (first == "scroll")
        words.Number(r.scroll);
    else if (first == "hiscore")
        words.Number(r.hiScore);
    else if (first == "data")
        words.Number(r.dataDigest, 16);
    else if (first == "held")
        ParseHeld(words, r);
    else if (first == "stick")
        ParseStick(words, r);
    else if (first == "event")
        ParseEvent(words, r);
    else if (first == "frame")
        ParseFrames(words, r);
    else if (first == "end")
        ParseEnd(words, r), ended = true;
    else
        return false;
    return words.Good();
}

}  // namespace

bool LeavesProgram(const InputEvent& event) {
    return event.kind == Kind::closeWindow || (event.kind == Kind::menu && event.item == MainForm.Menu303.Name);
}

Outcome OutcomeOf(const Recording& recording, const GameState& state) {
    if (recording.endDigest == 0) return Outcome::cutOff;
    if (state.MyDead != False) return Outcome::lost;
    if (state.AllClear != False) return Outcome::won;
    const bool byHand = std::ranges::any_of(recording.events, [&](const RecordedEvent& recorded) {
        const InputEvent& event = recorded.event;
        const bool escape = event.kind == Kind::keyDown && event.code == VK_ESCAPE;
        return recorded.time.frame >= recording.endFrames && (escape || event.item == MainForm.Menu301.Name);
    });
    return byHand ? Outcome::left : Outcome::won;
}

const char* OutcomeName(Outcome outcome) {
    constexpr const char* kNames[] = {"unknown", "won", "lost", "left", "cut-off"};
    static_assert(std::size(kNames) == static_cast<std::size_t>(Outcome::count));
    return kNames[static_cast<std::size_t>(outcome)];
}

std::string FormatHeader(const Recording& recording) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    FormatHeader(out, recording);
    return out.str();
}

namespace {

std::string EventLine(const std::string& frame, const RecordedEvent& event) {
    return "event " + frame + ' ' + std::to_string(event.time.yield) + ' ' + FormatEvent(event.event) + '\n';
}

void FormatEvents(std::ostream& out, const std::vector<RecordedEvent>& events, EventFrames frames) {
    int last = 0;
    for (const RecordedEvent& event : events) {
        const bool since = frames == EventFrames::sinceLast && event.time.frame >= last;
        out << (since ? EventLine("+" + std::to_string(event.time.frame - last), event) : FormatEventLine(event));
        last = event.time.frame;
    }
}

}  // namespace

std::string FormatEventLine(const RecordedEvent& event) {
    return EventLine(std::to_string(event.time.frame), event);
}

std::string FormatCheckLine(int frame, std::uint64_t digest) {
    return "check " + std::to_string(frame) + ' ' + Hex(digest, 16) + '\n';
}

std::string FormatEnd(const Recording& r) {
    const RunResult& result = r.result;
    std::string text;
    if (result.how != Outcome::unknown) {
        text = std::string("result ") + OutcomeName(result.how) + ' ' + std::to_string(result.stage) + ' ' +
               std::to_string(result.spread) + '\n';
    }
    return text + "end frames=" + std::to_string(r.endFrames) + " score=" + std::to_string(r.endScore) +
           " energy=" + ExactText(r.endEnergy) + " digest=" + Hex(r.endDigest, 16) + '\n';
}

std::string FormatRecording(const Recording& r, EventFrames frames) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    FormatHeader(out, r);
    FormatEvents(out, r.events, frames);
    for (std::size_t i = 0; i < r.checks.size(); ++i)
        out << FormatCheckLine(static_cast<int>(i + 1) * kCheckInterval, r.checks[i]);
    for (std::size_t i = 0; i < r.frames.size(); ++i) {
        if (i % kFramesPerLine == 0) out << (i == 0 ? "" : "\n") << "frame " << i + 1;
        out << ' ' << HexOf(r.frames[i]);
    }
    out << (r.frames.empty() ? "" : "\n") << FormatEnd(r);
    return out.str();
}

std::uint64_t RunIdentity(const Recording& recording) {
    if (recording.endDigest != 0) return recording.endDigest;
    std::uint64_t hash = 0xCBF29CE484222325u;  // FNV-1a
    for (const char c : FormatRecording(recording)) hash = (hash ^ static_cast<std::uint8_t>(c)) * 0x100000001B3u;
    return hash;
}

std::string ParseRecording(std::string_view text, Recording& recording) {
    std::istringstream lines{std::string(text)};
    std::string line;
    if (!std::getline(lines, line) || line != kFirstLine) {
        return "line 1: not a recording of this version (" + std::string(kFirstLine) + ")";
    }
    Recording r;
    bool ended = false;
    for (int number = 2; std::getline(lines, line); ++number) {
        if (line.empty()) continue;
        if (!ParseLine(line, r, ended))
            return "line " + std::to_string(number) + ": not understood: " + line.substr(0, 60);
    }
    if (!ended) return "the end line is missing: the recording is cut off";
    recording = std::move(r);
    return {};
}

std::string ReadRecording(const std::string& path, Recording& recording) {
    if (LooksLikeLink(path)) return ParseLink(path, recording);
    const FileBytes file = ReadWholeFile(path);
    if (file.error != FileError::none) return path + ": " + file.reason;
    Run run;
    const std::string error =
        LooksLikeRun(file.bytes)
            ? UnpackRun(file.bytes, run)
            : ParseRecording({reinterpret_cast<const char*>(file.bytes.data()), file.bytes.size()}, run.recording);
    if (!error.empty()) return path + ": " + error;
    recording = std::move(run.recording);
    return {};
}
