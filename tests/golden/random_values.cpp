#include "golden/random_values.h"

#include "golden/independent_names.h"

namespace paramgen::testing {
namespace {

using independent::AskedKey;
using independent::Kind;

std::string SomeNumber(Random& random, int lowest, int highest) {
    const auto span = static_cast<std::size_t>(static_cast<long>(highest) - lowest + 1);
    return std::to_string(lowest + static_cast<long>(random.Below(span)));
}

std::string NumberValue(Random& random) {
    switch (random.Below(8)) {
        case 0:
            return SomeNumber(random, -5000, 0);
        case 1:
            return SomeNumber(random, INT32_MIN, INT32_MAX);
        case 2:
            return random.OneOf({"2147483647", "-2147483648", "255", "256", "300", "-1"});
        case 3:
            return random.OneOf({"0x10", "12abc", "abc", "+7", "007", "\"42\"", "'  43 '", "1e3",
                                 "- 3", "", "\"\"", "''", "1 2", "4.9", "--5"});
        default:
            return SomeNumber(random, 0, 9999);
    }
}

std::string BoolValue(Random& random) {
    return random.OneOf({"1",       "1",      "yes", "TRUE", "true",  "Y",     "t", "1x",
                         "\"yes\"", "'True'", "0",   "no",   "False", "N",     "f", "on",
                         "Off",     "2",      "-1",  "",     "\"\"",  "\" 1\""});
}

std::string FloatValue(Random& random) {
    if (random.OneIn(2)) {
        return random.OneOf({"29.97", "59.94", "23.976", "0.1", "-1.25", "1e3", "1e-3", "0x1p4",
                             "abc", "25.0fps", "16777217", "", ".5", "\"30.0\"", "+12.5"});
    }
    return SomeNumber(random, -100, 1000) + "." + SomeNumber(random, 0, 99999);
}

std::string CountValue(Random& random, const AskedKey& key) {
    if (key.above == independent::Above::kIsCut && random.OneIn(6)) {
        return random.OneIn(3) ? "-1" : SomeNumber(random, 0, static_cast<int>(key.limit) + 4);
    }
    return random.OneIn(3) ? std::to_string(key.limit)
                           : SomeNumber(random, 0, static_cast<int>(key.limit));
}

/// A text of at most `limit` bytes, sometimes of exactly that many.
std::string SomeText(Random& random, std::size_t limit) {
    const std::size_t length = random.OneIn(8) ? limit : random.Below(limit + 1);
    std::string text;
    while (text.size() < length) {
        text += random.OneOf(
            {"a", "Z", "7", "_", " ", "%s", "%n", "/",  ".", "\\", "\xC3\xA9", "\xE2\x82\xAC",
             "=", "#", "'", "[", "]", ":",  "-",  "\t", "q"});
    }
    text.resize(length);
    return text;
}

std::string TextValue(Random& random, std::size_t limit) {
    if (random.OneIn(12)) {
        return random.OneOf({"", "\"\"", "''", "'\"\"'", "\"''\""});
    }
    const std::string text = SomeText(random, limit);
    if (text.find('\'') == std::string::npos && random.OneIn(3)) {
        return "'" + text + "'";
    }
    // Without quotes the text ends before a '#', and loses the white space around it.
    return random.OneIn(4) ? text : "\"" + text + "\"";
}

std::string ModeValue(Random& random, const AskedKey& key, const std::vector<std::string>& modes) {
    const bool camera = key.module.rfind("cam0_", 0) == 0;
    const std::string name =
        camera ? modes[random.Below(modes.size())]
               : independent::MediaModes()[random.Below(independent::MediaModes().size())].name;
    return random.OneIn(4) ? "\"" + name + "\"" : name;
}

}  // namespace

std::string GoodValue(Random& random, const AskedKey& key, const std::vector<std::string>& modes) {
    switch (key.kind) {
        case Kind::kBool:
            return BoolValue(random);
        case Kind::kNumber:
            return NumberValue(random);
        case Kind::kCount:
            return CountValue(random, key);
        case Kind::kShort:
            return random.OneIn(4) ? random.OneOf({"-32768", "32767", "\"\"", "9 Hz"})
                                   : SomeNumber(random, -32768, 32767);
        case Kind::kMask:
            return random.OneIn(4) ? random.OneOf({"2147483647", "0x10", "077", "\"\"", "x"})
                                   : SomeNumber(random, 0, INT32_MAX);
        case Kind::kFloat:
            return FloatValue(random);
        case Kind::kText:
            return TextValue(random, key.limit);
        case Kind::kMode:
            return ModeValue(random, key, modes);
        case Kind::kMatrix:
            return independent::CscMatrices()[random.Below(9)].name;
    }
    return "";
}

std::string BadValue(const AskedKey& key) {
    switch (key.kind) {
        case Kind::kNumber:
            return "99999999999";
        case Kind::kCount:
            return "-2147483649";
        case Kind::kShort:
            return "32768";
        case Kind::kMask:
            return "-1";
        case Kind::kText:
            return "\"" + std::string(key.limit + 1, 'x') + "\"";
        case Kind::kMode:
            return "QX_PARAM_MEDIAMODE_720P";
        case Kind::kMatrix:
            return "\"QX_MAPI_DISP_CSC_MATRIX_BT709FULL_TO_RGBFULL \"";
        case Kind::kBool:
        case Kind::kFloat:
            break;
    }
    return "";
}

}  // namespace paramgen::testing
