// The save files of the library log: an input is a sequence of steps, a byte each and what they
// need behind it. Records are numbered, so that what the files hold shows what became of them.

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

#include "fault/failing_calls.h"
#include "fuzz/fuzz.h"
#include "log/save_file.h"

namespace paramgen::testing {
namespace {

constexpr unsigned kStepsMax = 200;
constexpr std::size_t kNumberSize = 8;  // digits of a record's number, with a ':' behind them

using Sizes = std::array<std::size_t, 2>;

class Rotation {
public:
    Rotation() {
        for (const std::string& path : paths_) {
            unlink(path.c_str());
        }
    }
    ~Rotation() {
        ZV_LOG_CloseSave();
        ClearFaults();
    }
    Rotation(const Rotation&) = delete;
    Rotation& operator=(const Rotation&) = delete;

    void Step(Input* input) {
        const unsigned step = input->Byte();
        const unsigned argument = input->Byte();
        switch (step % 8) {
            case 0:
                Open(argument * 8);
                break;
            case 1:
                Close();
                break;
            case 2:
                unlink(paths_[argument % 2].c_str());
                last_ = 0;
                break;
            case 3:
                Cut(paths_[argument % 2], argument / 2);
                break;
            case 4:
                Fail(static_cast<Call>(argument % static_cast<unsigned>(Call::kCount)),
                     static_cast<int>(argument / 16) + 1);
                break;
            default:
                Save(argument);
                break;
        }
    }

    void Close() {
        ZV_LOG_CloseSave();
        Require(!ZV_LOG_IsSaveOpen(), "closed is closed");
        ClearFaults();
        Check();
    }

private:
    /// Faults that are still to come do not.
    static void ClearFaults() {
        for (int call = 0; call < static_cast<int>(Call::kCount); ++call) {
            Fail(static_cast<Call>(call), 0);
        }
    }

    void Open(unsigned limit) {
        const std::int32_t result = ZV_LOG_OpenSave(FuzzDirectory().c_str(), limit);
        Require((result == 0) == ZV_LOG_IsSaveOpen(), "open is open");
        limit_ = limit;
    }

    /// Part of a file is lost, or all of it.
    void Cut(const std::string& path, unsigned size) {
        struct stat status = {};
        if (stat(path.c_str(), &status) == 0 && status.st_size > size) {
            Require(truncate(path.c_str(), size) == 0, "a file can be cut");
            last_ = 0;
        }
    }

    void Save(unsigned length) {
        char number[kNumberSize + 2];
        std::snprintf(number, sizeof number, "%08u:", ++count_);
        // A line end before it as well, since the record before may have been cut.
        const std::string record = "\n" + (number + std::string(length, 'r')) + "\n";
        const bool wasOpen = ZV_LOG_IsSaveOpen();
        if (wasOpen) {
            LOG_SaveLog(record.data(), record.size());
            longest_ = std::max(longest_, record.size());
            last_ = ZV_LOG_IsSaveOpen() ? count_ : 0;
        }
        largestLimit_ = std::max<std::size_t>(largestLimit_, limit_);
    }

    static std::string Read(const std::string& path) {
        std::ostringstream bytes;
        bytes << std::ifstream(path, std::ios::binary).rdbuf();
        return bytes.str();
    }

    /// What the files hold, nothing being held back: none is larger than any limit there was, or
    /// than a record that it was started afresh with; records stand in their order; and the last
    /// one saved is the last one of a file.
    void Check() {
        bool isLastThere = last_ == 0;
        for (const std::string& path : paths_) {
            const std::string bytes = Read(path);
            Require(bytes.size() <= std::max(largestLimit_, longest_), "a file keeps to its limit");
            const unsigned last = CheckOrder(bytes);
            isLastThere = isLastThere || last == last_;
        }
        Require(isLastThere, "the last record is there");
        last_ = 0;
    }

    /// Whole records follow each other with rising numbers. Returns the last number.
    static unsigned CheckOrder(const std::string& bytes) {
        unsigned last = 0;
        std::istringstream lines(bytes);
        for (std::string line; std::getline(lines, line);) {
            if (line.size() <= kNumberSize || line[kNumberSize] != ':' ||
                line.find_first_not_of('r', kNumberSize + 1) != std::string::npos) {
                continue;  // the rest of one that was cut
            }
            const auto number = static_cast<unsigned>(std::strtoul(line.c_str(), nullptr, 10));
            Require(number > last, "records stand in their order");
            last = number;
        }
        return last;
    }

    const std::array<std::string, 2> paths_ = {FuzzDirectory() + "/Q2VkYXJMb2dzVoLog1",
                                               FuzzDirectory() + "/Q2VkYXJMb2dzVoLog2"};
    unsigned count_ = 0;  ///< records made
    unsigned last_ = 0;   ///< the last one that must be in a file; 0: none
    std::size_t limit_ = 0;
    std::size_t largestLimit_ = 0;
    std::size_t longest_ = 0;
};

}  // namespace
}  // namespace paramgen::testing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace paramgen::testing;
    SilenceOutput();
    Rotation rotation;
    Input input(data, size);
    for (unsigned step = 0; step < kStepsMax && !input.IsEmpty(); ++step) {
        rotation.Step(&input);
    }
    rotation.Close();
    return 0;
}
