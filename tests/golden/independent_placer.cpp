#include "golden/independent_placer.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <utility>

#include "golden/independent_names.h"

namespace paramgen::testing::independent {
namespace {

constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();

std::optional<std::int32_t> NumberOf(const std::string& name,
                                     const std::vector<NamedNumber>& names) {
    for (const NamedNumber& known : names) {
        if (name.substr(0, 64) == known.name) {
            return known.number;
        }
    }
    return std::nullopt;
}

/// The decimal number at the beginning of a text, limited to 32 bits; 0 without digits.
std::int32_t Decimal(const std::string& text, bool& rangeError) {
    errno = 0;
    const long long value = std::strtoll(text.c_str(), nullptr, 10);
    if (value < kLowest || value > kHighest) {
        rangeError = true;
        return value < 0 ? kLowest : kHighest;
    }
    return static_cast<std::int32_t>(value);
}

std::optional<std::int32_t> Truth(const std::string& text) {
    const char first = text.empty() ? '\0' : text[0];
    if (first == '1' || first == 'y' || first == 'Y' || first == 't' || first == 'T') {
        return 1;
    }
    if (first == '0' || first == 'n' || first == 'N' || first == 'f' || first == 'F') {
        return 0;
    }
    return std::nullopt;
}

}  // namespace

Placer::Placer(Building& building, std::string module)
    : building_(&building), module_(std::move(module)) {}

bool Placer::HasModule() const {
    return building_->product.count(module_) != 0;
}

std::optional<std::string> Placer::Find(const std::string& key) const {
    const auto module = building_->product.find(module_);
    if (module == building_->product.end()) {
        return std::nullopt;
    }
    const auto value = module->second.find(Lower(key));
    return value == module->second.end() ? std::nullopt : value->second;
}

std::optional<std::string> Placer::Ask(const AskedKey& asked) {
    building_->asked.push_back(asked);
    if (!HasModule() || asked.key.size() > 127) {
        Fail();
    }
    return Find(asked.key);
}

AskedKey Placer::Key(Kind kind, std::size_t at, std::size_t width, const std::string& key) const {
    AskedKey asked;
    asked.module = module_;
    asked.key = key;
    asked.kind = kind;
    asked.at = at;
    asked.width = width;
    return asked;
}

std::int32_t Placer::Number(const AskedKey& asked, std::int32_t otherwise) {
    const std::optional<std::string> text = Ask(asked);
    if (!text) {
        return otherwise;
    }
    const std::int32_t value = Decimal(*text, building_->rangeError);
    if (building_->rangeError && (value == kLowest || value == kHighest)) {
        Fail();
    }
    return value;
}

std::uint32_t Placer::Number32(Kind kind, std::size_t at, const std::string& key,
                               std::int32_t otherwise) {
    const auto value = static_cast<std::uint32_t>(Number(Key(kind, at, 4, key), otherwise));
    Word(at, value);
    return value;
}

void Placer::Bool(std::size_t at, const std::string& key) {
    const std::optional<std::string> text = Ask(Key(Kind::kBool, at, 4, key));
    Word(at, static_cast<std::uint32_t>(Truth(text.value_or("")).value_or(0)));
}

std::uint32_t Placer::U32(std::size_t at, const std::string& key, std::int32_t otherwise) {
    return Number32(Kind::kNumber, at, key, otherwise);
}

std::uint32_t Placer::S32(std::size_t at, const std::string& key, std::int32_t otherwise) {
    return Number32(Kind::kNumber, at, key, otherwise);
}

void Placer::U8(std::size_t at, const std::string& key) {
    Store(at, static_cast<std::uint64_t>(Number(Key(Kind::kNumber, at, 1, key), 0)), 1);
}

void Placer::S16(std::size_t at, const std::string& key) {
    const std::int32_t value = Number(Key(Kind::kShort, at, 2, key), 0);
    if (value < -32768 || value > 32767) {
        Fail();
    }
    Store(at, static_cast<std::uint64_t>(value), 2);
}

void Placer::S64(std::size_t at, const std::string& key) {
    const std::int64_t value = Number(Key(Kind::kNumber, at, 8, key), 0);
    Store(at, static_cast<std::uint64_t>(value), 8);
}

void Placer::F32(std::size_t at, const std::string& key) {
    const std::optional<std::string> text = Ask(Key(Kind::kFloat, at, 4, key));
    errno = 0;
    const auto value = static_cast<float>(std::strtod(text.value_or("0").c_str(), nullptr));
    building_->rangeError = building_->rangeError || errno == ERANGE;
    std::uint32_t bits = 0;
    std::memcpy(&bits, &value, 4);
    Word(at, bits);
}

void Placer::Mask(std::size_t at, const std::string& key) {
    const std::optional<std::string> text = Ask(Key(Kind::kMask, at, 4, key));
    const std::int32_t value = Decimal(text.value_or(""), building_->rangeError);
    if (value < 0) {
        Fail();
    }
    Word(at, static_cast<std::uint32_t>(value));
}

std::uint32_t Placer::Count(std::size_t at, const std::string& key, std::uint32_t room,
                            Above above) {
    AskedKey asked = Key(Kind::kCount, at, 4, key);
    asked.limit = room;
    asked.above = above;
    const auto count = static_cast<std::uint32_t>(Number(asked, 0));
    Word(at, count);
    return count > room && above == Above::kIsCut ? room : count;
}

void Placer::Text(std::size_t at, std::size_t size, const std::string& key) {
    AskedKey asked = Key(Kind::kText, at, size, key);
    asked.limit = static_cast<std::uint32_t>(size - 1);
    StoreText(at, size, Ask(asked).value_or(""));
}

void Placer::DirName(std::size_t at, std::size_t size, const std::string& key) {
    AskedKey asked = Key(Kind::kText, at, size, key);
    asked.limit = static_cast<std::uint32_t>(size - 1);
    const std::string text = Ask(asked).value_or("");
    StoreText(at, size, text == "\"\"" ? "" : text);
}

std::int32_t Placer::Mode(std::size_t at, const std::string& key) {
    const std::optional<std::string> name = Ask(Key(Kind::kMode, at, 4, key));
    if (!name) {
        return 0;
    }
    const std::optional<std::int32_t> number = NumberOf(*name, MediaModes());
    if (!number) {
        Fail();
    }
    Word(at, static_cast<std::uint32_t>(number.value_or(0)));
    return number.value_or(0);
}

std::optional<std::int32_t> Placer::FindMode(const std::string& key) {
    const std::optional<std::string> name = Ask(Key(Kind::kMode, AskedKey::kNowhere, 0, key));
    if (!name) {
        return std::nullopt;
    }
    const std::optional<std::int32_t> number = NumberOf(*name, MediaModes());
    if (!number) {
        Fail();
    }
    return number;
}

void Placer::Matrix(std::size_t at, const std::string& key) {
    const std::optional<std::string> name = Ask(Key(Kind::kMatrix, at, 4, key));
    if (!name) {
        return;
    }
    const std::optional<std::int32_t> number = NumberOf(*name, CscMatrices());
    if (!number) {
        Fail();
    }
    Word(at, static_cast<std::uint32_t>(number.value_or(0)));
}

std::uint32_t Placer::At(std::size_t at) const {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        value |= std::uint32_t{static_cast<unsigned char>(building_->image[at + i])} << (8 * i);
    }
    return value;
}

void Placer::Store(std::size_t at, std::uint64_t value, std::size_t bytes) {
    if (at + bytes > building_->end) {
        Fail();
        return;
    }
    for (std::size_t i = 0; i < bytes; ++i) {
        building_->image[at + i] = static_cast<char>(static_cast<unsigned char>(value >> (8 * i)));
    }
}

void Placer::StoreText(std::size_t at, std::size_t size, const std::string& text) {
    if (text.size() >= size || at + size > building_->end) {
        Fail();
        return;
    }
    building_->image.replace(at, text.size(), text);
}

}  // namespace paramgen::testing::independent
