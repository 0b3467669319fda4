#include "log/output.h"

#include <cstdarg>
#include <cstdio>

namespace paramgen {
namespace {

char g_records[std::size_t{32} * 1024];
std::size_t g_held = 0;  ///< how much of them
bool g_isHolding = false;

}  // namespace

HeldOutput::HeldOutput(bool isHolding) {
    g_isHolding = isHolding;
}

HeldOutput::~HeldOutput() {
    FlushOutput();
    g_isHolding = false;
}

char* RecordRoom() {
    if (sizeof g_records - g_held < kRecordRoom) {
        FlushOutput();
    }
    return g_records + g_held;
}

void TakeRecord(std::size_t size) {
    if (g_isHolding) {
        g_held += size;
    } else {
        std::fwrite(g_records, 1, size, stdout);
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
