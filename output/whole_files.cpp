#include "output/whole_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>

#include "output/write_calls.h"

namespace paramgen::output {
namespace {

/// What a path leads to, links resolved; the path itself when nothing is there.
std::string Resolved(const std::string& path) {
    std::error_code error;
    const std::filesystem::path resolved = std::filesystem::canonical(path, error);
    return error ? path : resolved.string();
}

/// One of the files. Its destructor undoes everything, unless `Stay` was called.
class StagedFile {
public:
    explicit StagedFile(const NewContent& content)
        : target_(Resolved(content.path)),
          fresh_(target_ + ".new.XXXXXX"),
          saved_(target_ + ".old.XXXXXX") {
        Stage(content.bytes);
    }
    ~StagedFile() {
        if (state_ == State::kInPlace && hasOld_) {
            std::rename(saved_.c_str(), target_.c_str());
        } else if (state_ == State::kInPlace) {
            unlink(target_.c_str());
        } else if (hasSaved_) {
            unlink(saved_.c_str());
        }
        if (state_ == State::kStaged) {
            unlink(fresh_.c_str());
        }
    }
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;

    /// Replaces the old file.
    void TakePlace() {
        if (hasOld_) {
            Save();
        }
        if (std::rename(fresh_.c_str(), target_.c_str()) != 0) {
            FailToWrite(target_);
        }
        state_ = State::kInPlace;
    }

    /// Keeps the new file: the destructor then removes the saved old one.
    void Stay() { state_ = State::kDone; }

private:
    enum class State { kNothing, kStaged, kInPlace, kDone };

    /// Writes the temporary file.
    void Stage(const std::string& bytes) {
        struct stat old = {};
        hasOld_ = stat(target_.c_str(), &old) == 0;
        if (hasOld_ && !S_ISREG(old.st_mode)) {
            errno = S_ISDIR(old.st_mode) ? EISDIR : EINVAL;
            FailToWrite(target_);
        }
        const int descriptor = mkostemp(fresh_.data(), O_CLOEXEC);
        if (descriptor == -1) {
            FailToWrite(target_);
        }
        state_ = State::kStaged;
        bool isGood = WriteAll(descriptor, bytes) && SetRights(descriptor, old);
        isGood = isGood && fsync(descriptor) == 0;
        const int error = errno;
        if (close(descriptor) != 0 || !isGood) {
            errno = isGood ? errno : error;
            unlink(fresh_.c_str());
            FailToWrite(target_);
        }
    }

    /// The old file's owner and rights; those that any new file gets when there is none.
    bool SetRights(int descriptor, const struct stat& old) const {
        if (!hasOld_) {
            const mode_t mask = umask(0);
            umask(mask);
            return fchmod(descriptor, 0666U & ~mask) == 0;
        }
        const bool isOwner = old.st_uid == geteuid() && old.st_gid == getegid();
        return (isOwner || fchown(descriptor, old.st_uid, old.st_gid) == 0) &&
               fchmod(descriptor, old.st_mode & 07777U) == 0;
    }

    /// Gives the old file a second name, by which it can be put back.
    void Save() {
        const int descriptor = mkostemp(saved_.data(), O_CLOEXEC);
        if (descriptor == -1) {
            FailToWrite(target_);
        }
        close(descriptor);
        unlink(saved_.c_str());
        if (link(target_.c_str(), saved_.c_str()) != 0) {
            FailToWrite(target_);
        }
        hasSaved_ = true;
    }

    std::string target_;
    std::string fresh_;  ///< the temporary file
    std::string saved_;  ///< the old file's second name
    bool hasOld_ = false;
    bool hasSaved_ = false;
    State state_ = State::kNothing;
};

}  // namespace

void WriteWholeFiles(const std::vector<NewContent>& files) {
    std::vector<std::unique_ptr<StagedFile>> staged;
    staged.reserve(files.size());
    for (const NewContent& file : files) {
        staged.push_back(std::make_unique<StagedFile>(file));
    }
    for (const auto& file : staged) {
        file->TakePlace();
    }
    for (const auto& file : staged) {
        file->Stay();
    }
}

}  // namespace paramgen::output
