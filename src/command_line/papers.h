// What is made of a program's declared options for the system around it.
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace command_line {

// The man page in roff, up to the exit status; what else there is to say about the program is appended to it.
std::string ManPage(const CLI::App& app, int section);

// A bash script that completes commands, options, their words, file and folder names.
std::string BashCompletion(const CLI::App& app);

}  // namespace command_line
