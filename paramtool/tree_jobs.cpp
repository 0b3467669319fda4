#include "paramtool/tree_jobs.h"

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <map>
#include <memory>

#include "layout/layout.h"
#include "output/result.h"
#include "paramtool/verdict_bytes.h"

namespace paramgen::paramtool {
namespace {

/// Tells how far it is, on a terminal.
class Progress {
public:
    explicit Progress(std::size_t total)
        : total_(total), isShown_(isatty(STDERR_FILENO) == 1 && total > 1) {}
    ~Progress() {
        if (wasTold_) {
            std::fputs("\r\x1B[K", stderr);
        }
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Done() {
        ++done_;
        const auto now = std::chrono::steady_clock::now();
        if (isShown_ && now - told_ > std::chrono::seconds(1)) {
            std::fprintf(stderr, "\r%zu of %zu trees", done_, total_);
            std::fflush(stderr);
            told_ = now;
            wasTold_ = true;
        }
    }

private:
    std::size_t total_;
    bool isShown_;
    bool wasTold_ = false;
    std::size_t done_ = 0;
    std::chrono::steady_clock::time_point told_ = std::chrono::steady_clock::now();
};

/// Hands verdicts over in the order of their trees.
class Sorter {
public:
    Sorter(const TakeVerdict& take, std::size_t total) : take_(take), progress_(total) {}

    void Take(std::size_t index, check::Verdict verdict) {
        progress_.Done();
        waiting_.emplace(index, std::move(verdict));
        for (auto first = waiting_.find(next_); first != waiting_.end();
             first = waiting_.find(next_)) {
            take_(next_, std::move(first->second));
            waiting_.erase(first);
            ++next_;
        }
    }

private:
    const TakeVerdict& take_;
    Progress progress_;
    std::map<std::size_t, check::Verdict> waiting_;
    std::size_t next_ = 0;
};

/// A process that checks every `step`th tree from `first` on, and writes what they come to.
class Worker {
public:
    Worker(const std::vector<std::string>& trees, const check::Choice& choice, std::size_t first,
           std::size_t step)
        : next_(first), step_(step) {
        int ends[2];
        if (pipe(ends) != 0) {
            throw output::UserError("cannot start a process");
        }
        process_ = fork();
        if (process_ == 0) {
            close(ends[0]);
            std::_Exit(Work(trees, choice, first, step, ends[1]));
        }
        close(ends[1]);
        from_ = ends[0];
        if (process_ < 0) {
            throw output::UserError("cannot start a process");
        }
    }
    ~Worker() {
        close(from_);
        if (process_ > 0) {
            waitpid(process_, nullptr, 0);
        }
    }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    int descriptor() const { return from_; }

    /// Reads what there is, and hands over what is whole. Returns false at the end.
    bool Read(Sorter* sorter) {
        char bytes[65536];
        const ssize_t count = read(from_, bytes, sizeof bytes);
        if (count < 0 && errno == EINTR) {
            return true;
        }
        if (count <= 0) {
            return false;
        }
        bytes_.append(bytes, static_cast<std::size_t>(count));
        check::Verdict verdict;
        while (TakeVerdictBytes(&bytes_, &verdict)) {
            sorter->Take(next_, std::move(verdict));
            next_ += step_;
        }
        return true;
    }

    /// Whether all that it had to do is done.
    bool IsDone(std::size_t total) const { return next_ >= total; }

private:
    static int Work(const std::vector<std::string>& trees, const check::Choice& choice,
                    std::size_t first, std::size_t step, int to) {
        for (std::size_t i = first; i < trees.size(); i += step) {
            const std::string bytes = VerdictBytes(check::Check(trees[i], choice));
            for (std::size_t at = 0; at < bytes.size();) {
                const ssize_t count = write(to, bytes.data() + at, bytes.size() - at);
                if (count < 0 && errno != EINTR) {
                    return 1;
                }
                at += count < 0 ? 0 : static_cast<std::size_t>(count);
            }
        }
        return 0;
    }

    std::size_t next_;
    std::size_t step_;
    pid_t process_ = -1;
    int from_ = -1;
    std::string bytes_;
};

void CheckWithWorkers(const std::vector<std::string>& trees, const check::Choice& choice,
                      std::size_t jobs, Sorter* sorter) {
    static_cast<void>(layout::Keys());  // they are listed once, for all processes
    std::vector<std::unique_ptr<Worker>> workers;
    std::vector<pollfd> ready;
    for (std::size_t i = 0; i < jobs; ++i) {
        workers.push_back(std::make_unique<Worker>(trees, choice, i, jobs));
        ready.push_back({.fd = workers.back()->descriptor(), .events = POLLIN, .revents = 0});
    }
    for (std::size_t open = jobs; open != 0;) {
        if (poll(ready.data(), ready.size(), -1) < 0 && errno != EINTR) {
            throw output::UserError("cannot wait for a process");
        }
        for (std::size_t i = 0; i < jobs; ++i) {
            if (ready[i].revents != 0 && !workers[i]->Read(sorter)) {
                ready[i].fd = -1;
                --open;
                if (!workers[i]->IsDone(trees.size())) {
                    throw output::UserError("a process ended before its work was done");
                }
            }
        }
    }
}

}  // namespace

void CheckTrees(const std::vector<std::string>& trees, const check::Choice& choice, unsigned jobs,
                const TakeVerdict& take) {
    Sorter sorter(take, trees.size());
    const std::size_t count = std::min<std::size_t>(jobs, trees.size());
    if (count > 1) {
        CheckWithWorkers(trees, choice, count, &sorter);
        return;
    }
    for (std::size_t i = 0; i < trees.size(); ++i) {
        sorter.Take(i, check::Check(trees[i], choice));
    }
}

}  // namespace paramgen::paramtool
