#include "author/check_stage.h"

#include <algorithm>

#include "stage/stage_script.h"
#include "toolkit/rounding.h"

namespace {

constexpr int kLongestPlay = 200'000;  // entries; a table that repeats itself more often than this never ends

class Player {
  public:
    Player(std::span<const StageDataType, kStageEntries> table, bool follows)
        : table_(table.begin(), table.end()), jumped_(follows) {}

    StageFindings Play();

  private:
    bool PlayEntry();
    bool Perform(StageDataType& entry);
    bool Jump(int target);
    bool Repeat(StageDataType& entry);
    bool WaitForBoss();
    bool NextStage();
    bool Take(const StageDataType& entry);
    void Spawn(const StageDataType& entry);
    bool Next();
    bool NextFromHere();
    void SeeFrame();
    bool InUnusedTail() const;
    void Find(const std::string& reason);
    void FindUnreached();

    std::vector<StageDataType> table_;  // repeats count down in it
    bool jumped_;                       // the next entry is reached by a jump: a command there is passed over
    int index_ = 0;
    int frame_ = 1;
    int taken_ = 0;  // the frame from which the next Counter counts
    int takenAtOnce_ = 0;
    int bosses_ = 0;  // sent in and not yet waited for
    std::bitset<kStageEntries> reached_;
    StageFindings result_;
};

void Player::Find(const std::string& reason) {
    std::string line = "entry " + std::to_string(index_) + ": " + reason;
    if (std::ranges::find(result_.lines, line) == result_.lines.end()) result_.lines.push_back(std::move(line));
}

// To the following entry in a later frame. Always true: the play goes on.
bool Player::Next() {
    ++index_;
    ++frame_;
    takenAtOnce_ = 0;
    return true;
}

// As Next; the next Counter counts from this frame on.
bool Player::NextFromHere() {
    taken_ = frame_;
    return Next();
}

bool Player::Jump(int target) {
    index_ = target;
    jumped_ = true;
    return true;
}

bool Player::Repeat(StageDataType& entry) {
    if (entry.Y <= 0) {
        entry.Y = entry.Power;
        return Next();
    }
    entry.Y = entry.Y - 1;
    const int target = RoundTo<Integer>(entry.X);
    if (target >= 0 && target < kStageEntries) return Jump(target);
    Find("repeats from entry " + std::to_string(target) + ", outside 0..512");
    return Next();
}

bool Player::WaitForBoss() {
    if (bosses_ == 0) {
        Find("waits for a boss before one is sent in");
    } else {
        --bosses_;
    }
    return NextFromHere();
}

bool Player::NextStage() {
    if (bosses_ > 0) Find("the stage ends without a wait for its boss");
    return false;
}

void Player::Spawn(const StageDataType& entry) {
    if (entry.No < 0 || entry.No >= kEnemyKinds) {
        Find("there is no kind " + std::to_string(entry.No));
        return;
    }
    result_.spawned.set(static_cast<std::size_t>(entry.No));
    if (result_.lastBoss >= 0 && entry.No <= kLastSheetKind) {
        Find("kind " + std::to_string(entry.No) + " is invisible: the last boss has emptied the enemy sheet");
    }
    if (entry.No >= kFirstBoss) ++bosses_;
    if (entry.No == kLastBoss && result_.lastBoss < 0) result_.lastBoss = index_;
}

bool Player::Take(const StageDataType& entry) {
    if (jumped_ && (entry.No >= kStageClear && entry.No <= kBossWait)) {
        Find("command " + std::to_string(entry.No) + " is passed over, because a jump leads to it");
    }
    jumped_ = false;
    frame_ = std::max(frame_, taken_ + entry.Counter);
    taken_ = frame_;
    SeeFrame();
    if (entry.Counter > 0) takenAtOnce_ = 0;
    if (entry.No < kFirstCommand) Spawn(entry);
    ++index_;
    if (++takenAtOnce_ < kStageEntries) return true;
    --index_;
    Find("an endless loop: 513 entries in one frame");
    return false;
}

bool Player::Perform(StageDataType& entry) {
    switch (entry.No) {
        case kStageClear:
            return Next();
        case kBossEntry:
            return NextFromHere();
        case kNextStage:
            return NextStage();
        case kBossWaitStop:
        case kBossWait:
            return WaitForBoss();
        case kRestart:
            return Jump(0);
        case kRepeat:
            return Repeat(entry);
        default:
            return Take(entry);
    }
}

bool Player::InUnusedTail() const {
    return std::all_of(table_.begin() + index_, table_.end(), [](const auto& e) { return e == StageDataType{}; });
}

void Player::SeeFrame() {
    int& first = result_.frames[static_cast<std::size_t>(index_)];
    if (first == 0) first = frame_;
}

// False at the end of the play.
bool Player::PlayEntry() {
    if (InUnusedTail()) {
        index_ = std::min(index_, kStageEntries - 1);
        Find("the play runs past the end of the table: it never reaches 248");
        return false;
    }
    reached_.set(static_cast<std::size_t>(index_));
    const auto at = static_cast<std::size_t>(index_);
    const int frame = frame_;
    const bool goesOn = jumped_ ? Take(table_[at]) : Perform(table_[at]);
    if (result_.frames[at] == 0) result_.frames[at] = frame;
    return goesOn;
}

void Player::FindUnreached() {
    std::bitset<kStageEntries> unreached;
    for (std::size_t i = 0; i < kStageEntries; ++i) unreached[i] = !reached_[i] && table_[i] != StageDataType{};
    if (unreached.any()) result_.lines.push_back("entries " + RangesOf(unreached) + ": never reached");
}

StageFindings Player::Play() {
    int played = 0;
    while (PlayEntry()) {
        if (++played < kLongestPlay) continue;
        Find("the play goes round and round: it never reaches 248");
        break;
    }
    FindUnreached();
    return result_;
}

}  // namespace

StageFindings CheckStage(std::span<const StageDataType, kStageEntries> table, bool follows) {
    return Player(table, follows).Play();
}
