// The journal of what is going on: a file that grows bit by bit, so that a program that dies leaves what it has come
// to. There is one at a time. While its writer lives, no other program takes it for a dead one's.
#pragma once

#include <string>
#include <string_view>

#include "host/files.h"

// Begins a new journal; an older one of this program is removed. Empty string when done, else the reason.
std::string BeginJournal(const std::string& path);

// Adds to it; does not wait for the disk. Does nothing without a journal. Empty string when done, else the reason.
std::string AddToJournal(std::string_view text);

// It is not needed any more: removed.
void EndJournal();

// The content of a journal whose writer is dead. Counts as missing while the writer lives.
FileBytes ReadDeadJournal(const std::string& path);
