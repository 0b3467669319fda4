// The save files of the library log. An input is a sequence of steps: a byte each, and the
// arguments behind it. Records are numbered, so that the files show which of them were saved.

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <set>
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
                Forget();
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
    /// Cancels faults that have not happened yet.
    static void ClearFaults() {
        for (int call = 0; call < static_cast<int>(Call::kCount); ++call) {
            Fail(static_cast<Call>(call), 0);
        }
    }

    void Open(unsigned limit) {
        const std::int32_t result = ZV_LOG_OpenSave(FuzzDirectory().c_str(), limit);
        Require((result == 0) == ZV_LOG_IsSaveOpen(), "open is open");
        limit_ = limit;
        isReopened_ = true;
    }

    /// Cuts a file to `size` bytes.
    void Cut(const std::string& path, unsigned size) {
        struct stat status = {};
        if (stat(path.c_str(), &status) == 0 && status.st_size > size) {
            Require(truncate(path.c_str(), size) == 0, "a file can be cut");
            Forget();
        }
    }

    void Save(unsigned length) {
        char number[kNumberSize + 2];
        std::snprintf(number, sizeof number, "%08u:", ++count_);
        // Begins with the line end, so that a record behind one that was cut has its own line.
        const std::string record = "\n" + (number + std::string(length, 'r')) + ".";
        const bool wasOpen = ZV_LOG_IsSaveOpen();
        if (wasOpen) {
            LOG_SaveLog(record.data(), record.size());
            longest_ = std::max(longest_, record.size());
            lastButOne_ = isReopened_ ? 0 : last_;
            last_ = count_;
            isReopened_ = false;
            if (!ZV_LOG_IsSaveOpen()) {
                Forget();
            }
        }
        largestLimit_ = std::max<std::size_t>(largestLimit_, limit_);
    }

    /// Checks the files, with nothing buffered: none is larger than the largest limit, or than a
    /// single record that it began with; records are in order; and the last two that were saved
    /// without reopening are there, because the file in use is never truncated.
    void Check() {
        std::set<unsigned> there = {0};
        for (const std::string& path : paths_) {
            const std::string bytes = ReadBytes(path);
            Require(bytes.size() <= std::max(largestLimit_, longest_), "a file keeps to its limit");
            AddNumbers(bytes, &there);
        }
        Require(there.count(last_) != 0, "the last record is there");
        Require(there.count(lastButOne_) != 0, "the last record but one is there");
        Forget();
    }

    /// Adds the numbers of the complete records in a file. They must be in ascending order.
    static void AddNumbers(const std::string& bytes, std::set<unsigned>* numbers) {
        unsigned last = 0;
        Input lines(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        while (!lines.IsEmpty()) {
            const std::string line = lines.TextUpTo('\n');
            if (line.size() <= kNumberSize || line[kNumberSize] != ':' ||
                line.find_first_not_of('r', kNumberSize + 1) != line.size() - 1 ||
                line.back() != '.') {
                continue;  // the rest of a record that was cut
            }
            const auto number = static_cast<unsigned>(std::strtoul(line.c_str(), nullptr, 10));
            Require(number > last, "records stand in their order");
            last = number;
            numbers->insert(number);
        }
    }

    void Forget() {
        last_ = 0;
        lastButOne_ = 0;
    }

    const std::array<std::string, 2> paths_ = {FuzzDirectory() + "/Q2VkYXJMb2dzVoLog1",
                                               FuzzDirectory() + "/Q2VkYXJMb2dzVoLog2"};
    unsigned count_ = 0;  ///< number of records
    unsigned last_ = 0;   ///< the last record, which must be in a file; 0: none
    unsigned lastButOne_ = 0;
    bool isReopened_ = true;  ///< no record since opening, which makes the first file current
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
