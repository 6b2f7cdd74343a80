#include "stage/player.h"

#include "platform/joystick_input.h"
#include "platform/keyboard_input.h"
#include "platform/music.h"
#include "state/random.h"
#include "state/state.h"

namespace {

constexpr Byte kLevelFrame = 0, kLeftFrame = 1, kRightFrame = 2;

struct Steering {
    Byte frame;
    int x;  // -1 left, 1 right
    int y;  // -1 up, 1 down
};
// By direction code. Two devices steering at once give codes OR-ed together; those outside the table steer nothing.
constexpr Steering kSteering[] = {
    /* 0 none       */ {kLevelFrame, 0, 0},
    /* 1 up         */ {kLevelFrame, 0, -1},
    /* 2 up-right   */ {kRightFrame, 1, -1},
    /* 3 right      */ {kRightFrame, 1, 0},
    /* 4 down-right */ {kRightFrame, 1, 1},
    /* 5 down       */ {kLevelFrame, 0, 1},
    /* 6 down-left  */ {kLeftFrame, -1, 1},
    /* 7 left       */ {kLeftFrame, -1, 0},
    /* 8 up-left    */ {kLeftFrame, -1, -1},
};

constexpr int kSinkSpeed = 4;
constexpr int kSunkBelow = 10;  // the ship has sunk this far below the playfield
constexpr Integer kSunkY = 490;
constexpr Integer kGameOverWait = 700;  // frames
constexpr Integer kBurstInterval = 3;   // frames
constexpr int kFirstBurstSlot = 21, kLastBurstSlot = 25;

// Only the side moved towards is tested.
Integer Moved(Integer from, int direction, Integer last) {
    const int to = from + direction * game.MySpeed;
    if (direction < 0 && to <= 0) return 0;
    if (direction > 0 && to >= last) return last;
    return static_cast<Integer>(to);
}

void SteerShip() {
    const int joystick = GetJoyDirection();
    const auto code = static_cast<unsigned>(joystick | GetKeyDirection());
    if (code >= std::size(kSteering)) return;
    const Steering& steering = kSteering[code];
    game.MyShipFrame = steering.frame;
    game.MyX = Moved(game.MyX, steering.x, game.MyMaxX);
    game.MyY = Moved(game.MyY, steering.y, game.MyMaxY);
}

void Sink() {
    game.MyY = static_cast<Integer>(game.MyY + kSinkSpeed);
    if (game.MyY <= game.ScreenH + kSunkBelow) return;
    game.MyY = kSunkY;
    if (game.GameOver != 0) return;
    OpenMidi("gameover.mid");
    PlayMidi(False);
    game.GameOver = 1;
}

// Kind and BomFrame stay as the slot last held them: the size and the first frame of the explosion follow from them.
void Burst(EnemyType& slot) {
    PlayEffect(game.Wave1Data);
    slot.State = 2;
    slot.X = static_cast<Single>(RndInt(50, 1) + game.MyX);
    slot.Y = static_cast<Single>(RndInt(50, 1) + game.MyY);
}

void BurstInFreeSlot() {
    for (int i = kFirstBurstSlot; i <= kLastBurstSlot; ++i) {
        if (game.Enemy[i].State != 0) continue;
        Burst(game.Enemy[i]);
        return;
    }
}

void PlayDeath() {
    Sink();
    const bool space = KeyPressed(VK_SPACE);
    if ((game.DeadCount >= kGameOverWait || space) && game.MyY >= kSunkY) game.QuitGame = True;
    ++game.DeadCount;
    if (game.DeadCount >= kBurstInterval && game.MyY < kSunkY) {
        BurstInFreeSlot();
        game.DeadCount = 0;
    }
    DiscardKey(VK_SPACE);
}

}  // namespace

void UpdatePlayer() {
    if (game.MyDead == False) {
        SteerShip();
    } else {
        PlayDeath();
    }
}
