// New content for a file: first complete and on the disk without the file's name, then put in its place at once.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "host/posix_descriptor.h"

class StagedFile {
  public:
    StagedFile() = default;
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;
    ~StagedFile();

    // Writes the content. Empty when done, else why the file cannot be replaced. Nothing is to be seen yet.
    std::string Stage(const std::string& path, std::span<const std::uint8_t> bytes);

    // Gives it the name, in place of a file that has it. The folder is not flushed. Empty when done.
    std::string Commit();

    // The same, but fails with EEXIST when the name is taken.
    std::string CommitAsNew();

  private:
    std::string LookAtTarget(const std::string& path);
    bool Open();
    void KeepOwnerAndMode() const;
    bool LinkTo(const std::string& name) const;

    std::string target_;     // what `path` stands for once links are followed
    std::string temporary_;  // the name it has, or would have, before it takes the target's
    Descriptor file_;        // locked, so that others can tell a living writer's temporary from a dead one's
    Descriptor replaced_;    // what has the name now: held open, it costs the rename no time to free it
    bool named_ = false;     // `temporary_` is there
    bool replaces_ = false;
    unsigned mode_ = 0;  // of the file that is replaced, and its owner
    unsigned user_ = 0;
    unsigned group_ = 0;
};

// A change of names is only safe on the disk once their folder is flushed. `path`: a file in it.
void FlushFolderOf(const std::string& path);
