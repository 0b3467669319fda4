/// Expected table rows of a media mode's records.
#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "support/row_checks.h"
#include "support/table_walk.h"

namespace paramgen::testing {

/// One row of a record.
struct SpecRow {
    std::size_t offset;  ///< within the record
    const char* type;    ///< "SIZE KIND SOURCE"
    const char* key;     ///< without its node; "-" when there is none
    const char* value;   ///< the default; "-" when there is none
    const char* label;   ///< "=" for the bare key, ":" for the full key; "-" when there is none
};

using Lines = std::vector<std::string>;

/// The lines of `DescribeTable` for a record at `offset` that is read from `node` of `module`.
inline Lines SpecLines(const std::vector<SpecRow>& rows, std::size_t offset,
                       const std::string& module, const std::string& node) {
    Lines lines;
    for (const SpecRow& row : rows) {
        const std::string key = row.key;
        const std::string fullKey = node + ":" + key;
        const std::string label = row.label;
        lines.push_back(std::to_string(offset + row.offset) + " " + row.type + " " +
                        (key == "-" ? "- -" : module + " " + fullKey) + " " + row.value + " " +
                        (label == "="   ? key
                         : label == ":" ? fullKey
                                        : label));
    }
    return lines;
}

inline void AppendLines(Lines* lines, const Lines& more) {
    lines->insert(lines->end(), more.begin(), more.end());
}

/// A line, and the last line; empty when there is no such line.
inline std::string LineAt(const Lines& lines, std::size_t number) {
    return number < lines.size() ? lines[number] : "";
}
inline std::string LastLine(const Lines& lines) {
    return lines.empty() ? "" : lines.back();
}

/// The rows of a lens-distortion record at `offset`.
inline Lines LdcLines(std::size_t offset) {
    Lines lines = SpecLines(
        {
            {0, "4 bool reader", "enable", "0", "="},
            {4, "4 bool reader", "aspect", "0", "="},
            {8, "4 i32 reader", "xratio", "0", "="},
            {12, "4 i32 reader", "yratio", "0", "="},
            {16, "4 i32 reader", "xyratio", "0", "="},
            {20, "4 i32 reader", "centerxoffset", "0", "="},
            {24, "4 i32 reader", "centeryoffset", "0", "="},
            {28, "4 i32 reader", "distortionratio", "0", "="},
        },
        offset, "cam0_ldccfg_0", "LDCV1Attr");
    AppendLines(&lines, SpecLines(
                            {
                                {32, "4 bool reader", "enable", "0", "="},
                                {36, "4 bool reader", "aspect", "0", "="},
                                {40, "4 i32 reader", "xratio", "0", "x_ratio"},
                                {44, "4 i32 reader", "yratio", "0", "y_ratio"},
                                {48, "4 i32 reader", "xyratio", "0", "xy_ratio"},
                                {52, "4 i32 reader", "focal_len_x", "0", "="},
                                {56, "4 i32 reader", "focal_len_y", "0", "="},
                                {60, "4 i32 reader", "coord_shift_x", "0", "="},
                                {64, "4 i32 reader", "coord_shift_y", "0", "="},
                                {140, "4 u32 reader", "coef_intp_ratio", "0", "="},
                                {104, "4 i32 query", "src_calibration_ratio_next0", "0", ":"},
                                {108, "4 i32 query", "src_calibration_ratio_next1", "0", ":"},
                                {112, "4 i32 query", "src_calibration_ratio_next2", "0", ":"},
                                {116, "4 i32 query", "src_calibration_ratio_next3", "0", ":"},
                                {120, "4 i32 query", "src_calibration_ratio_next4", "0", ":"},
                                {124, "4 i32 query", "src_calibration_ratio_next5", "0", ":"},
                                {128, "4 i32 query", "src_calibration_ratio_next6", "0", ":"},
                                {132, "4 i32 query", "src_calibration_ratio_next7", "0", ":"},
                                {136, "4 i32 query", "src_calibration_ratio_next8", "0", ":"},
                                {68, "4 i32 query", "src_calibration_ratio0", "0", ":"},
                                {72, "4 i32 query", "src_calibration_ratio1", "0", ":"},
                                {76, "4 i32 query", "src_calibration_ratio2", "0", ":"},
                                {80, "4 i32 query", "src_calibration_ratio3", "0", ":"},
                                {84, "4 i32 query", "src_calibration_ratio4", "0", ":"},
                                {88, "4 i32 query", "src_calibration_ratio5", "0", ":"},
                                {92, "4 i32 query", "src_calibration_ratio6", "0", ":"},
                                {96, "4 i32 query", "src_calibration_ratio7", "0", ":"},
                                {100, "4 i32 query", "src_calibration_ratio8", "0", ":"},
                            },
                            offset, "cam0_ldccfg_0", "LDCV3Attr"));
    return lines;
}

/// The keys of the lens-distortion module in a walk. Each of them is stored in several records.
inline std::set<std::string> LdcKeys(const std::vector<WalkedField>& fields) {
    std::set<std::string> keys;
    for (const WalkedField& walked : fields) {
        if (walked.module == "cam0_ldccfg_0") {
            keys.insert(walked.key);
        }
    }
    return keys;
}

/// A 32-bit word of a record.
inline std::string WordAt(const std::string& record, std::size_t offset) {
    return record.substr(offset, 4);
}
inline std::string Word(std::int64_t value) {
    return LittleEndian(value, 4);
}

}  // namespace paramgen::testing
