/// Stores the values of one module in an image.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "golden/independent_ini.h"

namespace paramgen::testing::independent {

/// Kinds of values, as the generator of random values needs them.
enum class Kind {
    kBool,
    kNumber,
    kCount,   ///< a number of entries
    kShort,   ///< a number that must fit into 16 bits
    kMask,    ///< a number that must not be negative
    kFloat,   ///< a number with a fraction
    kText,    ///< a text of limited length
    kMode,    ///< the name of a media mode
    kMatrix,  ///< the name of a colour space conversion
};

/// What happens when a count is larger than the room for its entries.
enum class Above { kIsCut, kIsWrong };

/// A key that was read.
struct AskedKey {
    static constexpr std::size_t kNowhere = ~std::size_t{0};

    std::string module;
    std::string key;
    Kind kind = Kind::kNumber;
    std::size_t at = kNowhere;  ///< offset of the value in the image
    std::size_t width = 0;      ///< size of the value in bytes
    std::uint32_t limit = 0;    ///< longest text, or largest number of entries
    Above above = Above::kIsCut;
};

/// The image that is being built.
struct Building {
    const Product& product;
    std::string image;
    std::size_t end = 0;      ///< end of the current section
    bool failed = false;      ///< a value that must stop the program was read
    bool rangeError = false;  ///< an earlier number was out of range
    std::vector<AskedKey> asked;
};

class Placer {
public:
    Placer(Building& building, std::string module);

    /// Whether the product has the module.
    bool HasModule() const;

    /// Whether the module has the key.
    bool HasKey(const std::string& key) const { return Find(key).has_value(); }

    /// These store numbers. Unsigned ones are read as signed numbers, too.
    void Bool(std::size_t at, const std::string& key);
    std::uint32_t U32(std::size_t at, const std::string& key, std::int32_t otherwise = 0);
    std::uint32_t S32(std::size_t at, const std::string& key, std::int32_t otherwise = 0);
    void U8(std::size_t at, const std::string& key);
    void S16(std::size_t at, const std::string& key);
    void S64(std::size_t at, const std::string& key);
    void F32(std::size_t at, const std::string& key);
    /// Stores a decimal number that must not be negative.
    void Mask(std::size_t at, const std::string& key);
    /// Stores a count of entries, with room for `room` of them. Returns how many entries to read.
    std::uint32_t Count(std::size_t at, const std::string& key, std::uint32_t room, Above above);

    /// Stores a text that must fit into `size` bytes with its terminator.
    void Text(std::size_t at, std::size_t size, const std::string& key);
    /// The same; two double quotes make the text empty.
    void DirName(std::size_t at, std::size_t size, const std::string& key);

    /// These store the numbers of names. Without the key they store nothing.
    std::int32_t Mode(std::size_t at, const std::string& key);
    void Matrix(std::size_t at, const std::string& key);
    /// The number of a media mode, which is not stored; nothing without the key.
    std::optional<std::int32_t> FindMode(const std::string& key);

    /// These store a word that has no key, and a copy of a word that was stored before.
    void Word(std::size_t at, std::uint32_t value) { Store(at, value, 4); }
    void Copy(std::size_t to, std::size_t from) { Word(to, At(from)); }
    /// The word at an offset.
    std::uint32_t At(std::size_t at) const;

    /// The same image, another module.
    Placer Of(const std::string& module) const { return Placer(*building_, module); }

    void Fail() { building_->failed = true; }
    bool Failed() const { return building_->failed; }

private:
    std::optional<std::string> Find(const std::string& key) const;
    std::optional<std::string> Ask(const AskedKey& asked);
    std::int32_t Number(const AskedKey& asked, std::int32_t otherwise);
    std::uint32_t Number32(Kind kind, std::size_t at, const std::string& key,
                           std::int32_t otherwise);
    AskedKey Key(Kind kind, std::size_t at, std::size_t width, const std::string& key) const;
    void Store(std::size_t at, std::uint64_t value, std::size_t bytes);
    void StoreText(std::size_t at, std::size_t size, const std::string& text);

    Building* building_;
    std::string module_;
};

/// A number as it stands in a key.
inline std::string N(std::size_t number) {
    return std::to_string(number);
}

}  // namespace paramgen::testing::independent
