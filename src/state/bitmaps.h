// The numbered bitmaps, and the surface of `MainForm` that each is loaded into (LoadResPicture). Sizes are pixels.
#pragma once

enum BitmapNumber : int {
    kBackgroundBitmap = 101,   // 320 x 480, B_Crt: the sky of the stages, the information screen and the ending
    kTitleBitmap = 102,        // 320 x 480, B_Crt
    kInformationBitmap = 103,  // 320 x 480, MessagePic
    kBomBitmap = 150,          // 768 x 128, BomPic128
    kFirstBossBitmap = 200,    // 210 x 300, BossPic
    kSecondBossBitmap = 201,   // 160 x 320, BossPic
    kLastBossBitmap = 202,     // 600 x 400, BossPic
    kEnemyBitmap = 250,        // 672 x 512, EnemyPic
    kMessageBitmap = 300,      // 272 x 392, MessagePic: the words over the game
};
