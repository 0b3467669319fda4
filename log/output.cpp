#include "log/output.h"

#include <cstdarg>
#include <cstdio>

namespace paramgen {
namespace {

char g_records[std::size_t{20} * 1024];
std::size_t g_held = 0;     ///< how much of them
std::size_t g_heldMax = 0;  ///< how much may be; there is room for one more record

}  // namespace

HeldOutput::HeldOutput(bool isHolding) {
    g_heldMax = isHolding ? sizeof g_records - kRecordRoom : 0;
}

HeldOutput::~HeldOutput() {
    FlushOutput();
    g_heldMax = 0;
}

char* RecordRoom() {
    return g_records + g_held;
}

void TakeRecord(std::size_t size) {
    g_held += size;
    if (g_held > g_heldMax) {
        FlushOutput();
    }
}

void PrintOutput(const char* format, ...) {
    FlushOutput();
    std::va_list args;
    va_start(args, format);
    std::vprintf(format, args);
    va_end(args);
}

void FlushOutput() {
    if (g_held != 0) {
        std::fwrite(g_records, 1, g_held, stdout);
        g_held = 0;
    }
}

}  // namespace paramgen
